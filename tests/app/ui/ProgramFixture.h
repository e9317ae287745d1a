// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/UiSupport.h"

#include "app/modSnipVale.h"
#include "app/ui/Program.h"
#include "app/ui/frmMain.h"
#include "desktop/PreviousInstance.h"

#include <QtWidgets>

class FakeInstance : public PreviousInstance {
public:
    bool isRunning() const override { return running; }
    void bringToFront() override { broughtToFront = true; }
    bool running = false;
    bool broughtToFront = false;
};

// A started program with a home of its own. start() does what a start of the process does.
struct ProgramFixture : UiFixture {
    ProgramFixture()
    {
        setIni("[setup]\ndbfullpath=scratch.SVA\n");
        start();
    }
    void setIni(const QByteArray& text) { writeFile(scratch.path(QStringLiteral("snipvale.ini")), text); }
    void start()
    {
        window.reset();
        program = std::make_unique<modSnipVale>(questions, clock, shell);
        program->AppPath = scratch.folder();
        window = Main(*program, desktop, previous);
    }
    void run(const char* command) { window->ActiveBar21_Click(QString::fromLatin1(command)); }
    QAction& action(const char* name) { return get<QAction>(name); }
    template <typename Object>
    Object& get(const char* name)
    {
        auto* object = window->findChild<Object*>(QString::fromLatin1(name));
        if (!object)
            qFatal("there is no %s", name);
        return *object;
    }
    void addReminder() // that is due
    {
        ArchiveUnit(archive).Execute(QStringLiteral("INSERT INTO tab_todo (categoryID, name, alarmOn, alarmDate) "
                                                    "VALUES (3, 'Call', 1, '2026-3-4 9:4:59')"));
    }
    static QWidget* popup() // of a reminder; null for none
    {
        for (QWidget* each : QApplication::topLevelWidgets())
            if (each->objectName() == QLatin1String("frmAlarm") && each->isVisible())
                return each;
        return nullptr;
    }
    void tick() { QMetaObject::invokeMethod(&get<QTimer>("TimerTask"), "timeout"); }

    FakeInstance previous;
    std::unique_ptr<modSnipVale> program;
    std::unique_ptr<frmMain> window;
};
