// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// One start up to the first painted frame, then the process ends. "start_once bare" shows a window with nothing in
// it, "start_once empty" one with the parts of any such program (menus, a tool bar, a small tree, an editor) and no
// data, "start_once HOME" the program on that home folder. All three link the same libraries.
#include "app/modSnipVale.h"
#include "app/ui/Program.h"
#include "app/ui/frmMain.h"
#include "desktop/Clock.h"
#include "desktop/Desktop.h"
#include "desktop/PreviousInstance.h"
#include "desktop/ui/QtClipboard.h"
#include "desktop/ui/QtDesktop.h"
#include "desktop/ui/QtSound.h"
#include "memo/code/ui/ScintillaView.h"
#include "ui/widgets/Icons.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QSplitter>
#include <QStatusBar>
#include <QTextEdit>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>
#include <cstdlib>

using namespace Qt::StringLiterals;

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

void furnish(QMainWindow& window)
{
    auto* bar = window.addToolBar(u"Bar"_s);
    for (int i = 0; i < 10; ++i) {
        QMenu* menu = window.menuBar()->addMenu(u"&Menu %1"_s.arg(i));
        for (int item = 0; item < 6; ++item)
            menu->addAction(u"Item %1"_s.arg(item));
        bar->addAction(u"Button %1"_s.arg(i));
    }
    auto* splitter = new QSplitter(&window);
    auto* tree = new QTreeWidget(splitter);
    for (int i = 0; i < 200; ++i)
        new QTreeWidgetItem(tree, {u"Item %1"_s.arg(i)});
    new QTextEdit(splitter);
    new ScintillaView(splitter);
    window.setCentralWidget(splitter);
    window.statusBar()->showMessage(u"Ready"_s);
}

} // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    if (argc < 2)
        return 1;
    const QByteArrayView what = argv[1];
    if (what == "bare" || what == "empty") {
        QMainWindow window;
        window.resize(1120, 720);
        if (what == "empty")
            furnish(window);
        endAfterFirstPaint(window);
        return QApplication::exec();
    }
    setUpIconTheme();
    QtQuestions questions;
    QtFileDialogs files;
    QtShell shell;
    const SystemClock clock;
    QtSound sound;
    QtPrinting printing;
    QtClipboard clipboard;
    const Desktop desktop{questions, files, shell, clock, sound, printing, clipboard};
    OnlyInstance previous;
    modSnipVale program(questions, clock, shell);
    program.AppPath = QString::fromLocal8Bit(argv[1]);
    const std::unique_ptr<frmMain> frame = Main(program, desktop, previous);
    if (!frame)
        return 1;
    endAfterFirstPaint(*frame);
    return QApplication::exec();
}
