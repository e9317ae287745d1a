// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Connection.h"

#include <QString>
#include <functional>
#include <memory>

class Clock;
class Questions;

// The archive that the program works on: where it is, and the one connection variable `cn`. Nothing is
// held open between two user actions, so the file can be copied, compacted or replaced at any time.
class Archive {
public:
    Archive(Questions& questions, const Clock& clock);

    void setPath(const QString& path); // also builds the connection string; touches no file
    const QString& ArchivePath() const { return m_path; }
    const QString& ConnectionString() const { return m_connectionString; }

    Questions& questions() const { return m_questions; }
    const Clock& clock() const { return m_clock; }

    std::unique_ptr<jet::Connection> cn; // null between units of work
    std::function<void(const QString&)> onStatement; // sees each statement text before it runs; may be empty

private:
    Questions& m_questions;
    const Clock& m_clock;
    QString m_path;
    QString m_connectionString;
};

// One unit of work: opens a new connection into `cn` and releases it at the end of the scope, also when an
// error leaves it. Throws jet::Error when the archive cannot be opened.
class ArchiveUnit {
public:
    explicit ArchiveUnit(Archive& archive);
    ~ArchiveUnit();
    ArchiveUnit(const ArchiveUnit&) = delete;
    ArchiveUnit& operator=(const ArchiveUnit&) = delete;

    int Execute(const QString& sql); // rows changed; throws jet::Error
    jet::Recordset Open(const QString& sql); // must not outlive this unit; throws jet::Error
    jet::Connection& connection() { return *m_archive.cn; }

private:
    Archive& m_archive;
    std::unique_ptr<jet::Connection> m_outer; // of an enclosing unit, put back at the end
};

// The version of the archive's tables that this program writes.
inline constexpr char ArchiveVersion[] = "3.0";
inline constexpr int ArchiveBuild = 191;

// True when the archive holds a table of that name, in any letter case. An error is shown and gives false.
bool ExistTable(Archive& archive, const QString& name);

// Brings an archive of an older schema up to the current one and says so; a current archive is left alone.
// An error is shown and gives false; what was already written stays.
bool UpdateArchiveVersion(Archive& archive);
