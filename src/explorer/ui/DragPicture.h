// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QPixmap>
#include <QString>

class QWidget;

// What hangs on the pointer while `count` things are dragged: icon and name of the first one and, for more than
// one, a badge with the count. Font, colours and pixel ratio are those of `widget`.
QPixmap dragPicture(const QWidget& widget, const QIcon& icon, const QString& name, int count);

// The pointer over a place that will refuse the drop; its hot spot is the middle.
QPixmap refusedPointer(const QWidget& widget);
