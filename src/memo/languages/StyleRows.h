// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Recordset.h"

#include <QString>
#include <optional>
#include <vector>

class Archive;
class ArchiveUnit;

// The languages and their style rows as the options show and change them. Everything here throws jet::Error.

// One language that the archive enables; the user makes it visible or not.
struct LanguageRow {
    qint32 id = 0;
    QString name;
    QString description;
    QString lexerCode;
    bool isVisible = false;
};

std::vector<LanguageRow> readEnabledLanguages(Archive& archive); // by name
// All of them or, on an error, none. Only `id` and `isVisible` are used.
void saveVisibility(Archive& archive, const std::vector<LanguageRow>& languages);

// One style of a lexer. Colours are 0x00BBGGRR; an archive of another program may hold any number.
struct StyleRow {
    qint32 id = 0;
    qint32 number = 0; // the lexer's
    QString description;
    bool isEnabled = false;
    QString fontName; // "" for the editor's own
    QString fontSize; // points; "" for the editor's own
    std::optional<qint64> foreColor;
    std::optional<qint64> backColor;
    bool isBold = false;
    bool isItalic = false;
    bool isUnderlined = false;
    bool isInvisible = false;
    qint64 letterCase = 0; // 0 mixed, 1 upper, 2 lower
};

// The styles of a language with the columns of tab_style. Must not outlive the unit.
jet::Recordset openStyles(ArchiveUnit& unit, qint32 memoTypeID);

std::vector<StyleRow> readStyles(Archive& archive, qint32 memoTypeID); // by number
std::optional<StyleRow> readStyle(Archive& archive, qint32 styleID); // nothing when its row is gone

// False when the row is gone. A colour that is not set becomes white. `number` and `description` are not written.
bool updateStyle(Archive& archive, const StyleRow& style);
