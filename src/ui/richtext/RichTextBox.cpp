// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/richtext/RichTextBox.h"

#include "ui/richtext/RichTextMime.h"
#include "ui/richtext/Rtf.h"

#include <QAbstractTextDocumentLayout>
#include <QClipboard>
#include <QFontDatabase>
#include <QFontInfo>
#include <QGuiApplication>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QTimer>

using namespace Qt::StringLiterals;

namespace {

constexpr int standardPoints = 10;

// The desktop's own font under its real name: an alias such as "Sans" would be another font elsewhere.
QFont standardFont()
{
    const QFont system = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    return QFont(QFontInfo(system).family(), standardPoints);
}

QString counted(int count, const QString& one, const QString& many)
{
    return QString::number(count) + u' ' + (count == 1 ? one : many);
}

QString lossMessage(const rtf::ReadInfo& info)
{
    QStringList parts;
    if (info.pictures > 0)
        parts << counted(info.pictures, u"picture"_s, u"pictures"_s);
    if (info.tables > 0)
        parts << counted(info.tables, u"table"_s, u"tables"_s);
    if (info.objects > 0)
        parts << counted(info.objects, u"embedded object"_s, u"embedded objects"_s);
    const QString last = parts.takeLast();
    const QString what = parts.isEmpty() ? last : parts.join(u", "_s) + u" and "_s + last;
    return u"This text holds "_s + what +
        u" that cannot be kept once the text is changed here. (Of a table the words stay, as tabbed lines.)\n"
        "Change it all the same?"_s;
}

} // namespace

RichTextBox::RichTextBox(QWidget* parent) : QTextEdit(parent)
{
    setFont(standardFont());
    setAcceptRichText(true);
    setTabStopDistance(48); // half an inch, as RTF has it
    buildMenu();
    m_revision = document()->revision();
    connect(document(), &QTextDocument::contentsChanged, this, &RichTextBox::whenContentsChanged);
    connect(this, &QTextEdit::cursorPositionChanged, this, &RichTextBox::lookChanged);
    connect(this, &QTextEdit::selectionChanged, this, &RichTextBox::lookChanged);
    connect(this, &QTextEdit::currentCharFormatChanged, this, &RichTextBox::lookChanged);
}

void RichTextBox::setRtf(const QString& stored)
{
    m_loading = true;
    m_stored = stored;
    m_admitted = false;
    m_info = rtf::read(stored, document());
    if (!m_info.ok)
        document()->setPlainText(QString(stored).remove(QChar(u'\0')));
    document()->clearUndoRedoStacks();
    document()->setModified(false);
    m_revision = document()->revision();
    m_loading = false;
    moveCursor(QTextCursor::Start);
    setCurrentCharFormat(textCursor().charFormat());
    emit lookChanged();
}

QString RichTextBox::rtf() const
{
    if (isGuarded() || !document()->isModified())
        return m_stored;
    return document()->isEmpty() ? QString() : QString::fromLatin1(rtf::write(*document()));
}

bool RichTextBox::admitEdit()
{
    if (!isGuarded())
        return true;
    if (m_asking || !m_confirm)
        return false;
    m_asking = true;
    m_admitted = m_confirm(lossMessage(m_info));
    m_asking = false;
    return m_admitted;
}

// The document changed while the text was guarded and no door that is watched was used, as when a selection is
// dragged away to another program. The question comes late, but the stored text is still there.
void RichTextBox::askAfterwards()
{
    if (!isGuarded())
        return;
    if (admitEdit()) {
        emit edited();
        return;
    }
    const int scrolled = verticalScrollBar()->value();
    setRtf(QString(m_stored));
    verticalScrollBar()->setValue(scrolled);
}

void RichTextBox::whenContentsChanged()
{
    if (m_loading || m_revision == document()->revision())
        return; // a new font or palette is no edit
    m_revision = document()->revision();
    if (isGuarded())
        QTimer::singleShot(0, this, &RichTextBox::askAfterwards);
    else
        emit edited();
    emit lookChanged();
}

