// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/Archive.h"

#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "desktop/Clock.h"
#include "desktop/Questions.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

void addVersionTable(Archive& archive)
{
    ArchiveUnit unit(archive);
    unit.Execute(u" CREATE TABLE tab_version ( "
                 " versionID        COUNTER, "
                 " versionName          TEXT(255), "
                 " versionBuild         LONG, "
                 " dateMod        DATETIME, "
                 " CONSTRAINT ID_PK PRIMARY KEY(versionID) "
                 ")"_s);
    unit.Execute(u"INSERT INTO tab_version (versionName, versionBuild, dateMod) VALUES ('3.0', "_s +
                 QString::number(ArchiveBuild) + u", '"_s + FormatDateSQL(archive.clock().now()) + u"')"_s);
}

void addToDoTable(Archive& archive)
{
    ArchiveUnit unit(archive);
    unit.Execute(u" CREATE TABLE tab_todo ( "
                 " todoID        COUNTER, "
                 " categoryID    LONG CONSTRAINT RfCategory_Todo REFERENCES tab_category (categoryID) ON UPDATE CASCADE"
                 " ON DELETE CASCADE, "
                 " name          TEXT(255), "
                 " description   LONGTEXT, "
                 " dateIn        DATETIME, "
                 " dateLastMod   DATETIME, "
                 " startDate     DATETIME, "
                 " dueDate       DATETIME, "
                 " endDate       DATETIME, "
                 " alarmOn       YESNO,   "
                 " alarmDate     DATETIME, "
                 " priority          SHORT, "
                 " status            SHORT, "
                 " percentComplete   SHORT, "
                 " resources     LONGTEXT, "
                 " done          YESNO, "
                 " CONSTRAINT ID_PK PRIMARY KEY(todoID) "
                 ")"_s);
    unit.Execute(u"CREATE INDEX categoryID_IDX ON tab_todo (categoryID)"_s);
    unit.Execute(u"INSERT INTO tab_category (parentID, type, name) VALUES (0, 2,'ToDo')"_s);
}

} // namespace

Archive::Archive(Questions& questions, const Clock& clock) : m_questions(questions), m_clock(clock) { }

void Archive::setPath(const QString& path)
{
    m_path = path;
    m_connectionString = u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s + path + u";"_s;
}

ArchiveUnit::ArchiveUnit(Archive& archive) : m_archive(archive)
{
    auto connection = std::make_unique<jet::Connection>();
    connection->Open(archive.ConnectionString());
    m_outer = std::exchange(archive.cn, std::move(connection));
}

ArchiveUnit::~ArchiveUnit()
{
    m_archive.cn = std::move(m_outer);
}

int ArchiveUnit::Execute(const QString& sql)
{
    if (m_archive.onStatement)
        m_archive.onStatement(sql);
    return m_archive.cn->Execute(sql);
}

jet::Recordset ArchiveUnit::Open(const QString& sql)
{
    if (m_archive.onStatement)
        m_archive.onStatement(sql);
    return m_archive.cn->OpenRecordset(sql);
}

bool ExistTable(Archive& archive, const QString& name)
{
    bool found = false;
    trapErrors(archive.questions(), u"ExistTable"_s, [&] {
        ArchiveUnit unit(archive);
        found = unit.connection().tables().contains(name, Qt::CaseInsensitive);
    });
    return found;
}

bool UpdateArchiveVersion(Archive& archive)
{
    try {
        if (!ExistTable(archive, u"tab_version"_s))
            addVersionTable(archive);
        if (ExistTable(archive, u"tab_todo"_s))
            return true;
        addToDoTable(archive);
    } catch (const std::exception&) {
        archive.questions().ask(u"Error updating db to version 3.0"_s, MessageStyle::Critical);
        return false;
    }
    archive.questions().ask(u"Ver 3.0 - archive update completed successfully!"_s, MessageStyle::Information);
    return true;
}
