// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <cstdint>

// The code editor as cScintilla sees it: a sink for Scintilla's messages. Message numbers and meanings are
// those of Scintilla's public interface (scintilla.org/ScintillaDoc.html). Text is UTF-8; positions are bytes.
class CodeEditor {
public:
    virtual ~CodeEditor() = default;
    // Arguments that the component would not survive (a position past the end, say) are refused: the answer is 0.
    virtual std::intptr_t send(unsigned message, std::uintptr_t wParam = 0, std::intptr_t lParam = 0) = 0;
    // A message whose last parameter is a text.
    virtual std::intptr_t send(unsigned message, std::uintptr_t wParam, const QByteArray& text) = 0;
    // A message whose both parameters are texts (properties).
    virtual std::intptr_t send(unsigned message, const QByteArray& first, const QByteArray& second) = 0;
    virtual QByteArray text() const = 0; // all of it, zero bytes included
    virtual void setText(const QByteArray& text) = 0; // all of it, zero bytes included; clears undo
};
