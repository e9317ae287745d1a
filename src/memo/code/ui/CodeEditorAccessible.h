// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "memo/code/ui/ScintillaView.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <memory>
#include <vector>

// The code editor as a screen reader sees it: a multi-line text. Offsets are UTF-16 units. Belongs to Qt, which
// makes one when an assistive program asks and deletes it with the widget.
class CodeEditorAccessible : public QAccessibleWidget,
                             public QAccessibleTextInterface,
                             public QAccessibleEditableTextInterface {
public:
    explicit CodeEditorAccessible(ScintillaView& view);

    static void install(); // makes Qt know of this class; further calls do nothing
    // What assistive programs are to be told. `position` is in bytes, `text` is UTF-8 that came or went there.
    using Events = std::vector<std::unique_ptr<QAccessibleEvent>>;
    static Events changeEvents(ScintillaView& view, std::intptr_t position, const QByteArray& text, bool inserted);
    static Events caretEvents(ScintillaView& view);

    void* interface_cast(QAccessible::InterfaceType type) override;
    QAccessible::State state() const override;
    QString text(QAccessible::Text kind) const override;

    void selection(int index, int* start, int* end) const override;
    int selectionCount() const override;
    void addSelection(int start, int end) override;
    void removeSelection(int index) override;
    void setSelection(int index, int start, int end) override;
    int cursorPosition() const override;
    void setCursorPosition(int position) override;
    QString text(int start, int end) const override;
    int characterCount() const override;
    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int start, int end) override;
    QString attributes(int offset, int* start, int* end) const override;

    void deleteText(int start, int end) override;
    void insertText(int offset, const QString& text) override;
    void replaceText(int start, int end, const QString& text) override;

private:
    ScintillaView& view() const { return m_view; }
    int offsetOf(std::intptr_t position) const;
    std::intptr_t positionOf(int offset) const;

    ScintillaView& m_view;
};
