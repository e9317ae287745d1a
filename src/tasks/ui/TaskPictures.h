// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>

// The pictures of the icon in the notification area: white on a coloured tile, so that light and dark areas show them
// alike. Their shapes differ as well as their colours. Drawn on the pixel grid of any size from 16 pixels on.
enum class TrayPicture {
    Flash1, // a bell on orange: a reminder waits for an answer
    Flash2, // a list on blue: nothing to tell; also the picture at rest
};

QIcon trayPicture(TrayPicture picture);

// The picture behind a key of modToDo: the priorities "lowest" to "urgent", the states "created" to "cancelled". Null
// for any other key.
QIcon toDoIcon(const QString& key);
