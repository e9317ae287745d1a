// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

// Passwords in memory: for as short as possible, in as few copies as possible, and never in a core dump. What the
// toolkit itself copies (a box's undo list, the clipboard, a message's text) is out of reach.

// A copy in a buffer of its own. A plain copy of a string shares its buffer, which then cannot be wiped.
QString secretCopy(const QString& text);

// Overwrites the characters, unless another string shares the buffer (that one has to be wiped then), and clears.
void wipe(QString& text);
void wipe(QByteArray& bytes);

// Wipes a variable at the end of its scope, however that is left.
template <typename Text>
class WipeAtEnd {
public:
    explicit WipeAtEnd(Text& text) : m_text(text) { }
    ~WipeAtEnd() { wipe(m_text); }
    WipeAtEnd(const WipeAtEnd&) = delete;
    WipeAtEnd& operator=(const WipeAtEnd&) = delete;

private:
    Text& m_text;
};

// While one of these is alive the process leaves no core dump and no other process of the user may read its memory.
// The last one puts back what was before. Not for more than one thread.
class NoCoreDumps {
public:
    NoCoreDumps();
    ~NoCoreDumps();
    NoCoreDumps(const NoCoreDumps&) = delete;
    NoCoreDumps& operator=(const NoCoreDumps&) = delete;
};
