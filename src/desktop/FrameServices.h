// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QString>

// What a view may ask of the frame that hosts it. Commands, menus and views go by their names; an unknown
// name does nothing.
class FrameServices {
public:
    virtual ~FrameServices() = default;
    virtual void enableCommand(const QString& name, bool enabled) = 0;
    virtual void checkCommand(const QString& name, bool checked) = 0;
    virtual void runCommand(const QString& name) = 0; // as if the user had chosen it; nothing when it is disabled
    virtual void setStatus(const QString& text) = 0; // the status bar's panel "status"
    virtual void popupMenu(const QString& name, const QPoint& screenPosition) = 0;
    virtual void showView(const QString& name) = 0; // brings a view of the frame to the front
};
