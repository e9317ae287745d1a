// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>

// The picture behind a key of modToDo: the priorities "lowest" to "urgent", the states "created" to "cancelled". Null
// for any other key.
QIcon toDoIcon(const QString& key);
