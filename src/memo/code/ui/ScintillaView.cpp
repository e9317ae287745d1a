// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/code/ui/ScintillaView.h"

#include "memo/code/ScintillaText.h"
#include "memo/code/ui/CodeEditorAccessible.h"

#include <QAccessible>
#include <QKeyEvent>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int numberMargin = 0;
constexpr std::uintptr_t bookmark = 0;
constexpr std::intptr_t bookmarkColor = 0xC07020; // a blue; red is in the low byte
constexpr std::intptr_t foldBoxColor = 0x505050;
constexpr std::intptr_t guideColor = 0xB0B0B0;

void announce(const CodeEditorAccessible::Events& events)
{
    for (const auto& event : events)
        QAccessible::updateAccessibility(event.get());
}

} // namespace

ScintillaView::ScintillaView(QWidget* parent) : QsciScintillaBase(parent)
{
    CodeEditorAccessible::install();
    setAccessibleName(tr("Code"));
    setAccessibleDescription(
        tr("Tab types a tab. Ctrl+Tab goes to the next control, Ctrl+Shift+Tab to the one before."));
    raw(SCI_SETCODEPAGE, SC_CP_UTF8);
    raw(SCI_SETMARGINTYPEN, numberMargin, SC_MARGIN_NUMBER);
    raw(SCI_SETMARGINTYPEN, 2, SC_MARGIN_SYMBOL);
    // The component would show a scroll bar for 2000 pixels of nothing.
    raw(SCI_SETSCROLLWIDTH, 1);
    raw(SCI_SETSCROLLWIDTHTRACKING, 1);
    // Lines that a fold hides come back when they are edited or their fold is torn apart.
    raw(SCI_SETAUTOMATICFOLD, SC_AUTOMATICFOLD_SHOW | SC_AUTOMATICFOLD_CHANGE);
    // The component asks for a font that few systems have.
    send(SCI.STYLESETFONT, STYLE_DEFAULT, "Courier New"_ba);
    send(SCI.STYLECLEARALL);
    // Hollow shapes, as the component draws them, are hard to see.
    raw(SCI_MARKERSETBACK, bookmark, bookmarkColor);
    for (const std::uintptr_t box : {SC_MARKNUM_FOLDER, SC_MARKNUM_FOLDEROPEN}) {
        raw(SCI_MARKERSETFORE, box, foldBoxColor);
        raw(SCI_MARKERSETBACK, box, foldBoxColor);
    }
    connectNotifications();
}

void ScintillaView::connectNotifications()
{
    connect(this, &QsciScintillaBase::SCN_UPDATEUI, this, [this](int what) {
        if (m_handler)
            m_handler->onUpdateUi();
        fitNumberMargin();
        if ((what & SC_UPDATE_SELECTION) != 0 && QAccessible::isActive())
            announce(CodeEditorAccessible::caretEvents(*this));
    });
    connect(this, &QsciScintillaBase::SCN_MARGINCLICK, this, [this](int position) {
        if (m_handler)
            m_handler->onMarginClick(position);
    });
    connect(this, &QsciScintillaBase::SCN_STYLENEEDED, this, [this] {
        if (m_handler)
            m_handler->onStyleNeeded();
    });
    connect(this, &QsciScintillaBase::SCN_MODIFIED, this, [this](int position, int type, const char* text, int length) {
        if ((type & (SC_MOD_INSERTTEXT | SC_MOD_DELETETEXT)) != 0)
            onModified(position, type, QByteArray(text, text ? length : 0));
    });
    connect(this, &QsciScintillaBase::SCN_ZOOM, this, &ScintillaView::fitNumberMargin);
}

std::intptr_t ScintillaView::raw(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) const
{
    return SendScintilla(message, static_cast<unsigned long>(wParam), static_cast<long>(lParam));
}

EditorSize ScintillaView::size(std::intptr_t sent) const
{
    return {raw(SCI_GETLENGTH), raw(SCI_GETLINECOUNT), sent};
}

