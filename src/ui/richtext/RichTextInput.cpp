// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/richtext/RichTextBox.h"

#include <QAbstractTextDocumentLayout>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QInputMethod>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextDocument>
#include <QToolTip>

// The hands of the box: keys, mouse, input methods and the context menu.

using namespace Qt::StringLiterals;

namespace {

struct Shortcut {
    QKeyCombination keys;
    RichTextCommand command;
};

constexpr Shortcut shortcuts[] = {
    {Qt::CTRL | Qt::Key_B, RichTextCommand::Bold},
    {Qt::CTRL | Qt::Key_I, RichTextCommand::Italic},
    {Qt::CTRL | Qt::Key_U, RichTextCommand::Underline},
    {Qt::CTRL | Qt::Key_L, RichTextCommand::AlignLeft},
    {Qt::CTRL | Qt::Key_E, RichTextCommand::Center},
    {Qt::CTRL | Qt::Key_R, RichTextCommand::AlignRight},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_L, RichTextCommand::Bullets},
    {Qt::CTRL | Qt::Key_M, RichTextCommand::Indent},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_M, RichTextCommand::Outdent},
    {Qt::CTRL | Qt::SHIFT | Qt::Key_V, RichTextCommand::PastePlain},
};

const Shortcut* shortcutOf(const QKeyEvent& event)
{
    const auto* end = std::end(shortcuts);
    const auto* it = std::find_if(std::begin(shortcuts), end,
                                  [&event](const Shortcut& s) { return s.keys == event.keyCombination(); });
    return it == end ? nullptr : it;
}

bool isEnter(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
}

} // namespace

QKeySequence RichTextBox::keys(RichTextCommand command)
{
    switch (command) {
    case RichTextCommand::Cut:
        return QKeySequence(QKeySequence::Cut);
    case RichTextCommand::Copy:
        return QKeySequence(QKeySequence::Copy);
    case RichTextCommand::Paste:
        return QKeySequence(QKeySequence::Paste);
    default:
        break;
    }
    for (const Shortcut& shortcut : shortcuts) {
        if (shortcut.command == command)
            return QKeySequence(shortcut.keys);
    }
    return {};
}

bool RichTextBox::event(QEvent* event)
{
    // The window may have a use of its own for these keys; while the caret is here they are ours.
    if (event->type() == QEvent::ShortcutOverride && shortcutOf(*static_cast<QKeyEvent*>(event))) {
        event->accept();
        return true;
    }
    if (event->type() == QEvent::ToolTip) {
        const auto* help = static_cast<QHelpEvent*>(event);
        const QString link = linkAt(viewport()->mapFrom(this, help->pos()));
        if (!link.isEmpty()) {
            QToolTip::showText(help->globalPos(), link.toHtmlEscaped() + u"<br>Ctrl+click opens it"_s, this);
            return true;
        }
    }
    return QTextEdit::event(event);
}

// True for each key that would change the text.
bool RichTextBox::isEdit(const QKeyEvent& event) const
{
    static constexpr QKeySequence::StandardKey edits[] = {QKeySequence::Cut,
                                                          QKeySequence::Paste,
                                                          QKeySequence::Delete,
                                                          QKeySequence::DeleteStartOfWord,
                                                          QKeySequence::DeleteEndOfWord,
                                                          QKeySequence::DeleteEndOfLine,
                                                          QKeySequence::DeleteCompleteLine,
                                                          QKeySequence::Backspace,
                                                          QKeySequence::InsertParagraphSeparator,
                                                          QKeySequence::InsertLineSeparator};
    if (isReadOnly())
        return false;
    if (event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete)
        return true;
    if (std::any_of(std::begin(edits), std::end(edits), [&event](auto key) { return event.matches(key); }))
        return true;
    const QString text = event.text();
    return !text.isEmpty() && (text[0].unicode() >= 0x20 || text[0] == u'\t') && text[0].unicode() != 0x7F;
}

bool RichTextBox::doShortcut(const QKeyEvent& event)
{
    const Shortcut* shortcut = shortcutOf(event);
    if (shortcut)
        run(shortcut->command);
    return shortcut != nullptr;
}

