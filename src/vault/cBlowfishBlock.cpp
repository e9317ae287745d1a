// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/cBlowfishBlock.h"

#include "vault/cBlowfishTables.h"

#include <algorithm>
#include <cstring>

cBlowfishBlock::cBlowfishBlock()
{
    standardTables();
}

cBlowfishBlock::~cBlowfishBlock()
{
    ::explicit_bzero(m_p.data(), sizeof m_p);
    ::explicit_bzero(m_s.data(), sizeof m_s);
}

void cBlowfishBlock::standardTables()
{
    const quint32* words = blowfishWords;
    std::copy_n(words, m_p.size(), m_p.begin());
    words += m_p.size();
    for (auto& box : m_s) {
        std::copy_n(words, box.size(), box.begin());
        words += box.size();
    }
}

// The sums wrap modulo 2^32.
inline quint32 cBlowfishBlock::round(quint32 half) const
{
    return ((m_s[0][half >> 24] + m_s[1][half >> 16 & 0xFF]) ^ m_s[2][half >> 8 & 0xFF]) + m_s[3][half & 0xFF];
}

cBlowfishBlock::Block cBlowfishBlock::encipher(Block block) const
{
    auto [left, right] = block;
    for (size_t i = 0; i < 16; i += 2) {
        left ^= m_p[i];
        right ^= round(left) ^ m_p[i + 1];
        left ^= round(right);
    }
    return {right ^ m_p[17], left ^ m_p[16]};
}

cBlowfishBlock::Block cBlowfishBlock::decipher(Block block) const
{
    auto [left, right] = block;
    for (size_t i = 16; i > 0; i -= 2) {
        left ^= m_p[i + 1];
        right ^= round(left) ^ m_p[i];
        left ^= round(right);
    }
    return {right ^ m_p[0], left ^ m_p[1]};
}

void cBlowfishBlock::setKey(QByteArrayView key)
{
    standardTables();
    if (key.isEmpty())
        return;
    qsizetype next = 0;
    for (quint32& word : m_p) {
        quint32 four = 0;
        for (int i = 0; i < 4; ++i, next = (next + 1) % key.size())
            four = four << 8 | quint8(key[next]);
        word ^= four;
    }
    Block block{0, 0};
    const auto replace = [&](auto& words) {
        for (size_t i = 0; i < words.size(); i += 2) {
            block = encipher(block);
            words[i] = block.first;
            words[i + 1] = block.second;
        }
    };
    replace(m_p);
    for (auto& box : m_s)
        replace(box);
}
