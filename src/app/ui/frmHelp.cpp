// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/frmHelp.h"

#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "ui/widgets/Icons.h"
#include "ui/widgets/ShownText.h"
#include "ui/widgets/Unblocked.h"

#include <QApplication>
#include <QBoxLayout>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QResizeEvent>
#include <QScreen>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int PageRole = Qt::UserRole;
const QString firstPage = u"index.html"_s;
constexpr int margin = 16; // logical pixels around the text of a page
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

frmHelp::frmHelp(const QString& folder, const Desktop& desktop) : m_book(folder), m_desktop(desktop)
{
    setObjectName(u"frmHelp"_s);
    setWindowTitle(u"SnipVale Manual"_s);
    setAttribute(Qt::WA_QuitOnClose, false); // the main window may be hidden
    auto* splitter = new QSplitter(this);
    splitter->addWidget(makeSide());
    splitter->addWidget(makeReader());
    splitter->setStretchFactor(1, 1);
    splitter->setChildrenCollapsible(false);
    m_page->setStyleFile(m_book.folder() + u"/style.css"_s);
    makeBar();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_bar);
    layout->addWidget(splitter, 1);
    addShortcuts();
    const int letter = fontMetrics().averageCharWidth();
    splitter->setSizes({letter * 40, letter * 110});
    resize(QSize(letter * 150, fontMetrics().lineSpacing() * 42).boundedTo(screen()->availableSize() * 0.9));
    new QtUnblocked(*this);
    fillContents();
    connect(m_page, &QTextBrowser::anchorClicked, this, &frmHelp::followLink);
    connect(m_page, &QTextBrowser::sourceChanged, this, &frmHelp::pageChanged);
}

frmHelp::~frmHelp() = default;

QAction* frmHelp::add(const QString& name, const QString& text, const QString& icon,
                      std::initializer_list<QKeySequence> keys)
{
    QAction* action = m_bar->addAction(themedIcon(icon), text);
    action->setObjectName(name);
    action->setShortcuts(keys);
    action->setToolTip(u"%1 (%2)"_s.arg(text, action->shortcut().toString(QKeySequence::NativeText)));
    return action;
}

