// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/FrameServices.h"

#include <utility>

class QWidget;

// A view of the frame: one room's window, with its command in the side bar, its tool bar and the commands that go to
// it. This lives as long as the frame. The window is made when it is first shown, and goes with its archive.
class FrameView {
public:
    // `window` is the frame's, for the dialogs that open before there is a window of the view.
    FrameView(FrameServices& frame, QWidget& window, QString viewName, QString barName)
        : name(std::move(viewName)), bar(std::move(barName)), m_frame(frame), m_frameWindow(window)
    {
    }
    virtual ~FrameView() = default;
    Q_DISABLE_COPY_MOVE(FrameView)

    const QString name; // of the side bar's command
    const QString bar; // the tool bar that is shown with it

    virtual void registerCommands() = 0; // once, at the start: they work before there is a window
    // The window, made if need be; the frame has it from then on. Null when the user was asked and must stay out.
    virtual QWidget* open() = 0;
    virtual bool isOpen() const = 0; // there is a window, and nobody has to be asked before it is shown
    virtual void cameToFront() = 0; // newly made, or from behind another view
    virtual void wentBehind() = 0;
    virtual void readAgain() = 0; // the archive was repaired: there may be less in it. Nothing without a window.
    virtual void close() = 0; // deletes the window, if there is one

protected:
    // A command that brings this view to the front first; nothing more is done when that was refused.
    void handle(const char* command, const char* routine, std::function<void()> action)
    {
        m_frame.handleCommand(QString::fromLatin1(command), QString::fromLatin1(routine),
                              [this, action = std::move(action)] {
                                  if (m_frame.showView(name))
                                      action();
                              });
    }

    FrameServices& m_frame;
    QWidget& m_frameWindow;
};
