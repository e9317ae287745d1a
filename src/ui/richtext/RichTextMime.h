// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QMimeData>
#include <QTextDocumentFragment>
#include <optional>

// Formatted text on its way through the clipboard or a drag.

// RTF, HTML and plain text, each made when somebody asks for it: a selection is offered far more often than it
// is taken. The caller owns the answer.
QMimeData* mimeOf(const QTextDocumentFragment& fragment, const QFont& standard);

bool holdsText(const QMimeData& source);

// The formatted text of `source`, RTF before HTML, brought to what RTF can keep. Colours that only say "black
// on white" are left out, so that the text can be read on a dark page. None when there is only plain text.
std::optional<QTextDocumentFragment> fragmentOf(const QMimeData& source, const QFont& standard);