bool RichTextBox::replaceText(const QString& plain)
{
    if (!admitEdit())
        return false;
    QTextCursor cursor(document());
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    cursor.setBlockFormat(QTextBlockFormat());
    cursor.setBlockCharFormat(QTextCharFormat());
    cursor.insertText(QString(plain).remove(QChar(u'\0')), QTextCharFormat());
    cursor.endEditBlock();
    moveCursor(QTextCursor::Start);
    return true;
}

RichTextLook RichTextBox::look() const
{
    if (textCursor().isNull()) // in the middle of QTextEdit::setPlainText
        return {};
    return lookOf(textCursor(), currentCharFormat(), document()->defaultFont());
}

// Without a selection the format is only for what is typed next, and nothing changes yet.
void RichTextBox::applyChars(const QTextCharFormat& change)
{
    if (!isReadOnly() && (!textCursor().hasSelection() || admitEdit()))
        mergeCurrentCharFormat(change);
}

void RichTextBox::align(Qt::Alignment alignment)
{
    if (!isReadOnly() && admitEdit())
        setAlignment(alignment);
}

void RichTextBox::setFamily(const QString& family)
{
    QTextCharFormat change;
    change.setFontFamilies({family});
    applyChars(change);
}

void RichTextBox::setPoints(int points)
{
    QTextCharFormat change;
    change.setFontPointSize(qMax(1, points));
    applyChars(change);
}

void RichTextBox::setColor(const QColor& color)
{
    const bool isPalettes = rtf::isAutomatic(color, {}) && !hasBackground(textCursor());
    QTextCharFormat change;
    change.setForeground(isPalettes ? QBrush(Qt::NoBrush) : QBrush(color));
    applyChars(change);
}

void RichTextBox::pastePlain()
{
    const QMimeData* source = QGuiApplication::clipboard()->mimeData();
    if (!isReadOnly() && source && source->hasText() && admitEdit())
        textCursor().insertText(source->text().remove(QChar(u'\0')));
    ensureCursorVisible();
}

void RichTextBox::run(RichTextCommand command)
{
    if (command == RichTextCommand::Copy)
        return copy();
    if (isReadOnly())
        return;
    QTextCharFormat change;
    switch (command) {
    case RichTextCommand::Copy:
        break;
    case RichTextCommand::Cut:
        if (textCursor().hasSelection() && admitEdit())
            cut();
        break;
    case RichTextCommand::Paste:
        return paste();
    case RichTextCommand::PastePlain:
        return pastePlain();
    case RichTextCommand::Bold:
        change.setFontWeight(look().bold ? QFont::Normal : QFont::Bold);
        return applyChars(change);
    case RichTextCommand::Italic:
        change.setFontItalic(!look().italic);
        return applyChars(change);
    case RichTextCommand::Underline:
        change.setFontUnderline(!look().underline);
        return applyChars(change);
    case RichTextCommand::AlignLeft:
        return align(Qt::AlignLeft | Qt::AlignAbsolute);
    case RichTextCommand::Center:
        return align(Qt::AlignHCenter);
    case RichTextCommand::AlignRight:
        return align(Qt::AlignRight | Qt::AlignAbsolute);
    case RichTextCommand::Bullets:
        if (admitEdit())
            toggleBullets(textCursor());
        break;
    case RichTextCommand::Outdent:
    case RichTextCommand::Indent:
        if (admitEdit())
            shiftIndent(textCursor(), command == RichTextCommand::Indent ? 1 : -1);
        break;
    }
}

QMimeData* RichTextBox::createMimeDataFromSelection() const
{
    return mimeOf(textCursor().selection(), document()->defaultFont());
}

bool RichTextBox::canInsertFromMimeData(const QMimeData* source) const
{
    return !isReadOnly() && holdsText(*source);
}

void RichTextBox::insertFromMimeData(const QMimeData* source)
{
    if (isReadOnly() || !source || !holdsText(*source) || !admitEdit())
        return;
    const std::optional<QTextDocumentFragment> fragment = fragmentOf(*source, document()->defaultFont());
    if (fragment)
        textCursor().insertFragment(*fragment);
    else
        textCursor().insertText(source->text().remove(QChar(u'\0')));
    ensureCursorVisible();
}
