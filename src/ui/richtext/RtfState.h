// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/richtext/Rtf.h"

#include <QHash>
#include <QList>

// What the reader keeps in mind: formats as RTF counts them (twips of 1/1440 inch, half points, table numbers).
namespace rtf {

enum class Align { Left, Center, Right, Justify };

struct ParaFormat {
    Align align = Align::Left;
    int left = 0, first = 0, right = 0, before = 0, after = 0; // twips
    int lineSpacing = 0; // twips, or 240ths of a line when `multiple`
    int listNumber = 0; // of the override table; 0 is no list
    int listLevel = 0;
    int background = 0; // of the colour table
    int oldNumbering = NoNumber; // of a list in the way of RTF 1.5 (\pn)
    bool multiple = false;
    bool rightToLeft = false;
    bool inTable = false;
};

struct CharFormat {
    int font = -1; // of the font table; -1 is the document's default
    int halfPoints = 24;
    int color = 0, background = 0; // of the colour table; 0 is automatic
    int script = 0; // above 0 superscript, below 0 subscript
    bool bold = false, italic = false, underline = false, strike = false;
    bool hidden = false, allCaps = false, smallCaps = false;
    bool operator==(const CharFormat&) const = default;
};

// Where the text of a group goes.
enum class Dest : quint8 {
    Any,
    Body,
    Skip,
    FontTable,
    ColorTable,
    ListTable,
    ListOverrides,
    FieldInstruction,
    OldList
};

// All that a closing brace puts back.
struct GroupState {
    Dest dest = Dest::Body;
    CharFormat chars;
    ParaFormat para;
    int fallback = 1; // characters that stand for a \u in readers without Unicode (\uc)
    bool starred = false; // \* was read: an unknown word makes the group one to skip
    bool numberText = false; // holds a list number as text; the document makes its own
    bool instruction = false; // opened by \fldinst
};

// A control word as its handler sees it.
struct Control {
    int arg; // from the word table
    int value; // as written, 0 without one
    bool hasValue;
    bool on() const { return !hasValue || value != 0; }
};

struct Font {
    QString name;
    int charset = -1;
    int codePage = 0; // 0: by the charset
};

// The tables at the head of a file.
struct Tables {
    QHash<int, Font> fonts;
    int defaultFont = 0;
    QList<QColor> colors; // an invalid one is automatic
    QHash<int, QList<int>> lists; // list id: Numbering of each level
    QHash<int, int> listOverrides; // list number: list id

    const Font* font(int number) const
    {
        const auto it = fonts.constFind(number < 0 ? defaultFont : number);
        return it == fonts.cend() ? nullptr : &*it;
    }
    QColor color(int number) const { return number > 0 ? colors.value(number) : QColor(); }
};

} // namespace rtf
