// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>
#include <QThread>
#include <csignal>
#include <cstdio>
#include <sys/prctl.h>

// A desktop of its own for a test that needs one: Xvfb and openbox.
namespace realdesktop {

using namespace Qt::StringLiterals;

// Starts a program that ends with this one, whatever ends this one.
inline void start(QProcess& process, const QString& program, const QStringList& arguments)
{
    process.setChildProcessModifier([] { prctl(PR_SET_PDEATHSIG, SIGKILL); });
    process.start(program, arguments);
}

inline int failed(const QString& why)
{
    fprintf(stderr, "FAIL: %s\n", qPrintable(why));
    return 1;
}

// The display's number; empty when the server does not start. It picks a free one and tells it when it is ready.
// Without -noreset it would throw everybody out when its first client, an early xprop, leaves.
inline QByteArray startServer(QProcess& server)
{
    start(server, u"Xvfb"_s, u"-displayfd 1 -screen 0 1280x900x24 -nolisten tcp -noreset"_s.split(u' '));
    QByteArray number;
    while (!number.endsWith('\n') && server.waitForReadyRead(20000))
        number += server.readAllStandardOutput();
    return number.trimmed();
}

// openbox announces itself on the root window.
inline bool waitForManager(const QProcessEnvironment& environment)
{
    bool isReady = false;
    for (int i = 0; i < 200 && !isReady; ++i) {
        QProcess ask;
        ask.setProcessEnvironment(environment);
        ask.start(u"xprop"_s, {u"-root"_s, u"_NET_SUPPORTING_WM_CHECK"_s});
        isReady = ask.waitForFinished() && ask.readAllStandardOutput().contains("window id");
        QThread::msleep(50);
    }
    return isReady;
}

// Runs this test program again on a fresh desktop, with SNIPVALE_REAL_DESKTOP set, and returns its exit code. Without
// the tools it says which is missing and fails.
inline int rerun()
{
    for (const QString& tool : {u"Xvfb"_s, u"openbox"_s, u"xdotool"_s, u"xprop"_s})
        if (QStandardPaths::findExecutable(tool).isEmpty())
            return failed(tool + u" is not installed; tools/install-packages test brings it."_s);
    QProcess server, manager, test;
    const QByteArray display = startServer(server);
    if (display.isEmpty())
        return failed(u"Xvfb does not start: "_s + QString::fromLocal8Bit(server.readAllStandardError()));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DISPLAY"_s, u':' + QString::fromLatin1(display));
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    environment.insert(u"SNIPVALE_REAL_DESKTOP"_s, u"1"_s);
    for (const QString& other : {u"WAYLAND_DISPLAY"_s, u"DBUS_SESSION_BUS_ADDRESS"_s, u"QT_QPA_PLATFORMTHEME"_s})
        environment.remove(other);
    manager.setProcessEnvironment(environment);
    start(manager, u"openbox"_s, QStringList());
    const bool isManaged = waitForManager(environment);
    test.setProcessEnvironment(environment);
    test.setProcessChannelMode(QProcess::ForwardedChannels);
    if (isManaged)
        start(test, QCoreApplication::applicationFilePath(), QCoreApplication::arguments().mid(1));
    const bool ended = isManaged && test.waitForFinished(240000);
    for (QProcess* process : {&test, &manager, &server}) {
        process->kill();
        process->waitForFinished();
    }
    if (!ended)
        return failed(isManaged ? u"the test did not end by itself."_s : u"openbox does not start."_s);
    return test.exitStatus() == QProcess::NormalExit ? test.exitCode() : 1;
}

} // namespace realdesktop
