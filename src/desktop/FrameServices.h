// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QString>
#include <functional>

class QIcon;

// What a view may ask of the frame that hosts it. Commands, menus and views go by their names; an unknown
// name does nothing.
class FrameServices {
public:
    virtual ~FrameServices() = default;
    // From now on the command runs `handler`, whose errors are shown under the name of the routine, and is enabled. One
    // without a handler is never enabled; an empty function takes it away.
    virtual void handleCommand(const QString& name, const QString& routine, std::function<void()> handler) = 0;
    virtual void enableCommand(const QString& name, bool enabled) = 0;
    virtual void checkCommand(const QString& name, bool checked) = 0;
    virtual void setCommandIcon(const QString& name, const QIcon& icon) = 0;
    virtual void runCommand(const QString& name) = 0; // as if the user had chosen it; nothing when it is disabled
    virtual void setStatus(const QString& text) = 0; // the status bar's panel "status"
    virtual void popupMenu(const QString& name, const QPoint& screenPosition) = 0;
    virtual bool showView(const QString& name) = 0; // brings it to the front; false when the user must stay out
};
