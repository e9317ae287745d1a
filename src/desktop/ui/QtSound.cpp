// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ui/QtSound.h"

#include <QApplication>
#include <QFile>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestSound = 10000; // ms

// A server of this session listens there.
bool hasSocket(const QString& name)
{
    const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !folder.isEmpty() && QFile::exists(folder + u'/' + name);
}

void addPlayer(QStringList& players, const QString& program)
{
    const QString path = QStandardPaths::findExecutable(program);
    if (!path.isEmpty())
        players.append(path);
}

QStringList serverPlayers()
{
    QStringList players;
    if (hasSocket(u"pipewire-0"_s))
        addPlayer(players, u"pw-play"_s);
    if (hasSocket(u"pulse/native"_s) || qEnvironmentVariableIsSet("PULSE_SERVER"))
        addPlayer(players, u"paplay"_s);
    return players;
}

} // namespace

QtSound::QtSound(QString deviceList) : m_deviceList(std::move(deviceList))
{
    m_limit.setSingleShot(true);
    m_limit.callOnTimeout(&m_limit, [this] {
        if (m_player)
            m_player->kill();
    });
}

QtSound::~QtSound()
{
    if (!m_player)
        return;
    m_player->disconnect();
    m_player->kill(); // the sound ends with the program
    m_player->waitForFinished(1000);
}

// "00-00: ALC257 Analog : ALC257 Analog : playback 1 : capture 1"
int QtSound::hardwareDevices() const
{
    QFile file(m_deviceList);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    return int(
        std::count_if(lines.begin(), lines.end(), [](const QByteArray& line) { return line.contains(": playback "); }));
}

QStringList QtSound::players() const
{
    QStringList found = serverPlayers();
    if (hardwareDevices() > 0)
        addPlayer(found, u"aplay"_s);
    return found;
}

int QtSound::waveDevices()
{
    const int servers = serverPlayers().isEmpty() ? 0 : 1;
    const int cards = QStandardPaths::findExecutable(u"aplay"_s).isEmpty() ? 0 : hardwareDevices();
    return std::max(servers, cards);
}

void QtSound::play(const QString& waveFile)
{
    if (m_player)
        return;
    m_file = waveFile;
    m_left = players();
    startNext();
}

// The first player that ends well is the last: a server may refuse where another, or the bare device, plays.
void QtSound::startNext()
{
    if (m_left.isEmpty()) {
        beep();
        return;
    }
    m_player = std::make_unique<QProcess>();
    m_player->setStandardInputFile(QProcess::nullDevice());
    m_player->setStandardOutputFile(QProcess::nullDevice());
    m_player->setStandardErrorFile(QProcess::nullDevice());
    const auto over = [this](bool isPlayed) {
        m_limit.stop();
        m_player.release()->deleteLater(); // it is calling
        if (!isPlayed)
            startNext();
    };
    QObject::connect(m_player.get(), &QProcess::finished, &m_limit, [over](int code, QProcess::ExitStatus status) {
        over(status == QProcess::NormalExit && code == 0);
    });
    QObject::connect(m_player.get(), &QProcess::errorOccurred, &m_limit, [over](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) // any other error is followed by finished()
            over(false);
    });
    m_limit.start(longestSound);
    m_player->start(m_left.takeFirst(), {m_file}, QIODevice::NotOpen);
}

void QtSound::beep()
{
    QApplication::beep();
}
