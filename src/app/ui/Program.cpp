// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/Program.h"

#include "app/modSnipVale.h"
#include "app/ui/frmMain.h"
#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Clock.h"
#include "desktop/Desktop.h"
#include "desktop/PreviousInstance.h"
#include "desktop/Questions.h"
#include "desktop/ui/QtClipboard.h"
#include "desktop/ui/QtDesktop.h"
#include "desktop/ui/QtSound.h"
#include "desktop/ui/QtTermination.h"
#include "tasks/ui/TaskPictures.h"
#include "ui/widgets/Icons.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

struct Options {
    QString home;
    QString tour;
};

Options readOptions(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(u"A desktop organiser for programmers"_s);
    parser.addHelpOption();
    parser.addVersionOption();
    const QCommandLineOption home(u"home"_s, u"The program directory: settings, archive, help."_s, u"DIR"_s);
    const QCommandLineOption tour(u"tour"_s, u"Walks through the program and leaves pictures in DIR."_s, u"DIR"_s);
    parser.addOptions({home, tour});
    parser.process(application);
    return {parser.value(home), parser.value(tour)};
}

QtMessageHandler previousHandler = nullptr;

// An offscreen platform complains of each thing that a display could do and it cannot.
void withoutPlatformNoise(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.startsWith("This plugin does not support"_L1) && !text.contains("systemTrayWindowChanged"_L1))
        previousHandler(type, context, text);
}

bool needsNoDisplay(int argc, char** argv)
{
    return std::any_of(argv + 1, argv + argc, [](const char* option) {
        const QByteArrayView word(option);
        return word.startsWith("--tour") || word == "--help" || word == "-h" || word == "--version" || word == "-v";
    });
}

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

int runProgram(int argc, char** argv, TourRunner tour)
{
    if (needsNoDisplay(argc, argv) && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        previousHandler = qInstallMessageHandler(withoutPlatformNoise);
    }
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(u"snipvale"_s);
    QCoreApplication::setApplicationVersion(QStringLiteral(SNIPVALE_VERSION));
    QGuiApplication::setDesktopFileName(u"snipvale"_s);
    setUpIconTheme();
    QApplication::setWindowIcon(trayPicture(TrayPicture::Flash2));

    const Options options = readOptions(application);
    HomeFolders folders =
        homeFolders(options.home, QCoreApplication::applicationDirPath(),
                    QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/snipvale"_s);
    if (!options.tour.isEmpty())
        return tour(options.tour, folders.shipped);

    QtQuestions questions;
    QtFileDialogs files;
    QtShell shell;
    const SystemClock clock;
    QtSound sound;
    QtPrinting printing;
    QtClipboard clipboard;
    const Desktop desktop{questions, files, shell, clock, sound, printing, clipboard};
    if (!trapErrors(questions, u"Main"_s, [&] { prepareHome(folders); }))
        return 1;
    SocketInstance previous(folders.home);
    modSnipVale program(questions, clock, shell);
    program.AppPath = folders.home;
    program.ShippedPath = folders.shipped;
    const std::unique_ptr<frmMain> frame = Main(program, desktop, previous);
    if (!frame)
        return previous.isRunning() ? 0 : 1; // leaving the place to the other one is no failure
    const QtTermination termination([window = frame.get()] { window->endSession(); });
    return QApplication::exec();
}
