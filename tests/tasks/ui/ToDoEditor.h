// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/RawSqlite.h"
#include "support/EditorFixture.h"

#include "tasks/ui/frmToDo.h"
#include "ui/richtext/RichTextBox.h"
#include "ui/widgets/OptionalDate.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QTimeEdit>

// One to-do editor, opened as the explorer opens it.
struct Editor : EditorFixture<frmToDo> {
    Editor()
    {
        listener.category = value(QStringLiteral("SELECT categoryID FROM tab_category WHERE type = 2")).toInt();
        open(0);
    }
    void open(qint32 id) final
    {
        filter.EditingModeToDoID = id;
        show(std::make_unique<frmToDo>(EditorContext{archive, desktop, filter, listener}, nullptr));
    }
    QCheckBox& check(const char* name) { return get<QCheckBox>(name); }
    QComboBox& combo(const char* name) { return get<QComboBox>(name); }
    OptionalDate& date(const char* name) { return get<OptionalDate>(name); }
    void saveAndStay()
    {
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier);
    }
    cToDo sample()
    {
        cToDo todo(archive);
        todo.CategoryID = listener.category;
        todo.ToDoName = QStringLiteral(" it's <i>");
        todo.ToDoDescription = QStringLiteral("{\\rtf1\\ansi{\\*\\odd thing}\\b bold\\b0\\par}");
        todo.StartDate = QDate(2024, 2, 29);
        todo.EndDate = QDate(2024, 1, 1); // before the start
        todo.AlarmOn = todo.Done = true;
        todo.AlarmDate = {QDate(2024, 3, 7), QTime(9, 5, 7)};
        todo.PercentComplete = 40;
        todo.Priority = 6;
        todo.Status = 2;
        todo.Resources = QStringLiteral("a\r\nb\u00A0c");
        return todo;
    }
    // An expression over the first row, as plain SQLite gives it: "" for Null.
    QString row(const QString& expression)
    {
        const QString sql = QStringLiteral("SELECT %1 FROM tab_todo ORDER BY todoID LIMIT 1").arg(expression);
        return QString::fromUtf8(RawSqlite(archive.ArchivePath()).first(sql.toUtf8().constData()));
    }
    // What another program may do to the archive.
    void runRaw(const QByteArray& sql) { QCOMPARE(RawSqlite(archive.ArchivePath()).run(sql.constData()), SQLITE_OK); }
    QString count() { return value(QStringLiteral("SELECT COUNT(todoID) AS n FROM tab_todo")); }
};
