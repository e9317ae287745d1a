// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// One start up to the first painted frame, then the process ends: "start_once empty" shows an empty window,
// "start_once HOME" the program on that home folder.
#include "app/Startup.h"
#include "app/frmMain.h"
#include "app/modSnipVale.h"
#include "desktop/Clock.h"
#include "desktop/Desktop.h"
#include "desktop/PreviousInstance.h"
#include "desktop/QtFileDialogs.h"
#include "desktop/QtIcons.h"
#include "desktop/QtQuestions.h"
#include "desktop/QtShell.h"
#include "memo/ScintillaView.h"

#include <QApplication>
#include <QMainWindow>
#include <QTimer>
#include <cstdlib>

namespace {

class OnlyInstance : public PreviousInstance {
public:
    bool isRunning() const override { return false; }
    void bringToFront() override { }
};

// Ends the process when everything that the first show asked for has been painted.
void endAfterFirstPaint(QWidget& window)
{
    window.show();
    QApplication::processEvents();
    QTimer::singleShot(0, &window, [] { std::_Exit(0); });
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc < 2)
        return 1;
    if (QByteArrayView(argv[1]) == "empty") {
        QMainWindow window;
        window.resize(1120, 720);
        if (argc > 5) // never: the empty window links the same libraries
            window.setCentralWidget(new ScintillaView);
        endAfterFirstPaint(window);
        return QApplication::exec();
    }
    setUpIconTheme();
    QtQuestions questions;
    QtFileDialogs files;
    QtShell shell;
    const SystemClock clock;
    const Desktop desktop{questions, files, shell, clock};
    OnlyInstance previous;
    modSnipVale program(questions, clock, shell);
    program.AppPath = QString::fromLocal8Bit(argv[1]);
    const std::unique_ptr<frmMain> frame = Main(program, desktop, previous);
    if (!frame)
        return 1;
    endAfterFirstPaint(*frame);
    return QApplication::exec();
}
