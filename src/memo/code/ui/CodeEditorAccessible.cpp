// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/code/ui/CodeEditorAccessible.h"

#include "memo/code/ScintillaText.h"
#include "ui/widgets/Colors.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QAccessibleInterface* makeAccessible(const QString& className, QObject* object)
{
    auto* const view = className == u"ScintillaView" ? qobject_cast<ScintillaView*>(object) : nullptr;
    return view ? new CodeEditorAccessible(*view) : nullptr;
}

int offsetIn(const ScintillaView& view, std::intptr_t position)
{
    return static_cast<int>(utf16Offset(view.text(), position));
}

// Selected bytes.
std::pair<std::intptr_t, std::intptr_t> selectionOf(ScintillaView& view)
{
    return {view.send(SCI.GETSELECTIONSTART), view.send(SCI.GETSELECTIONEND)};
}

QString colorText(long bgr)
{
    const QColor color = colorOfNumber(static_cast<std::uint32_t>(bgr));
    return u"rgb(%1,%2,%3)"_s.arg(color.red()).arg(color.green()).arg(color.blue());
}

} // namespace

CodeEditorAccessible::CodeEditorAccessible(ScintillaView& view)
    : QAccessibleWidget(&view, QAccessible::EditableText), m_view(view)
{
}

void CodeEditorAccessible::install()
{
    // Behind the component's own factory, which the component installs first; the last one is asked first.
    // Qt takes a factory that it knows already for done.
    QAccessible::installFactory(makeAccessible);
}

CodeEditorAccessible::Events CodeEditorAccessible::changeEvents(ScintillaView& view, std::intptr_t position,
                                                                const QByteArray& text, bool inserted)
{
    const int offset = offsetIn(view, position); // nothing before the change has moved
    Events events;
    if (inserted)
        events.push_back(std::make_unique<QAccessibleTextInsertEvent>(&view, offset, textOf(text)));
    else
        events.push_back(std::make_unique<QAccessibleTextRemoveEvent>(&view, offset, textOf(text)));
    return events;
}

CodeEditorAccessible::Events CodeEditorAccessible::caretEvents(ScintillaView& view)
{
    const int caret = offsetIn(view, view.send(SCI.GETCURRENTPOS));
    Events events;
    events.push_back(std::make_unique<QAccessibleTextCursorEvent>(&view, caret));
    const auto [first, last] = selectionOf(view);
    if (first != last) {
        auto selected =
            std::make_unique<QAccessibleTextSelectionEvent>(&view, offsetIn(view, first), offsetIn(view, last));
        selected->setCursorPosition(caret);
        events.push_back(std::move(selected));
    }
    return events;
}

void* CodeEditorAccessible::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TextInterface)
        return static_cast<QAccessibleTextInterface*>(this);
    if (type == QAccessible::EditableTextInterface)
        return static_cast<QAccessibleEditableTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

QAccessible::State CodeEditorAccessible::state() const
{
    QAccessible::State state = QAccessibleWidget::state();
    state.multiLine = true;
    state.selectableText = true;
    state.readOnly = m_view.send(SCI.GETREADONLY) != 0;
    state.editable = !state.readOnly;
    return state;
}

QString CodeEditorAccessible::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Value ? textOf(m_view.text()) : QAccessibleWidget::text(kind);
}

int CodeEditorAccessible::offsetOf(std::intptr_t position) const
{
    return offsetIn(m_view, position);
}

std::intptr_t CodeEditorAccessible::positionOf(int offset) const
{
    return bytePosition(m_view.text(), std::max(offset, 0));
}

void CodeEditorAccessible::selection(int index, int* start, int* end) const
{
    const auto [first, last] = selectionOf(m_view);
    const bool some = index == 0 && first != last;
    *start = some ? offsetOf(first) : 0;
    *end = some ? offsetOf(last) : 0;
}

int CodeEditorAccessible::selectionCount() const
{
    const auto [first, last] = selectionOf(m_view);
    return first == last ? 0 : 1;
}

void CodeEditorAccessible::addSelection(int start, int end)
{
    setSelection(0, start, end);
}

