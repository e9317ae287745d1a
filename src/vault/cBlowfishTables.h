// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>

// The first words of the fraction of pi in binary, in order: the 18 words of Blowfish's P-array, then its four S-boxes
// (B. Schneier, "Description of a New Variable-Length Key, 64-bit Block Cipher (Blowfish)", 1993).
inline constexpr int blowfishWordCount = 18 + 4 * 256;
extern const quint32 blowfishWords[blowfishWordCount];
