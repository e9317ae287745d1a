// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ReportIcons.h"

#include "tasks/ui/TaskPictures.h"
#include "ui/widgets/Icons.h"

#include <QHash>

using namespace Qt::StringLiterals;

QIcon reportIcon(const QString& key)
{
    static const QHash<QString, QIcon> icons = {
        {u"memo"_s, themedIcon(u"format-text-code"_s)},
        {u"bookmark"_s, themedIcon(u"bookmarks"_s)},
        {u"todo"_s, themedIcon(u"view-task"_s)},
        {u"alarm"_s, themedIcon(u"appointment-reminder"_s)},
    };
    const auto found = icons.find(key);
    return found == icons.end() ? toDoIcon(key) : *found;
}
