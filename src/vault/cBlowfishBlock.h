// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArrayView>
#include <array>
#include <utility>

// The Blowfish block cipher as published (B. Schneier, "Description of a New Variable-Length Key, 64-bit Block Cipher
// (Blowfish)", 1993): 64-bit blocks as two 32-bit halves, 16 rounds.
class cBlowfishBlock {
public:
    using Block = std::pair<quint32, quint32>; // left and right half

    cBlowfishBlock(); // the standard tables
    ~cBlowfishBlock(); // wipes
    cBlowfishBlock(const cBlowfishBlock&) = delete;
    cBlowfishBlock& operator=(const cBlowfishBlock&) = delete;

    // The key schedule. The bytes are taken cyclically, the first 72 of them count. No bytes give the standard tables.
    void setKey(QByteArrayView key);

    Block encipher(Block block) const;
    Block decipher(Block block) const;

private:
    quint32 round(quint32 half) const;
    void standardTables();

    std::array<quint32, 18> m_p;
    std::array<std::array<quint32, 256>, 4> m_s;
};
