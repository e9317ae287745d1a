// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/UiSupport.h"

#include "app/modSnipVale.h"
#include "app/ui/Program.h"
#include "app/ui/frmMain.h"
#include "desktop/PreviousInstance.h"

#include <QAction>
#include <QApplication>
#include <QTimer>
#include <QWidget>

class FakeInstance : public PreviousInstance {
public:
    bool isRunning() const override { return running; }
    void bringToFront() override { broughtToFront = true; }
    bool running = false;
    bool broughtToFront = false;
};

// A program with a home of its own; start() does what a start of the process does.
struct ProgramFixture {
    ProgramFixture() { setIni("[setup]\ndbfullpath=scratch.SVA\n"); }
    void setIni(const QByteArray& text) { writeFile(scratch.path(QStringLiteral("snipvale.ini")), text); }
    void start()
    {
        frame.reset();
        program = std::make_unique<modSnipVale>(questions, clock, shell);
        program->AppPath = scratch.folder();
        frame = Main(*program, desktop, previous);
    }
    void startFresh() // with an archive that is brought up to date first
    {
        questions.expect(QStringLiteral("Ver 3.0 - archive update completed successfully!"));
        start();
    }
    void run(const char* command) { frame->ActiveBar21_Click(QString::fromLatin1(command)); }
    QAction& action(const char* name) { return get<QAction>(name); }
    template <typename Object>
    Object& get(const char* name)
    {
        auto* object = frame->findChild<Object*>(QString::fromLatin1(name));
        if (!object)
            qFatal("there is no %s", name);
        return *object;
    }
    void addReminder() // that is due
    {
        ArchiveUnit unit(program->archive);
        const int category = unit.Open(QStringLiteral("SELECT categoryID FROM tab_category WHERE type = 2")).integer(0);
        unit.Execute(QStringLiteral("INSERT INTO tab_todo (categoryID, name, alarmOn, alarmDate) VALUES (%1, 'Call', "
                                    "1, '2026-3-4 9:4:59')")
                         .arg(category));
    }
    static QWidget* popup() // of a reminder; null for none
    {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == QLatin1String("frmAlarm") && window->isVisible())
                return window;
        return nullptr;
    }
    void tick() { QMetaObject::invokeMethod(&get<QTimer>("TimerTask"), "timeout"); }

    ScratchArchive scratch;
    ScriptedQuestions questions;
    ManualClock clock;
    ScriptedFiles files;
    ScriptedShell shell;
    FakeSound sound;
    ScriptedPrinting printing;
    FakeClipboard clipboard;
    Desktop desktop{questions, files, shell, clock, sound, printing, clipboard};
    FakeInstance previous;
    std::unique_ptr<modSnipVale> program;
    std::unique_ptr<frmMain> frame;
};
