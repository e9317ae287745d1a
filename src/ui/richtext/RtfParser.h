// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/richtext/Rtf.h"
#include "ui/richtext/RtfBuilder.h"
#include "ui/richtext/RtfState.h"

#include <QByteArray>
#include <QList>
#include <string_view>

namespace rtf {

// One pass over a file. The words and what they do are in RtfWords.cpp.
class Parser {
public:
    enum class Input { CodePage, Utf8 }; // what a byte above ASCII belongs to
    Parser(const QByteArray& bytes, Input input, QTextDocument& document);
    ReadInfo run();

    using Handler = void (Parser::*)(const Control&);
    struct Word {
        std::string_view name;
        Handler handler;
        int arg;
        Dest dest; // where the word has this meaning
    };

private:
    static const Word words[];
    static const Word* findWord(std::string_view name, Dest dest);
    bool atEnd() const { return m_at >= m_end; }
    bool skipping() const { return m_state.dest == Dest::Skip; }
    void openGroup();
    void closeGroup();
    void readControl();
    void readWord();
    bool readNumber(int& value);
    void readSymbol(char symbol);
    void readHex();
    void readPlain(char c);
    void readUtf8(char lead);
    void doWord(std::string_view name, Control control);
    bool usedUpByFallback(const Word* word);
    int codePage() const;
    void flushBytes();
    void put(QChar c);
    void endInstruction();

    void open(const Control& c);
    void skip(const Control& c);
    void passThrough(const Control& c);
    void openInstruction(const Control& c);
    void picture(const Control& c);
    void object(const Control& c);
    void numberText(const Control& c);
    void unicode(const Control& c);
    void fallbackCount(const Control& c);
    void symbol(const Control& c);
    void fontNumber(const Control& c);
    void fontValue(const Control& c);
    void colorPart(const Control& c);
    void listValue(const Control& c);
    void overrideValue(const Control& c);
    void oldListKind(const Control& c);
    void documentCodePage(const Control& c);
    void defaultFont(const Control& c);
    void endParagraph(const Control& c);
    void resetParagraph(const Control& c);
    void tableRow(const Control& c);
    void rowEnd(const Control& c);
    void paraValue(const Control& c);
    void paraFlag(const Control& c);
    void align(const Control& c);
    void resetChars(const Control& c);
    void charValue(const Control& c);
    void charFlag(const Control& c);
    void endUnderline(const Control& c);
    void script(const Control& c);

    const char* m_at;
    const char* m_end;
    Input m_input;
    Tables m_tables;
    Builder m_builder;
    ReadInfo m_info;
    GroupState m_state;
    QList<GroupState> m_outer;
    ParaFormat m_lastPara; // in force when the outermost group closed
    CharFormat m_lastChars;
    int m_depth = 0;
    int m_skipped = 0; // fallback characters still to leave out
    int m_codePage = 1252;
    int m_font = 0, m_override = 0; // being defined
    QList<int> m_levels;
    QByteArray m_bytes; // not yet decoded
    QColor m_color;
    QString m_instruction;
    int m_linkDepth = 0; // of the field group whose link is in force; 0 is none
    bool m_inTable = false;
};

} // namespace rtf
