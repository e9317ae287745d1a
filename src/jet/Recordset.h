// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Value.h"

#include <QByteArrayView>
#include <QStringList>
#include <memory>
#include <vector>

struct sqlite3;

namespace jet {

struct Statement;

// The rows of one query, read forwards, or an empty updatable set for AddNew. Lives no longer than its
// connection. Columns are named in any letter case; an unknown name throws. Null reads as "", 0, false or an
// invalid date.
class Recordset {
public:
    Recordset(sqlite3* database, const Statement& statement); // made by Connection; throws Error
    Recordset(Recordset&&) noexcept;
    Recordset& operator=(Recordset&&) noexcept;
    ~Recordset();

    bool eof() const;
    void moveNext(); // throws Error

    int index(const QString& name) const; // for loops over many rows
    bool isNull(int column) const;
    qint64 integer(int column) const;
    bool boolean(int column) const;
    QString text(int column) const;
    // The bytes as stored, for text that must not be decoded: until moveNext or another call for this column.
    QByteArrayView view(int column) const;
    QDateTime dateTime(int column) const;
    LocalMoment moment(int column) const; // much faster: a time zone costs 2 microseconds a value

    bool isNull(const QString& name) const { return isNull(index(name)); }
    qint64 integer(const QString& name) const { return integer(index(name)); }
    bool boolean(const QString& name) const { return boolean(index(name)); }
    QString text(const QString& name) const { return text(index(name)); }
    QDateTime dateTime(const QString& name) const { return dateTime(index(name)); }

    // One new row from parallel lists of column names and values. Update() writes it and makes it the
    // current row, so that its counter key can be read. Both throw Error; nothing is written then.
    void AddNew(const QStringList& names, const std::vector<Value>& values);
    void Update();

private:
    struct State;
    std::unique_ptr<State> m;
};

} // namespace jet
