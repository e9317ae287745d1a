// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <utility>
#include <vector>

class Archive;

// Predefined styles.
inline constexpr int STYLE_DEFAULT = 32;
inline constexpr int STYLE_LINENUMBER = 33;
inline constexpr int STYLE_BRACELIGHT = 34;
inline constexpr int STYLE_BRACEBAD = 35;

// Lexer numbers with a rule of their own.
inline constexpr qint32 SCLEX_NULL = 1;
inline constexpr qint32 SCLEX_CPP = 3;
inline constexpr qint32 SCLEX_HTML = 4;
inline constexpr qint32 SCLEX_XML = 5;
inline constexpr qint32 SCLEX_XCODE = 13;
inline constexpr qint32 SCLEX_ASP = 29;
inline constexpr qint32 SCLEX_PHP = 30;
inline constexpr qint32 SCLEX_ESCRIPT = 41; // the last number with a fixed name
inline constexpr qint32 SCLEX_PHPSCRIPT = 69;

// What is known of the languages: the number of a language is a lexer number of Scintilla, or k * 1000 plus a
// lexer number for a language that shares its lexer with others (Java and C# are both dressed-up C++).

// How a language is set up in the editor.
enum class LexerKind {
    Unknown, // the default style only
    Plain, // words of a fixed lexer name as set 0
    Cpp, // the same, with preprocessor lines styled word by word
    Html, // the mark-up family with its built-in script words
    Asp, // the same with the user's default script language
    ServerPage, // 101 to 103: one default script language each
    Markup, // words as set 0, and a wider style byte
    OwnRow, // everything from the language's own row of the archive
};

LexerKind lexerKind(qint32 language);

// Scintilla's name of lexers 3 to 41, and the name whose rows 101 to 103 use; "" for every other number.
QString lexerName(qint32 language);

// The number to send with SCI_SETLEXER. Scintilla today lacks some lexers: XCODE goes as C++, server pages as
// HTML, and PHP as HTML, or as PHP alone when `text` (UTF-8) has no "<?" that would start it inside HTML.
qint32 lexerToSend(qint32 language, const QByteArray& text);

// Lexer properties beyond folding: name and value, for a language with this lexer and this `lexerCode`.
std::vector<std::pair<QByteArray, QByteArray>> lexerProperties(qint32 sentLexer, const QString& lexerCode);

// The built-in words of the HTML family: client script, Basic, server pages.
QByteArray scriptKeywords();
QByteArray basicKeywords();
QByteArray serverPageKeywords();

// The archive's words of a lexer, "" when it has no row. Throws jet::Error.
QString keywordsOf(Archive& archive, const QString& lexerCode);
bool updateKeywords(Archive& archive, const QString& lexerCode, const QString& keywords); // false: it has no row

// `lexerCode` of a language, "" when it has no row. Throws jet::Error.
QString lexerCodeOf(Archive& archive, qint32 memoTypeID);
