// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>

// Chooses the icon theme: the desktop's own, else Breeze in the variant that suits the palette. Once, at start
// and when the palette changes.
void setUpIconTheme();

// The theme's icon of that freedesktop name, looked up when it is first painted.
QIcon themedIcon(const QString& name);

// A filled circle with a rim, for what no theme has a name for (levels of urgency).
QIcon dotIcon(const QColor& color);