void CodeEditorAccessible::removeSelection(int index)
{
    if (index == 0)
        setCursorPosition(cursorPosition());
}

void CodeEditorAccessible::setSelection(int index, int start, int end)
{
    if (index == 0)
        m_view.send(SCI.SETSEL, static_cast<std::uintptr_t>(positionOf(start)), positionOf(end));
}

int CodeEditorAccessible::cursorPosition() const
{
    return offsetOf(m_view.send(SCI.GETCURRENTPOS));
}

void CodeEditorAccessible::setCursorPosition(int position)
{
    const std::intptr_t at = positionOf(position);
    m_view.send(SCI.SETSEL, static_cast<std::uintptr_t>(at), at);
}

QString CodeEditorAccessible::text(int start, int end) const
{
    const QString all = textOf(m_view.text());
    const qsizetype last = end < 0 ? all.size() : std::min<qsizetype>(end, all.size());
    const qsizetype first = std::clamp<qsizetype>(start, 0, last);
    return all.sliced(first, last - first);
}

int CodeEditorAccessible::characterCount() const
{
    return static_cast<int>(textOf(m_view.text()).size());
}

QRect CodeEditorAccessible::characterRect(int offset) const
{
    const QRect inViewport = m_view.rectAt(positionOf(offset));
    return {m_view.viewport()->mapToGlobal(inViewport.topLeft()), inViewport.size()};
}

int CodeEditorAccessible::offsetAtPoint(const QPoint& point) const
{
    return offsetOf(m_view.positionAt(m_view.viewport()->mapFromGlobal(point)));
}

void CodeEditorAccessible::scrollToSubstring(int start, int end)
{
    m_view.showRange(positionOf(start), positionOf(end));
}

// The run of equal style around a character, in the words of IAccessible2's text attributes.
QString CodeEditorAccessible::attributes(int offset, int* start, int* end) const
{
    const QByteArray utf8 = m_view.text();
    const auto styleAt = [this](qsizetype at) { return m_view.send(SCI.GETSTYLEAT, static_cast<std::uintptr_t>(at)); };
    qsizetype first = bytePosition(utf8, std::max(offset, 0));
    qsizetype last = first;
    const std::intptr_t style = styleAt(first);
    while (first > 0 && styleAt(first - 1) == style)
        --first;
    while (last < utf8.size() && styleAt(last) == style)
        ++last;
    *start = static_cast<int>(utf16Offset(utf8, first));
    *end = static_cast<int>(utf16Offset(utf8, last));
    const auto of = [this, style](unsigned message) {
        return m_view.SendScintilla(message, static_cast<unsigned long>(style & 0xFF));
    };
    return u"font-family:\"%1\";font-size:%2pt;font-weight:%3;font-style:%4;color:%5;background-color:%6;"_s
        .arg(m_view.fontNameOf(static_cast<int>(style)))
        .arg(of(QsciScintillaBase::SCI_STYLEGETSIZE))
        .arg(of(QsciScintillaBase::SCI_STYLEGETBOLD) != 0 ? u"bold"_s : u"normal"_s,
             of(QsciScintillaBase::SCI_STYLEGETITALIC) != 0 ? u"italic"_s : u"normal"_s,
             colorText(of(QsciScintillaBase::SCI_STYLEGETFORE)), colorText(of(QsciScintillaBase::SCI_STYLEGETBACK)));
}

void CodeEditorAccessible::deleteText(int start, int end)
{
    replaceText(start, end, QString());
}

void CodeEditorAccessible::insertText(int offset, const QString& text)
{
    replaceText(offset, offset, text);
}

void CodeEditorAccessible::replaceText(int start, int end, const QString& text)
{
    const auto [first, last] = std::minmax({positionOf(start), positionOf(end)});
    const QByteArray utf8 = text.toUtf8();
    m_view.send(SCI.SETTARGETSTART, static_cast<std::uintptr_t>(first));
    m_view.send(SCI.SETTARGETEND, static_cast<std::uintptr_t>(last));
    m_view.send(SCI.REPLACETARGET, static_cast<std::uintptr_t>(utf8.size()), utf8);
}
