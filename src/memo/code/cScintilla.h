// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "memo/code/ScintillaMessages.h"
#include "memo/code/modScintilla.h"

class Archive;

// The code editor as cScintilla sees it: a sink for Scintilla's messages. Text is UTF-8; positions are bytes.
class CodeEditor {
public:
    virtual ~CodeEditor() = default;
    // Arguments that the message's rules refuse do nothing: the answer is 0.
    virtual std::intptr_t send(const EditorMessage& message, std::uintptr_t wParam = 0, std::intptr_t lParam = 0) = 0;
    // A message whose last parameter is a text.
    virtual std::intptr_t send(const EditorMessage& message, std::uintptr_t wParam, const QByteArray& text) = 0;
    // A message whose both parameters are texts (properties).
    virtual std::intptr_t send(const EditorMessage& message, const QByteArray& first, const QByteArray& second) = 0;
    virtual QByteArray text() const = 0; // all of it, zero bytes included
    virtual void setText(const QByteArray& text) = 0; // all of it, zero bytes included; clears undo
};

// Flags of a search.
inline constexpr int SCFIND_WHOLEWORD = 2;
inline constexpr int SCFIND_MATCHCASE = 4;

// The code editor's behaviour: drives a CodeEditor by messages, takes its notifications, and dresses the text
// in the archive's languages. Positions and columns are counted from 0 in bytes and columns of the editor,
// lines as stated. Owns nothing; the editor and the archive must outlive it.
class cScintilla {
public:
    // `defaultScriptLanguage` is the one of server pages (lexer 29): 1 JavaScript, 2 VBScript, 3 Python.
    cScintilla(CodeEditor& editor, Archive& archive, const QByteArray& defaultScriptLanguage = QByteArrayLiteral("2"));

    void DoDefaultFolding(std::intptr_t position); // folds or unfolds the line of a margin click
    bool MatchBraces() const { return m_matchBraces; }
    void setMatchBraces(bool on) { m_matchBraces = on; }
    int CharAtPos(std::intptr_t position) const; // a byte of the UTF-8 text, 0 to 255
    std::intptr_t CurLine() const; // the caret's line, counted from 1
    void setCurLine(std::intptr_t line); // moves the caret to a line's start; a wild line to the nearest
    std::intptr_t CurPosition() const;
    void setCurPosition(std::intptr_t position); // a wild position goes to the nearest
    std::intptr_t Column() const;
    std::intptr_t TotalLines() const;
    void SetDisplayFolding(bool on);
    void SetDisplaySelection(bool on);
    void AddBookmark();
    void SetDisplayLinenumbers(bool on);
    int GetLinenumberWidth() const; // pixels
    int GetLinenumberChars() const;
    std::intptr_t GetCurrentFoldinglevel() const; // with Scintilla's flag bits
    std::intptr_t GetCurrentLine() const; // counted from 0
    void Init();
    void SetLexerDefault();
    void SetLexer(qint32 n); // reports an error to the user; the default style is left then
    void LoadStyles(qint32 n); // throws jet::Error

    void setHighlightGuide(bool on) { m_highlightGuide = on; }

    // Notifications of the editor.
    void onUpdateUi();
    void onMarginClick(std::intptr_t position) { DoDefaultFolding(position); }
    void onStyleNeeded();

    // Selects the next occurrence from `start` on and gives its position. -1 and a message when there is none.
    // `flags` are SCFIND_ values.
    std::intptr_t Find(const QString& text, int flags, std::intptr_t start);
    // Replaces what Find found last and gives the position of the replacement's end.
    std::intptr_t ReplaceFound(const QString& replacement);
    void FindNext(const QString& text, int flags); // searches from the caret and shows the bare result

private:
    void setBraceColors();
    void forgetLanguage();
    void sendFolding();
    void setUpLanguage(qint32 n);
    void setUpServerPage(qint32 n);
    void setKeywords(std::uintptr_t set, const QString& words);
    void setMarkupKeywords(const QString& words);
    void highlightBrace(std::intptr_t brace);
    std::intptr_t braceAtCaret() const; // -1 for none

    CodeEditor& m_editor;
    Archive& m_archive;
    QByteArray m_defaultScriptLanguage;
    bool m_matchBraces = true;
    bool m_highlightGuide = true;
    bool m_displayFolding = true;
    bool m_displaySelection = true;
    bool m_displayLinenumbers = true;
    std::intptr_t m_sizedLineCount = 0; // lines when the number margin was last sized
};
