// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "desktop/ui/QtSound.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// Programs and devices of a desktop that is made up: players are scripts that write down what they were given.
class FakeDesktop {
public:
    FakeDesktop()
    {
        for (const char* folder : {"bin", "run/pulse"})
            QDir().mkpath(path(QString::fromLatin1(folder)));
        qputenv("PATH", path(u"bin"_s).toLocal8Bit());
        qputenv("XDG_RUNTIME_DIR", path(u"run"_s).toLocal8Bit());
        qunsetenv("PULSE_SERVER");
    }
    ~FakeDesktop()
    {
        qputenv("PATH", m_path);
        m_runtime.isNull() ? qunsetenv("XDG_RUNTIME_DIR") : qputenv("XDG_RUNTIME_DIR", m_runtime);
    }
    QString path(const QString& name) const { return m_folder.filePath(name); }
    void write(const QString& name, const QByteArray& text)
    {
        QFile file(path(name));
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
    }
    void player(const QString& name, const QByteArray& then)
    {
        write(u"bin/"_s + name,
              "#!/bin/sh\necho " + name.toLatin1() + " \"$@\" >>'" + path(u"log"_s).toLocal8Bit() + "'\n" + then +
                  '\n');
        QFile::setPermissions(path(u"bin/"_s + name), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    QString log() const
    {
        QFile file(path(u"log"_s));
        return file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.readAll()).trimmed().replace(u'\n', u'|')
                                              : QString();
    }

private:
    QByteArray m_path = qgetenv("PATH");
    QByteArray m_runtime = qgetenv("XDG_RUNTIME_DIR");
    QTemporaryDir m_folder;
};

class CountingSound : public QtSound {
public:
    using QtSound::QtSound;
    void beep() override { ++beeps; }
    int beeps = 0;
};

} // namespace

class tst_QtSound : public QObject {
    Q_OBJECT
private slots:
    void devices();
    void theFirstThatPlays();
    void oneAtATime();
};

void tst_QtSound::devices()
{
    FakeDesktop f;
    CountingSound sound(f.path(u"pcm"_s));
    QCOMPARE(sound.waveDevices(), 0);
    f.write(u"pcm"_s, "00-00: A : A : playback 1 : capture 1\n00-02: M : M : capture 1\n01-03: H : H : playback 1\n");
    QCOMPARE(sound.waveDevices(), 0); // devices that nothing here can play on
    f.player(u"paplay"_s, "");
    QCOMPARE(sound.waveDevices(), 0); // a player whose server does not run
    f.player(u"aplay"_s, "");
    QCOMPARE(sound.waveDevices(), 2);
    f.write(u"pcm"_s, "");
    f.write(u"run/pulse/native"_s, "");
    QCOMPARE(sound.waveDevices(), 1);
}

void tst_QtSound::theFirstThatPlays()
{
    FakeDesktop f;
    CountingSound sound(f.path(u"pcm"_s));
    f.write(u"pcm"_s, "00-00: A : A : playback 1\n");
    f.write(u"run/pipewire-0"_s, "");
    f.write(u"run/pulse/native"_s, "");
    f.player(u"aplay"_s, "");
    f.player(u"paplay"_s, "kill -9 $$");
    f.player(u"pw-play"_s, "exit 1");
    sound.play(u"/a b/alert.wav"_s);
    const QString all = u"pw-play /a b/alert.wav|paplay /a b/alert.wav|aplay /a b/alert.wav"_s;
    QTRY_COMPARE(f.log(), all);
    QTest::qWait(100);
    QCOMPARE(sound.beeps, 0);
    f.player(u"aplay"_s, "exit 1");
    QFile::remove(f.path(u"log"_s));
    sound.play(u"/a b/alert.wav"_s);
    QTRY_COMPARE(sound.beeps, 1); // better than nothing
    QCOMPARE(f.log(), all);
}

// A burst of reminders is one signal; the next one sounds again.
void tst_QtSound::oneAtATime()
{
    FakeDesktop f;
    f.write(u"pcm"_s, "00-00: A : A : playback 1\n");
    f.player(u"aplay"_s, "exec /bin/sleep 0.3");
    CountingSound sound(f.path(u"pcm"_s));
    for (int i = 0; i < 8; ++i)
        sound.play(u"x"_s);
    QTest::qWait(500);
    QCOMPARE(f.log(), u"aplay x"_s);
    sound.play(u"y"_s);
    QTRY_COMPARE(f.log(), u"aplay x|aplay y"_s);
}

SNIPVALE_TEST(tst_QtSound)
#include "tst_QtSound.moc"
