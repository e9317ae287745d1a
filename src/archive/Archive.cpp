// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/Archive.h"

#include <utility>

using namespace Qt::StringLiterals;

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
