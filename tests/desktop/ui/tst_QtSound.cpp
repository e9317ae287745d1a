// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "desktop/ui/QtSound.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// Plays on a desktop that is made up: players are scripts that write down what they were given.
struct FakeDesktop : QtSound {
    FakeDesktop() : QtSound(home().filePath(u"pcm"_s))
    {
        QDir(home().path()).removeRecursively();
        QDir().mkpath(home().filePath(u"pulse"_s));
        for (const char* folders : {"PATH", "XDG_RUNTIME_DIR"})
            qputenv(folders, home().path().toLocal8Bit());
        qunsetenv("PULSE_SERVER");
    }
    static const QTemporaryDir& home()
    {
        static const QTemporaryDir folder;
        return folder;
    }
    void write(const QString& name, const QByteArray& text) { writeFile(home().filePath(name), text); }
    void player(const QString& name, const QByteArray& then)
    {
        write(name, "#!/bin/sh\necho ${0##*/} \"$@\" >>'" + home().filePath(u"log"_s).toLocal8Bit() + "'\n" + then);
        QFile::setPermissions(home().filePath(name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QByteArray log() const { return bytesOf(home().filePath(u"log"_s)).trimmed().replace('\n', '|'); }
    void beep() override { ++beeps; }
    int beeps = 0;
};

} // namespace

class tst_QtSound : public QObject {
    Q_OBJECT
private slots:
    void theFirstThatPlays()
    {
        FakeDesktop f;
        f.write(u"pcm"_s,
                "00-00: A : A : playback 1 : capture 1\n00-02: M : M : capture 1\n01-03: H : H : playback 1\n");
        QCOMPARE(f.waveDevices(), 0); // devices that nothing here can play on
        f.player(u"paplay"_s, "kill -9 $$");
        QCOMPARE(f.waveDevices(), 0); // a player whose server does not run
        f.player(u"aplay"_s, "");
        QCOMPARE(f.waveDevices(), 2);
        f.player(u"pw-play"_s, "exit 1");
        f.write(u"pipewire-0"_s, "");
        f.write(u"pulse/native"_s, "");
        f.play(u"/a b/alert.wav"_s);
        const QByteArray all = "pw-play /a b/alert.wav|paplay /a b/alert.wav|aplay /a b/alert.wav";
        QTRY_COMPARE(f.log(), all);
        QTest::qWait(100);
        QCOMPARE(f.beeps, 0);
        f.player(u"aplay"_s, "exit 1");
        f.write(u"log"_s, "");
        f.play(u"/a b/alert.wav"_s);
        QTRY_COMPARE(f.beeps, 1); // better than nothing
        QCOMPARE(f.log(), all);
    }
};

SNIPVALE_TEST(tst_QtSound)
#include "tst_QtSound.moc"
