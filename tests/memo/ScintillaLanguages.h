// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/CoreSupport.h"

#include "archive/SqlText.h"

// A small archive of languages and styles of a test's own.
struct ScintillaLanguages {
    ScintillaLanguages()
    {
        archive.setPath(folder.filePath(QStringLiteral("languages.SVA")));
        jet::Connection connection;
        connection.Create(archive.ArchivePath());
        connection.Execute(QStringLiteral(
            "CREATE TABLE tab_memoType (memoTypeID LONG PRIMARY KEY, name TEXT(50), description TEXT(255), "
            "lexerCode TEXT(50), keywords LONGTEXT, enabled YESNO, visible YESNO)"));
        connection.Execute(QStringLiteral(
            "CREATE TABLE tab_style (styleID COUNTER PRIMARY KEY, lexerCode TEXT(50), styleNumber LONG, "
            "styleDescription TEXT(255), fontName TEXT(50), fontSize SHORT, foreColor LONG, backColor LONG, "
            "bold YESNO, italic YESNO, underline YESNO, invisible YESNO, [case] SHORT, enable YESNO)"));
        archive.onStatement = [this](const QString& sql) { statements.append(sql); };
    }
    void language(qint32 id, const QString& lexerCode, const QString& keywords)
    {
        run(QStringLiteral("INSERT INTO tab_memoType (memoTypeID, name, lexerCode, keywords, enabled, visible) "
                           "VALUES (%1, 'Language %1', '%2', '%3', true, true)")
                .arg(QString::number(id), lexerCode, quoted(keywords)));
    }
    // `columns` and `values` are lists as they stand in a statement.
    void style(const QString& lexerCode, int number, const QString& columns, const QString& values)
    {
        run(QStringLiteral("INSERT INTO tab_style (lexerCode, styleNumber, %3) VALUES ('%1', %2, %4)")
                .arg(lexerCode, QString::number(number), columns, values));
    }
    void run(const QString& sql)
    {
        jet::Connection connection;
        connection.Open(archive.ConnectionString());
        connection.Execute(sql);
    }

    QTemporaryDir folder;
    ScriptedQuestions questions;
    ManualClock clock;
    Archive archive{questions, clock};
    QStringList statements;
};