void frmHelp::makeBar()
{
    m_bar = new QToolBar(this);
    m_bar->setObjectName(u"tbToolBarHelp"_s);
    m_bar->setIconSize(QSize(22, 22));
    QAction* back = add(u"Back"_s, u"Back"_s, u"go-previous"_s, {Qt::ALT | Qt::Key_Left, Qt::Key_Back});
    QAction* forward = add(u"Forward"_s, u"Forward"_s, u"go-next"_s, {Qt::ALT | Qt::Key_Right, Qt::Key_Forward});
    const QAction* home = add(u"Home"_s, u"Contents"_s, u"go-home"_s, {Qt::ALT | Qt::Key_Home});
    m_bar->addSeparator();
    const QAction* findAction = add(u"Find"_s, u"Find in this page"_s, u"edit-find"_s, {QKeySequence::Find});
    m_bar->addSeparator();
    const QAction* larger = add(u"ZoomIn"_s, u"Larger text"_s, u"format-font-size-more"_s,
                                {Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal});
    const QAction* smaller =
        add(u"ZoomOut"_s, u"Smaller text"_s, u"format-font-size-less"_s, {Qt::CTRL | Qt::Key_Minus});
    const QAction* normal = add(u"ZoomNormal"_s, u"Normal size"_s, u"zoom-original"_s, {Qt::CTRL | Qt::Key_0});
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(m_page, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(m_page, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(back, &QAction::triggered, m_page, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, m_page, &QTextBrowser::forward);
    connect(home, &QAction::triggered, this, [this] { open(firstPage); });
    connect(findAction, &QAction::triggered, this, &frmHelp::showFindBar);
    connect(larger, &QAction::triggered, m_page, [this] { m_page->zoom(1); });
    connect(smaller, &QAction::triggered, m_page, [this] { m_page->zoom(-1); });
    connect(normal, &QAction::triggered, m_page, [this] { m_page->zoom(0); });
}

QWidget* frmHelp::makeSide()
{
    auto* side = new QWidget;
    m_search = new QLineEdit(side);
    m_search->setObjectName(u"txtSearch"_s);
    m_search->setPlaceholderText(u"Search the manual"_s);
    m_search->setToolTip(u"Search all chapters (Ctrl+K)"_s);
    m_search->setAccessibleName(m_search->placeholderText());
    m_search->setClearButtonEnabled(true);
    m_search->installEventFilter(this);
    m_contents = new QTreeWidget(side);
    m_contents->setObjectName(u"tvwContents"_s);
    m_contents->setAccessibleName(u"Contents"_s);
    m_contents->setHeaderHidden(true);
    m_contents->setUniformRowHeights(true);
    auto* layout = new QVBoxLayout(side);
    layout->addWidget(m_search);
    layout->addWidget(m_contents, 1);
    connect(m_search, &QLineEdit::textChanged, this, &frmHelp::searchFor);
    connect(m_contents, &QTreeWidget::currentItemChanged, this, &frmHelp::openItem);
    connect(m_contents, &QTreeWidget::itemClicked, this, &frmHelp::openItem);
    return side;
}

QWidget* frmHelp::makeReader()
{
    auto* reader = new QWidget;
    m_page = new HelpPage(reader);
    m_page->setObjectName(u"txtPage"_s);
    m_page->setAccessibleName(u"Manual"_s);
    auto* layout = new QVBoxLayout(reader);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    layout->addWidget(m_page, 1);
    layout->addWidget(makeFindBar());
    return reader;
}

QWidget* frmHelp::makeFindBar()
{
    m_findBar = new QWidget;
    m_findBar->setObjectName(u"picFind"_s);
    auto* layout = new QHBoxLayout(m_findBar);
    m_find = new QLineEdit(m_findBar);
    m_find->setObjectName(u"txtFind"_s);
    m_find->setClearButtonEnabled(true);
    m_find->installEventFilter(this);
    auto* label = new QLabel(u"F&ind:"_s, m_findBar);
    label->setBuddy(m_find);
    m_found = new QLabel(m_findBar);
    m_found->setObjectName(u"lblFound"_s);
    layout->addWidget(label);
    layout->addWidget(m_find, 1);
    const auto button = [&](const QString& icon, const QString& tip, const std::function<void()>& run) {
        auto* tool = new QToolButton(m_findBar);
        tool->setIcon(themedIcon(icon));
        tool->setToolTip(tip);
        tool->setAccessibleName(tip);
        tool->setAutoRaise(true);
        connect(tool, &QToolButton::clicked, this, run);
        layout->addWidget(tool);
    };
    button(u"go-up"_s, u"Previous (Shift+F3)"_s, [this] { findInPage(true); });
    button(u"go-down"_s, u"Next (F3)"_s, [this] { findInPage(false); });
    layout->addWidget(m_found);
    button(u"window-close"_s, u"Close (Escape)"_s, [this] { leave(); });
    connect(m_find, &QLineEdit::textEdited, this, [this] {
        m_page->setTextCursor(QTextCursor(m_page->document())); // what is typed is looked for from the top
        findInPage(false);
    });
    m_findBar->hide();
    return m_findBar;
}

void frmHelp::addShortcuts()
{
    const auto shortcut = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    shortcut(Qt::Key_Escape, [this] { leave(); });
    shortcut(QKeySequence::Close, [this] { close(); });
    shortcut(Qt::CTRL | Qt::Key_K, [this] {
        m_search->setFocus();
        m_search->selectAll();
    });
    shortcut(Qt::Key_F3, [this] { findInPage(false); });
    shortcut(Qt::SHIFT | Qt::Key_F3, [this] { findInPage(true); });
}

void frmHelp::fillContents()
{
    const QSignalBlocker quiet(m_contents); // nobody chose anything
    m_contents->clear();
    m_contents->setRootIsDecorated(true);
    QTreeWidgetItem* chapter = nullptr;
    for (const HelpSection& section : m_book.sections()) {
        QTreeWidgetItem* item = nullptr;
        if (section.level == 1 || !chapter)
            item = chapter = new QTreeWidgetItem(m_contents);
        else
            item = new QTreeWidgetItem(chapter);
        item->setText(0, section.title);
        item->setToolTip(0, plainToolTip(section.title));
        item->setData(0, PageRole, section.page);
    }
    pageChanged(m_page->source());
}

void frmHelp::fillHits(const QString& words)
{
    const QSignalBlocker quiet(m_contents);
    m_contents->clear();
    m_contents->setRootIsDecorated(false);
    for (const HelpSection& section : m_book.find(words)) {
        auto* item = new QTreeWidgetItem(m_contents, {section.title});
        item->setData(0, PageRole, section.page);
        item->setToolTip(0, plainToolTip(helpExcerpt(section, words)));
    }
    if (m_contents->topLevelItemCount() == 0)
        (new QTreeWidgetItem(m_contents, {u"Nothing found"_s}))->setDisabled(true);
}

void frmHelp::searchFor(const QString& words)
{
    if (words.trimmed().isEmpty())
        fillContents();
    else
        fillHits(words.trimmed());
}

void frmHelp::showPage(const QString& page)
{
    setWindowState(windowState() & ~Qt::WindowMinimized);
    show(); // first: a page scrolls to its anchor by the width that it has
    open(page.isEmpty() ? firstPage : page);
    raise();
    activateWindow();
    m_page->setFocus();
}

void frmHelp::open(const QString& page)
{
    QUrl url = QUrl::fromLocalFile(m_book.folder() + u'/' + page.section(u'#', 0, 0));
    url.setFragment(page.section(u'#', 1));
    m_page->setSource(url);
    m_page->scrollToAnchor(url.fragment()); // also when it is the page that is shown already
}

void frmHelp::openItem(const QTreeWidgetItem* item)
{
    if (!item || item->isDisabled())
        return;
    open(item->data(0, PageRole).toString());
    if (const QString words = m_search->text().trimmed(); !words.isEmpty())
        m_page->find(words.section(u' ', 0, 0));
}

void frmHelp::followLink(const QUrl& link)
{
    const QUrl url = m_page->source().resolved(link);
    if (url.isLocalFile()) {
        m_page->setSource(url);
        return;
    }
    trapErrors(m_desktop.questions, u"HelpManual"_s, [&] { m_desktop.shell.openLink(url.toString()); });
}

// The contents follow the page, wherever it came from.
void frmHelp::pageChanged(const QUrl& source)
{
    const QString file = source.fileName();
    const QString page = source.hasFragment() ? file + u'#' + source.fragment() : file;
    QTreeWidgetItem* best = nullptr;
    for (QTreeWidgetItemIterator it(m_contents); *it; ++it) {
        const QString its = (*it)->data(0, PageRole).toString();
        if (its == page || (its == file && !best))
            best = *it;
    }
    const QSignalBlocker quiet(m_contents);
    m_contents->setCurrentItem(best);
    if (!best)
        m_contents->clearSelection();
    for (const HelpSection& section : m_book.sections())
        if (section.page == file)
            setWindowTitle(section.title + u" - SnipVale Manual"_s);
    if (file == firstPage)
        setWindowTitle(u"SnipVale Manual"_s);
}

void frmHelp::showFindBar()
{
    m_findBar->show();
    m_find->setFocus();
    m_find->selectAll();
}

void frmHelp::findInPage(bool backward)
{
    const QString text = m_find->text();
    if (text.isEmpty()) {
        m_found->clear();
        showFindBar();
        return;
    }
    const bool isFound = m_page->findNext(text, backward ? QTextDocument::FindBackward : QTextDocument::FindFlags());
    m_found->setText(isFound ? QString() : u"Not found"_s);
}

void frmHelp::leave()
{
    if (m_findBar->isHidden()) {
        close();
        return;
    }
    m_findBar->hide();
    m_page->setFocus();
}

bool frmHelp::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool isEnter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (watched == m_find && isEnter) {
        findInPage(key->modifiers().testFlag(Qt::ShiftModifier));
        return true;
    }
    if (watched == m_search && (isEnter || key->key() == Qt::Key_Down) && m_contents->topLevelItemCount() > 0) {
        if (!m_contents->currentItem())
            m_contents->setCurrentItem(m_contents->topLevelItem(0)); // shows it
        m_contents->setFocus();
        return true;
    }
    return QWidget::eventFilter(watched, event);
}
