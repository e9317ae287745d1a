// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QProcess>
#include <QTimer>
#include <QtTest>
#include <functional>

// The pointer of a real desktop, moved by xdotool. Places are those of the screen.
namespace realpointer {

using namespace Qt::StringLiterals;

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

// A drag by the left button from one place of the screen to another, as slowly as by hand. A drag has an event loop
// of its own, so what `during` does happens inside it; then the button goes up.
inline void drag(const QPoint& from, const QPoint& to, const std::function<void()>& during)
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

} // namespace realpointer
