// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>

// Chooses the variant of the icons that suits the palette. At start, and when the palette changes.
void setUpIconTheme();

// The icon of that freedesktop name, loaded when it is first painted: from those built into the program
// (data/icons/icons.txt), else from the theme.
QIcon themedIcon(const QString& name);

// A filled circle with a rim, for what no theme has a name for (levels of urgency).
QIcon dotIcon(const QColor& color);
