// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/ui/ToDoIcons.h"

#include "ui/widgets/Icons.h"

#include <QColor>
#include <QHash>

using namespace Qt::StringLiterals;

QIcon toDoIcon(const QString& key)
{
    // Dots of growing warmth for the priorities: no theme has pictures for six levels.
    static const QHash<QString, QIcon> icons = {
        {u"lowest"_s, dotIcon(QColor(0xBD, 0xC3, 0xC7))},  {u"low"_s, dotIcon(QColor(0x3D, 0xAE, 0xE9))},
        {u"normal"_s, dotIcon(QColor(0x27, 0xAE, 0x60))},  {u"high"_s, dotIcon(QColor(0xF6, 0x74, 0x00))},
        {u"highest"_s, dotIcon(QColor(0xED, 0x15, 0x15))}, {u"urgent"_s, dotIcon(QColor(0xB0, 0x1E, 0x6E))},
        {u"created"_s, themedIcon(u"document-new"_s)},     {u"inprogress"_s, themedIcon(u"media-playback-start"_s)},
        {u"completed"_s, themedIcon(u"task-complete"_s)},  {u"paused"_s, themedIcon(u"media-playback-pause"_s)},
        {u"cancelled"_s, themedIcon(u"dialog-cancel"_s)},
    };
    return icons.value(key);
}