bool RichTextBox::doLinkKey(const QKeyEvent& event)
{
    if (!isEnter(event) || !event.modifiers().testFlag(Qt::ControlModifier))
        return false;
    const QTextCursor cursor = textCursor();
    QTextCursor next(cursor);
    next.clearSelection();
    next.movePosition(QTextCursor::NextCharacter); // a caret just before a link is at it
    QString link = cursor.charFormat().anchorHref();
    if (link.isEmpty())
        link = next.charFormat().anchorHref();
    if (link.isEmpty())
        link = addressAround(cursor.block().text(), cursor.positionInBlock());
    if (!link.isEmpty())
        emit linkActivated(link);
    return !link.isEmpty();
}

// What word processors do in lists: Tab and Shift+Tab at the start change the level, Enter on an empty item
// goes back one level and at last out of the list.
bool RichTextBox::doListKey(const QKeyEvent& event)
{
    const QTextCursor cursor = textCursor();
    const int level = listLevel(cursor.block());
    if (isReadOnly())
        return false;
    if (event.key() == Qt::Key_Backtab && level < 0) {
        setTabChangesFocus(true); // Tab writes a tab, so this is the way out
        const bool left = focusPreviousChild();
        setTabChangesFocus(false);
        return left;
    }
    if (level < 0 || cursor.hasSelection())
        return false;
    if (event.key() == Qt::Key_Backtab || (event.key() == Qt::Key_Tab && cursor.atBlockStart())) {
        run(event.key() == Qt::Key_Tab ? RichTextCommand::Indent : RichTextCommand::Outdent);
        return true;
    }
    if (!isEnter(event) || event.modifiers() & ~Qt::KeypadModifier || cursor.block().length() > 1)
        return false;
    if (level > 0)
        run(RichTextCommand::Outdent);
    else if (admitEdit())
        leaveList(cursor);
    return true;
}

// What is typed behind the last letter of a link is not part of it.
void RichTextBox::leaveLink()
{
    const QTextCursor cursor = textCursor();
    QTextCharFormat format = cursor.charFormat();
    if (cursor.hasSelection() || !format.isAnchor())
        return;
    QTextCursor next(cursor);
    const bool isInside = !cursor.atBlockEnd() && next.movePosition(QTextCursor::NextCharacter) &&
        next.charFormat().anchorHref() == format.anchorHref();
    if (isInside && !cursor.atBlockStart())
        return;
    for (const auto property :
         {QTextFormat::IsAnchor, QTextFormat::AnchorHref, QTextFormat::AnchorName, QTextFormat::TextUnderlineStyle,
          QTextFormat::FontUnderline, QTextFormat::ForegroundBrush})
        format.clearProperty(property);
    setCurrentCharFormat(format);
}

void RichTextBox::keyPressEvent(QKeyEvent* event)
{
    // Tab types a tab; with Ctrl it leaves, as in the code editor.
    if (event->key() == Qt::Key_Tab && event->modifiers() == Qt::ControlModifier) {
        QWidget::focusNextPrevChild(true); // NOLINT(bugprone-parent-virtual-call): the editor's own stays
        event->accept();
        return;
    }
    if (doShortcut(*event) || doLinkKey(*event) || doListKey(*event)) {
        event->accept();
        return;
    }
    if (isEdit(*event)) {
        if (!admitEdit()) {
            event->accept();
            return;
        }
        leaveLink();
    }
    QTextEdit::keyPressEvent(event);
}

void RichTextBox::inputMethodEvent(QInputMethodEvent* event)
{
    const bool writes = !event->commitString().isEmpty() || !event->preeditString().isEmpty();
    if (writes && !isReadOnly() && !admitEdit()) {
        QGuiApplication::inputMethod()->reset();
        return;
    }
    QTextEdit::inputMethodEvent(event);
}

void RichTextBox::dropEvent(QDropEvent* event)
{
    if (!admitEdit()) { // before the base class takes a moved selection from its place
        event->setDropAction(Qt::IgnoreAction);
        event->accept();
        return;
    }
    QTextEdit::dropEvent(event);
}

