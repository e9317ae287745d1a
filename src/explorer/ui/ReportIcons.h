// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>

// The picture behind a key of the lists and the due-date tree: "memo", "bookmark", "todo", "alarm", and the keys of
// tasks/ui/TaskPictures.h. Null for any other key.
QIcon reportIcon(const QString& key);
