// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QtTest>
#include <QtWidgets>
#include <csignal>
#include <sys/prctl.h>

// A desktop of its own for a test that needs one, with Xvfb and openbox, and its pointer, moved by xdotool. Places are
// those of the screen.
namespace realdesktop {

using namespace Qt::StringLiterals;

// Starts a program that ends with this one, whatever ends this one.
inline void start(QProcess& process, const QString& program, const QStringList& arguments = {})
{
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(program, arguments);
}

// Starts a server and a window manager, and points this process to them. The server picks a free number and tells it
// when it is ready. Without -noreset it would throw everybody out when its first client, an early xprop, leaves.
inline bool startDesktop(QProcess& server, QProcess& manager)
{
    start(server, u"Xvfb"_s, u"-displayfd 1 -screen 0 1280x900x24 -nolisten tcp -noreset"_s.split(u' '));
    QByteArray number;
    while (!number.endsWith('\n') && server.waitForReadyRead(20000))
        number += server.readAllStandardOutput();
    qputenv("DISPLAY", ':' + number.trimmed());
    start(manager, u"openbox"_s);
    for (int i = 0; i < 400; ++i) { // openbox announces itself on the root window
        QProcess ask;
        ask.start(u"xprop"_s, {u"-root"_s, u"_NET_SUPPORTING_WM_CHECK"_s});
        if (ask.waitForFinished() && ask.readAllStandardOutput().contains("window id"))
            return true;
        QThread::msleep(20);
    }
    return false;
}

// The main function: runs the test on a desktop of its own. Without one of the tools it says which is missing.
template <typename Test>
int run(int argc, char** argv)
{
    for (const QString& tool : {u"Xvfb"_s, u"openbox"_s, u"xdotool"_s, u"xprop"_s, u"trayer"_s})
        if (QStandardPaths::findExecutable(tool).isEmpty())
            qFatal("%s is not installed; tools/install-packages test brings it.", qPrintable(tool));
    qputenv("QT_QPA_PLATFORM", "xcb");
    for (const char* other : {"WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "QT_QPA_PLATFORMTHEME"})
        qunsetenv(other);
    QProcess server, manager;
    if (!startDesktop(server, manager))
        qFatal("the desktop does not start: %s", server.readAllStandardError().constData());
    QApplication application(argc, argv);
    Test test;
    const int result = QTest::qExec(&test, argc, argv);
    manager.kill();
    server.kill();
    return manager.waitForFinished() && server.waitForFinished() ? result : 1;
}

// Lets the pointer do something while this program goes on.
inline void xdotool(const QStringList& commands)
{
    QProcess process;
    process.start(u"xdotool"_s, commands);
    QTRY_COMPARE_WITH_TIMEOUT(process.state(), QProcess::NotRunning, 20000);
    QCOMPARE(process.exitCode(), 0);
}

inline QStringList pointerTo(const QPoint& at)
{
    return {u"mousemove"_s, QString::number(at.x()), QString::number(at.y()), u"sleep"_s, u"0.015"_s};
}

// The pointer goes there, stays a moment, and does what `how` says.
inline void clickAt(const QPoint& at, const QString& how = u"click 1"_s)
{
    xdotool(pointerTo(at) + (u"sleep 0.1 "_s + how).split(u' '));
}

// A drag by the left button from one place to another, as slowly as by hand. A drag has an event loop of its own, so
// what `during` does happens inside it; then the button goes up.
inline void drag(
    const QPoint& from, const QPoint& to, const std::function<void()>& during = [] {})
{
    QStringList commands = pointerTo(from) + u"sleep 0.05 mousedown 1 sleep 0.05"_s.split(u' ');
    for (int step = 1; step <= 12; ++step)
        commands += pointerTo(from + (to - from) * step / 12);
    commands += pointerTo(to + QPoint(1, 0)) + QStringList{u"sleep"_s, u"0.1"_s};
    QProcess pull;
    pull.start(u"xdotool"_s, commands);
    bool isOver = false;
    QTimer arrived;
    arrived.callOnTimeout(&arrived, [&] {
        if (pull.state() != QProcess::NotRunning)
            return;
        arrived.stop();
        during();
        xdotool({u"mouseup"_s, u"1"_s});
        isOver = true;
    });
    arrived.start(20);
    QTRY_VERIFY_WITH_TIMEOUT(isOver, 30000);
}

} // namespace realdesktop