std::intptr_t ScintillaView::send(const EditorMessage& message, std::uintptr_t wParam, std::intptr_t lParam)
{
    const unsigned number = message.number;
    if (!message.wParam.allows(static_cast<std::intptr_t>(wParam), size()) || !message.lParam.allows(lParam, size()))
        return 0;
    if (number == SCI_CONVERTEOLS && raw(SCI_GETREADONLY) != 0)
        return 0; // it would try for ever
    if (number == SCI_SETMARGINWIDTHN && wParam == numberMargin) {
        m_numberMargin = lParam;
        fitNumberMargin();
        return 0;
    }
    // "On" is -1 by custom, but the component of today wants to know the manner.
    if (number == SCI_SETINDENTATIONGUIDES && static_cast<std::intptr_t>(wParam) < 0)
        return raw(number, SC_IV_LOOKBOTH);
    const std::intptr_t answer = raw(number, wParam, lParam);
    if (number == SCI_STYLECLEARALL)
        raw(SCI_STYLESETFORE, STYLE_INDENTGUIDE, guideColor); // black dots would be louder than the code
    return answer;
}

std::intptr_t ScintillaView::send(const EditorMessage& message, std::uintptr_t wParam, const QByteArray& text)
{
    if (!message.lParam.isText || !message.wParam.allows(static_cast<std::intptr_t>(wParam), size(text.size())))
        return 0;
    // The target outlives a text that became shorter, and would then be used without a look.
    const bool isSearch = message.number == SCI_SEARCHINTARGET;
    const bool wantsTarget = isSearch || message.number == SCI_REPLACETARGET;
    if (wantsTarget && std::max(raw(SCI_GETTARGETSTART), raw(SCI_GETTARGETEND)) > raw(SCI_GETLENGTH))
        return 0;
    if (isSearch && wParam == static_cast<std::uintptr_t>(text.size()))
        return searchInTarget(text);
    return SendScintilla(message.number, wParam, text.constData());
}

// This build of the component knows upper and lower case of ASCII letters only.
std::intptr_t ScintillaView::searchInTarget(const QByteArray& text)
{
    const std::intptr_t flags = raw(SCI_GETSEARCHFLAGS);
    const bool ascii =
        std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    const std::intptr_t start = raw(SCI_GETTARGETSTART);
    const std::intptr_t end = raw(SCI_GETTARGETEND);
    if (ascii || (flags & SCFIND_MATCHCASE) != 0 || start > end)
        return SendScintilla(SCI_SEARCHINTARGET, static_cast<std::uintptr_t>(text.size()), text.constData());
    const auto [first, last] = findInAnyCase(this->text(), start, text, (flags & SCFIND_WHOLEWORD) != 0);
    if (first < 0 || last > end)
        return -1;
    raw(SCI_SETTARGETSTART, static_cast<std::uintptr_t>(first));
    raw(SCI_SETTARGETEND, static_cast<std::uintptr_t>(last));
    return first;
}

std::intptr_t ScintillaView::send(const EditorMessage& message, const QByteArray& first, const QByteArray& second)
{
    const bool takesTexts = message.wParam.isText && message.lParam.isText;
    return takesTexts ? SendScintilla(message.number, first.constData(), second.constData()) : 0;
}

QByteArray ScintillaView::text() const
{
    const std::intptr_t length = raw(SCI_GETLENGTH);
    // The component writes as many bytes as asked for, the last of them a zero that is not part of the text.
    QByteArray buffer(length + 1, '\0');
    SendScintilla(SCI_GETTEXT, static_cast<std::uintptr_t>(buffer.size()), static_cast<void*>(buffer.data()));
    buffer.chop(1);
    return buffer;
}

void ScintillaView::setText(const QByteArray& text)
{
    const Silence silence(*this);
    const std::intptr_t readOnly = raw(SCI_GETREADONLY);
    raw(SCI_SETREADONLY, 0);
    raw(SCI_SETUNDOCOLLECTION, 0);
    raw(SCI_MARKERDELETEALL, static_cast<std::uintptr_t>(-1)); // they would all gather on the first line
    if (text.contains('\0')) {
        raw(SCI_CLEARALL);
        SendScintilla(SCI_APPENDTEXT, static_cast<std::uintptr_t>(text.size()), text.constData());
    } else {
        SendScintilla(SCI_SETTEXT, std::uintptr_t{0}, text.constData());
    }
    raw(SCI_SETUNDOCOLLECTION, 1);
    raw(SCI_EMPTYUNDOBUFFER);
    raw(SCI_SETSAVEPOINT);
    raw(SCI_SETREADONLY, static_cast<std::uintptr_t>(readOnly));
    raw(SCI_SETSCROLLWIDTH, 1); // of the text before
    raw(SCI_GOTOPOS, 0);
}

