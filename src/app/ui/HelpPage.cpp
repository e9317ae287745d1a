// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/HelpPage.h"

#include <QEvent>
#include <QFile>
#include <QResizeEvent>
#include <QScrollBar>
#include <algorithm>
#include <utility>

namespace {

constexpr int margin = 16; // logical pixels around the text
constexpr int smallest = -4; // steps of the zoom
constexpr int largest = 12;

} // namespace

HelpPage::HelpPage(QWidget* parent) : QTextBrowser(parent)
{
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    document()->setDocumentMargin(margin);
    // The bar is always there: pictures that just need it would let it come and go with their own width.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void HelpPage::setStyleFile(const QString& name)
{
    QFile file(name);
    if (file.open(QFile::ReadOnly))
        document()->setDefaultStyleSheet(QString::fromUtf8(file.readAll()));
}

void HelpPage::zoom(int steps)
{
    const int wanted = steps == 0 ? 0 : std::clamp(m_zoom + steps, smallest, largest);
    zoomIn(wanted - std::exchange(m_zoom, wanted));
}

bool HelpPage::findNext(const QString& text, QTextDocument::FindFlags flags)
{
    if (find(text, flags))
        return true;
    const QTextCursor before = textCursor();
    moveCursor(flags.testFlag(QTextDocument::FindBackward) ? QTextCursor::End : QTextCursor::Start);
    if (find(text, flags))
        return true;
    setTextCursor(before);
    return false;
}

QVariant HelpPage::loadResource(int type, const QUrl& name)
{
    QVariant resource = QTextBrowser::loadResource(type, name);
    if (type != QTextDocument::ImageResource)
        return resource;
    // A picture with a palette would be dithered when it is made smaller.
    const QImage picture =
        QImage::fromData(resource.toByteArray()).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull())
        return resource;
    m_pictures.insert(name, picture);
    return fitted(picture);
}

QPixmap HelpPage::fitted(const QImage& picture) const
{
    const qreal scale = devicePixelRatioF();
    const int widest = std::max(viewport()->width() - 2 * margin, 1);
    const int width = qRound(std::min(picture.width(), widest) * scale);
    QPixmap pixmap =
        QPixmap::fromImage(width == picture.width() ? picture : picture.scaledToWidth(width, Qt::SmoothTransformation));
    pixmap.setDevicePixelRatio(scale);
    return pixmap;
}

void HelpPage::fitPictures()
{
    for (auto it = m_pictures.cbegin(); it != m_pictures.cend(); ++it)
        document()->addResource(QTextDocument::ImageResource, it.key(), fitted(it.value()));
    document()->markContentsDirty(0, document()->characterCount());
}

void HelpPage::resizeEvent(QResizeEvent* event)
{
    if (event->size().width() != event->oldSize().width())
        fitPictures();
    QTextBrowser::resizeEvent(event);
}

void HelpPage::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || source().isEmpty())
        return;
    const int place = verticalScrollBar()->value();
    reload(); // links and frames have the colours of the palette that the page was read under
    verticalScrollBar()->setValue(place);
}
