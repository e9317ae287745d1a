// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/Startup.h"

#include "app/modSnipVale.h"
#include "app/ui/frmMain.h"
#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/PreviousInstance.h"
#include "desktop/Questions.h"

using namespace Qt::StringLiterals;

namespace {

bool mayStart(const Desktop& desktop, PreviousInstance& previous)
{
    if (!previous.isRunning())
        return true;
    if (desktop.questions.ask(u"SnipVale is already running.\r\nWould you run a new instance?"_s,
                              MessageStyle::YesNoDefaultNo, u"SnipVale: Open new instance?"_s) == Answer::Yes)
        return true;
    previous.bringToFront();
    return false;
}

} // namespace

std::unique_ptr<frmMain> Main(modSnipVale& program, const Desktop& desktop, PreviousInstance& previous)
{
    std::unique_ptr<frmMain> frame;
    trapErrors(desktop.questions, u"Main"_s, [&] {
        if (!mayStart(desktop, previous))
            return;
        if (!program.ReadSettings()) {
            if (!program.programEnds)
                desktop.questions.ask(u"Error in Sub Main reading settings"_s, MessageStyle::Critical);
            return;
        }
        UpdateArchiveVersion(program.archive);
        frame = std::make_unique<frmMain>(program, desktop);
        frame->setWindowTitle(program.captionAtStart());
        frame->show();
        frame->loadTray();
        previous.onBringToFront = [window = frame.get()] { window->bringToFront(); };
    });
    return frame;
}
