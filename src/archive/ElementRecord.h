// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Recordset.h"

#include <QDateTime>
#include <QString>
#include <functional>
#include <utility>
#include <vector>

class Archive;

// What the records of elements have in common: one editor works on any of them, and each goes to the archive and
// comes back by the same steps. Fields are plain, nothing validates them. Each method opens the archive for itself.
class ElementRecord {
public:
    // The archive outlives the record. `word` is what messages call the element: "memo".
    ElementRecord(Archive& archive, const QString& word) : m_archive(archive), m_word(word) { }
    virtual ~ElementRecord() = default;

    virtual qint32& key() = 0; // of the row that the methods work on
    virtual void clear() = 0; // the fields of a new record

    // Reads the row of the key. An error gives false, without a message. That there is no such row is none for most
    // records: they keep their fields, and lastError() says it.
    virtual bool Load() = 0;
    // Inserts a row, both dates now, and sets the key. An error is shown and gives false.
    virtual bool Save() = 0;
    // Writes the row of the key, its last date now. An error, also that the row is gone, gives false, without a
    // message.
    virtual bool Update() = 0;

    const QString& lastError() const { return m_lastError; } // of the last Load or Update; empty when all went well

protected:
    using Columns = std::vector<std::pair<QString, jet::Value>>;

    bool readRow(const QString& statement, const std::function<void(const jet::Recordset& row)>& take);
    // `statement` gives an empty set of rows to add to; `keyColumn` is read back into the key.
    bool insertRow(const QString& routine, const QString& statement, const Columns& columns, const QString& keyColumn);
    bool updateRow(const QString& statement);
    qint32 count(const QString& statement, const QString& column); // 0 on an error, without a message

    QString goneText() const; // "The memo is no longer in the archive."

    Archive& m_archive;
    QString m_lastError;

private:
    QString m_word;
};

// A column into a field: Null empties a text, and leaves a number or a date as it was. A number that another program
// wrote and that does not fit becomes the nearest one that does.
void takeColumn(const jet::Recordset& row, const QString& column, QString& field);
void takeColumn(const jet::Recordset& row, const QString& column, qint16& field);
void takeColumn(const jet::Recordset& row, const QString& column, qint32& field);
void takeColumn(const jet::Recordset& row, const QString& column, QDateTime& field);