QString RichTextBox::linkAt(const QPoint& position) const
{
    const QString anchor = anchorAt(position);
    if (!anchor.isEmpty())
        return anchor;
    const QPoint inDocument = position + QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
    const int hit = document()->documentLayout()->hitTest(inDocument, Qt::ExactHit);
    const QTextBlock block = document()->findBlock(hit);
    return hit < 0 ? QString() : addressAround(block.text(), hit - block.position());
}

void RichTextBox::mousePressEvent(QMouseEvent* event)
{
    const bool opens = isReadOnly() || event->modifiers().testFlag(Qt::ControlModifier);
    m_pressedLink = opens && event->button() == Qt::LeftButton ? linkAt(event->position().toPoint()) : QString();
    QTextEdit::mousePressEvent(event);
}

void RichTextBox::mouseReleaseEvent(QMouseEvent* event)
{
    QTextEdit::mouseReleaseEvent(event);
    const QString pressed = std::exchange(m_pressedLink, {});
    if (!pressed.isEmpty() && !textCursor().hasSelection() && linkAt(event->position().toPoint()) == pressed)
        emit linkActivated(pressed);
}

void RichTextBox::mouseMoveEvent(QMouseEvent* event)
{
    QTextEdit::mouseMoveEvent(event);
    const bool opens = isReadOnly() || event->modifiers().testFlag(Qt::ControlModifier);
    const bool isOverLink = opens && event->buttons() == Qt::NoButton && !linkAt(event->position().toPoint()).isEmpty();
    viewport()->setCursor(isOverLink ? Qt::PointingHandCursor : Qt::IBeamCursor);
}

void RichTextBox::buildMenu()
{
    m_menu = new QMenu(this);
    const auto add = [this](const QString& text, QKeySequence::StandardKey key, auto&& action) {
        QAction* item = m_menu->addAction(text);
        item->setShortcut(key);
        item->setShortcutContext(Qt::WidgetShortcut); // shown only; the box itself listens to the key
        connect(item, &QAction::triggered, this, action);
        return item;
    };
    m_cut = add(u"Cut"_s, QKeySequence::Cut, [this] { run(RichTextCommand::Cut); });
    m_copy = add(u"Copy"_s, QKeySequence::Copy, [this] { run(RichTextCommand::Copy); });
    m_paste = add(u"Paste"_s, QKeySequence::Paste, [this] { run(RichTextCommand::Paste); });
    m_extraEnd = m_menu->addSeparator();
    m_undo = add(u"Undo"_s, QKeySequence::Undo, [this] { undo(); });
    m_redo = add(u"Redo"_s, QKeySequence::Redo, [this] { redo(); });
    m_menu->addSeparator();
    m_selectAll = add(u"Select all"_s, QKeySequence::SelectAll, [this] { selectAll(); });
    connect(m_menu, &QMenu::aboutToShow, this, &RichTextBox::updateMenu);
    connect(this, &QTextEdit::copyAvailable, this, &RichTextBox::updateMenu);
    updateMenu();
}

void RichTextBox::updateMenu()
{
    const bool isSelected = textCursor().hasSelection();
    m_cut->setEnabled(isSelected && !isReadOnly());
    m_copy->setEnabled(isSelected);
    m_paste->setEnabled(canPaste());
    m_undo->setEnabled(!isReadOnly() && document()->isUndoAvailable());
    m_redo->setEnabled(!isReadOnly() && document()->isRedoAvailable());
    m_selectAll->setEnabled(!document()->isEmpty());
}

void RichTextBox::setMenuNames(const MenuNames& names)
{
    m_menu->setObjectName(names.menu);
    m_cut->setObjectName(names.cut);
    m_copy->setObjectName(names.copy);
    m_paste->setObjectName(names.paste);
}

void RichTextBox::addMenuActions(const QList<QAction*>& actions)
{
    m_menu->insertSeparator(m_extraEnd);
    m_menu->insertActions(m_extraEnd, actions);
}

void RichTextBox::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    m_menu->popup(byKey ? viewport()->mapToGlobal(cursorRect().bottomLeft()) : event->globalPos());
    event->accept();
}