void ScintillaView::onModified(int position, int type, const QByteArray& text)
{
    if (QAccessible::isActive())
        announce(CodeEditorAccessible::changeEvents(*this, position, text, (type & SC_MOD_INSERTTEXT) != 0));
    if (m_silent == 0)
        emit edited();
}

// The width asked for suits a ten-point font at 96 dpi. A bigger one, by a style, by zooming or by the screen,
// would cut the numbers off.
void ScintillaView::fitNumberMargin()
{
    std::intptr_t width = m_numberMargin;
    if (width > 0) {
        const QByteArray widest(QByteArray::number(raw(SCI_GETLINECOUNT)).size(), '9');
        const std::intptr_t needed = SendScintilla(SCI_TEXTWIDTH, std::uintptr_t{STYLE_LINENUMBER}, widest.constData());
        width = std::max(width, needed + 6); // room at both sides of the digits
    }
    if (raw(SCI_GETMARGINWIDTHN, numberMargin) != width)
        raw(SCI_SETMARGINWIDTHN, numberMargin, width);
}

void ScintillaView::keyPressEvent(QKeyEvent* event)
{
    const bool tab = event->key() == Qt::Key_Tab || event->key() == Qt::Key_Backtab;
    if (tab && (event->modifiers() & Qt::ControlModifier) != 0) {
        const bool back = event->key() == Qt::Key_Backtab || (event->modifiers() & Qt::ShiftModifier) != 0;
        QWidget::focusNextPrevChild(!back); // NOLINT(bugprone-parent-virtual-call): the component's own stays
        event->accept();
        return;
    }
    // The line feed key of scanners and typing robots; the component knows Return and Enter only.
    if (event->text() == u"\n"_s) {
        raw(SCI_NEWLINE);
        event->accept();
        return;
    }
    QsciScintillaBase::keyPressEvent(event);
}

QRect ScintillaView::rectAt(std::intptr_t position) const
{
    const std::intptr_t at = std::clamp<std::intptr_t>(position, 0, raw(SCI_GETLENGTH));
    const std::intptr_t next = raw(SCI_POSITIONAFTER, static_cast<std::uintptr_t>(at));
    const QPoint corner(static_cast<int>(raw(SCI_POINTXFROMPOSITION, 0, at)),
                        static_cast<int>(raw(SCI_POINTYFROMPOSITION, 0, at)));
    const bool sameLine = raw(SCI_POINTYFROMPOSITION, 0, next) == corner.y();
    const auto right = static_cast<int>(raw(SCI_POINTXFROMPOSITION, 0, next));
    const std::intptr_t line = raw(SCI_LINEFROMPOSITION, static_cast<std::uintptr_t>(at));
    const auto height = static_cast<int>(raw(SCI_TEXTHEIGHT, static_cast<std::uintptr_t>(line)));
    return {corner, QSize(sameLine && right > corner.x() ? right - corner.x() : 1, height)};
}

std::intptr_t ScintillaView::positionAt(QPoint point) const
{
    return raw(SCI_POSITIONFROMPOINT, static_cast<std::uintptr_t>(point.x()), point.y());
}

void ScintillaView::showRange(std::intptr_t first, std::intptr_t last)
{
    const std::intptr_t length = raw(SCI_GETLENGTH);
    raw(SCI_SCROLLRANGE, static_cast<std::uintptr_t>(std::clamp<std::intptr_t>(last, 0, length)),
        std::clamp<std::intptr_t>(first, 0, length));
}

QString ScintillaView::fontNameOf(int style) const
{
    const auto wanted = static_cast<std::uintptr_t>(style & 0xFF);
    QByteArray name(raw(SCI_STYLEGETFONT, wanted) + 1, '\0');
    SendScintilla(SCI_STYLEGETFONT, wanted, static_cast<void*>(name.data()));
    name.chop(1);
    return QString::fromUtf8(name);
}
