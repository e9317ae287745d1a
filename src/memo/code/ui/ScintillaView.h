// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "memo/code/cScintilla.h"

#include <Qsci/qsciscintillabase.h>

// The widget of the code editor: Scintilla behind the messages of CodeEditor. Text is UTF-8, whatever its line
// ends and zero bytes. Tab types a tab; Ctrl+Tab and Ctrl+Shift+Tab move the keyboard on to the next control.
class ScintillaView final : public QsciScintillaBase, public CodeEditor {
    Q_OBJECT
public:
    explicit ScintillaView(QWidget* parent = nullptr);

    // Who hears of clicks and moves. Not owned: it must outlive the view, or be taken back with nullptr.
    void setHandler(cScintilla* handler) { m_handler = handler; }

    std::intptr_t send(const EditorMessage& message, std::uintptr_t wParam = 0, std::intptr_t lParam = 0) override;
    std::intptr_t send(const EditorMessage& message, std::uintptr_t wParam, const QByteArray& text) override;
    std::intptr_t send(const EditorMessage& message, const QByteArray& first, const QByteArray& second) override;
    QByteArray text() const override;
    void setText(const QByteArray& text) override; // caret and view go to the top, bookmarks go; not edited()

    // While one lives, changes of the text are the program's own: no edited().
    class Silence {
    public:
        explicit Silence(ScintillaView& view) : m_view(view) { ++m_view.m_silent; }
        ~Silence() { --m_view.m_silent; }
        Silence(const Silence&) = delete;
        Silence& operator=(const Silence&) = delete;

    private:
        ScintillaView& m_view;
    };

    // Of a byte position: where its character is drawn, in this widget's viewport. The other way round, the
    // position nearest to a point.
    QRect rectAt(std::intptr_t position) const;
    std::intptr_t positionAt(QPoint point) const;
    void showRange(std::intptr_t first, std::intptr_t last); // byte positions; scrolls, the caret stays
    QString fontNameOf(int style) const;

signals:
    void edited(); // the user, or a command of the user's, inserted or deleted text

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    std::intptr_t raw(unsigned message, std::uintptr_t wParam = 0, std::intptr_t lParam = 0) const;
    EditorSize size(std::intptr_t sent = 0) const;
    std::intptr_t searchInTarget(const QByteArray& text);
    void connectNotifications();
    void onModified(int position, int type, const QByteArray& text);
    void fitNumberMargin();

    cScintilla* m_handler = nullptr;
    int m_silent = 0;
    std::intptr_t m_numberMargin = 0; // pixels asked for, before fitting
};
