// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/Archive.h"
#include "desktop/Clock.h"
#include "desktop/Desktop.h"
#include "desktop/Questions.h"

#include <QStringList>
#include <QTemporaryDir>
#include <deque>

// A file's contents; empty when it cannot be read. And a file with these contents, or the end of the test.
QByteArray bytesOf(const QString& name);
void writeFile(const QString& name, const QByteArray& bytes);

// Answers questions by script and keeps what was asked. A question that no script foresaw fails the test.
class ScriptedQuestions : public Questions {
public:
    struct Asked {
        QString text;
        MessageStyle style;
        QString title;
    };
    using Questions::ask;
    Answer ask(const QString& text, MessageStyle style, const QString& title) override;
    void expect(const QString& text, Answer answer = Answer::Ok); // in order; "" matches any text
    ~ScriptedQuestions() override; // a foreseen question never asked fails too

    QList<Asked> asked;

private:
    std::deque<std::pair<QString, Answer>> m_script;
};

class ManualClock : public Clock {
public:
    QDateTime now() const override { return moment; }
    QDateTime moment{QDate(2026, 3, 4), QTime(9, 5, 0)};
};

// Remembers what was heard.
class FakeSound : public Sound {
public:
    int waveDevices() override { return devices; }
    void play(const QString& waveFile) override { heard.append(waveFile); }
    void beep() override { heard.append(QStringLiteral("beep")); }
    int devices = 1;
    QStringList heard;
};

// A copy of the shipped archive in a folder of its own, opened by nobody yet.
class ScratchArchive {
public:
    ScratchArchive();
    QString path(const QString& name = QStringLiteral("scratch.SVA")) const { return m_folder.filePath(name); }
    QString folder() const { return m_folder.path(); }

private:
    QTemporaryDir m_folder;
};

// A scratch archive with questions, clock and the list of statements that ran.
struct ArchiveFixture {
    ArchiveFixture();
    ScratchArchive scratch;
    ScriptedQuestions questions;
    ManualClock clock;
    Archive archive{questions, clock};
    QStringList statements;
    QString value(const QString& sql); // first column of the first row as text; "" for none or Null
};

// The same archive after its first start: at the present schema, nothing asked and no statement kept.
struct StartedArchive : ArchiveFixture {
    StartedArchive();
};
