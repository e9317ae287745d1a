// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtGlobal>
#include <cstdint>

// Debian builds Scintilla with its assertions on: a position past the end, a bad line or a wild count ends the
// whole program. So a message goes out only when the table behind these functions knows it and its numbers fit.

struct EditorSize {
    std::intptr_t length = 0; // bytes
    std::intptr_t lines = 1;
};

// A message without texts.
bool isSafeMessage(unsigned message, std::uintptr_t wParam, std::intptr_t lParam, EditorSize size);
// A message whose last parameter is a text of `textLength` bytes, a zero byte behind them.
bool isSafeTextMessage(unsigned message, std::uintptr_t wParam, qsizetype textLength, EditorSize size);
// A message of two texts.
bool isSafePairMessage(unsigned message);
