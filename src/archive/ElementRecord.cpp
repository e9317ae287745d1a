// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/ElementRecord.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

template <typename Number>
void takeNumber(const jet::Recordset& row, const QString& column, Number& field)
{
    using Range = std::numeric_limits<Number>;
    if (!row.isNull(column))
        field = Number(std::clamp<qint64>(row.integer(column), Range::min(), Range::max()));
}

} // namespace

void takeColumn(const jet::Recordset& row, const QString& column, QString& field)
{
    field = row.text(column);
}

void takeColumn(const jet::Recordset& row, const QString& column, qint16& field)
{
    takeNumber(row, column, field);
}

void takeColumn(const jet::Recordset& row, const QString& column, qint32& field)
{
    takeNumber(row, column, field);
}

void takeColumn(const jet::Recordset& row, const QString& column, QDateTime& field)
{
    if (!row.isNull(column))
        field = row.dateTime(column);
}

QString ElementRecord::goneText() const
{
    return u"The %1 is no longer in the archive."_s.arg(m_word);
}

bool ElementRecord::readRow(const QString& statement, const std::function<void(const jet::Recordset& row)>& take)
{
    return keepError(m_lastError, [&] {
        ArchiveUnit unit(m_archive);
        const jet::Recordset row = unit.Open(statement);
        if (row.eof())
            m_lastError = goneText();
        else
            take(row);
    });
}

bool ElementRecord::insertRow(const QString& routine, const QString& statement, const Columns& columns,
                              const QString& keyColumn)
{
    return trapErrors(m_archive.questions(), routine, [&] {
        ArchiveUnit unit(m_archive);
        jet::Recordset row = unit.Open(statement);
        QStringList names;
        std::vector<jet::Value> values;
        for (const auto& [name, value] : columns) {
            names.append(name);
            values.push_back(value);
        }
        row.AddNew(names, values);
        row.Update();
        key() = qint32(row.integer(keyColumn));
    });
}

bool ElementRecord::updateRow(const QString& statement)
{
    return keepError(m_lastError, [&] {
        if (ArchiveUnit(m_archive).Execute(statement) == 0) // another program deleted it: it must not count as saved
            throw std::runtime_error(goneText().toStdString());
    });
}

qint32 ElementRecord::count(const QString& statement, const QString& column)
{
    qint32 rows = 0;
    keepError(m_lastError, [&] { rows = qint32(ArchiveUnit(m_archive).Open(statement).integer(column)); });
    return rows;
}
