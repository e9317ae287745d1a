// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Recordset.h"

#include <QString>
#include <QStringList>
#include <functional>
#include <memory>

namespace jet {

// One connection to an archive file: an SQLite 3 file that is read and written in the Jet 4 dialect of SQL.
// Opening never creates a file and refuses one that is no archive without writing to it. Not for sharing
// between threads. Every function throws Error, with a description for the user; a statement that fails
// changes nothing.
class Connection {
public:
    Connection();
    ~Connection(); // closes
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    void Open(const QString& connectionString); // "Provider=...;Data Source=" + path + ";"
    void Create(const QString& path); // a new, empty archive; the file must not exist
    void Close(); // does nothing when closed

    int Execute(const QString& sql); // one statement; the number of rows changed
    Recordset OpenRecordset(const QString& sql);
    QStringList tables(); // the schema rowset of tables: TABLE_NAME of each

    // Called every few milliseconds while a statement runs; false interrupts it with an Error.
    void onProgress(std::function<bool()> keepGoing);

    // Many writes as one: all of them or, unless commit() was called before the scope ends, none.
    class Transaction {
    public:
        explicit Transaction(Connection& connection);
        ~Transaction();
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;
        void commit();

    private:
        Connection* m_connection;
    };

private:
    struct State;
    std::unique_ptr<State> m;
};

} // namespace jet
