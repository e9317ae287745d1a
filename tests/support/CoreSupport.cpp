// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"

#include "archive/Archive.h"

#include <QFile>
#include <QtTest>

using namespace Qt::StringLiterals;

QByteArray bytesOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void writeFile(const QString& name, const QByteArray& bytes)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("%s cannot be written", qPrintable(name));
}

Answer ScriptedQuestions::ask(const QString& text, MessageStyle style, const QString& title)
{
    asked.append({text, style, title});
    if (m_script.empty()) {
        QTest::qFail(qPrintable(u"unforeseen question: "_s + text), __FILE__, __LINE__);
        return style == MessageStyle::YesNo || style == MessageStyle::YesNoDefaultNo ? Answer::No : Answer::Ok;
    }
    const auto [expected, answer] = m_script.front();
    m_script.pop_front();
    if (!expected.isEmpty() && expected != text)
        QTest::qFail(qPrintable(u"asked: "_s + text + u"\nforeseen: "_s + expected), __FILE__, __LINE__);
    return answer;
}

void ScriptedQuestions::expect(const QString& text, Answer answer)
{
    m_script.emplace_back(text, answer);
}

ScriptedQuestions::~ScriptedQuestions()
{
    for (const auto& [text, answer] : m_script)
        QTest::qFail(qPrintable(u"never asked: "_s + text), __FILE__, __LINE__);
}

ScratchArchive::ScratchArchive()
{
    if (!QFile::copy(QStringLiteral(SHIPPED_DIR "/snipvale.SVA"), path()))
        qFatal("the shipped archive is not built");
    QFile::setPermissions(path(), QFile::ReadOwner | QFile::WriteOwner);
}

ArchiveFixture::ArchiveFixture()
{
    archive.setPath(scratch.path());
    archive.onStatement = [this](const QString& sql) { statements.append(sql); };
}

QString ArchiveFixture::value(const QString& sql)
{
    jet::Connection connection;
    connection.Open(archive.ConnectionString());
    const jet::Recordset rows = connection.OpenRecordset(sql);
    return rows.eof() ? QString() : rows.text(0);
}

StartedArchive::StartedArchive()
{
    questions.expect(u"Ver 3.0 - archive update completed successfully!"_s);
    UpdateArchiveVersion(archive);
    questions.asked.clear();
    statements.clear();
}
