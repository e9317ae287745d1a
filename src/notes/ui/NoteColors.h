// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QIcon>
#include <QPalette>
#include <QStringList>

// The colours of notes go by their names in the archive. Any other word means yellow.

const QStringList& noteColorNames(); // in the order of the menu

struct NoteColors {
    QColor paper;
    QColor ink; // readable on the paper
};

// As the palette has it: yellow is its tool tips, white its highlighted edges.
NoteColors noteColors(const QString& name, const QPalette& palette);

// The palette of a note's paper, made from that of the application, and that of the bar below it. The bar has the
// colour's own tint: paper is grey where tool tips are.
QPalette paperPalette(const QString& name, const QPalette& application);
QPalette barPalette(const QString& name);

// A sheet in that colour, the same under every palette.
QIcon noteIcon(const QString& name);
