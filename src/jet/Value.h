// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <stdexcept>
#include <variant>

namespace jet {

// A failure of the engine. what() is UTF-8, written for the user.
class Error : public std::runtime_error {
public:
    explicit Error(const QString& description, int sqliteCode = 0);
    int code() const { return m_code; } // extended SQLite result code, 0 for an error of the dialect

private:
    int m_code;
};

// A moment as it stands in the archive, without a time zone's rules. Both parts are valid or none is.
struct LocalMoment {
    QDate date;
    QTime time;
    bool isValid() const { return date.isValid(); }
};

using Null = std::monostate;

// A value on its way into a column. Dates are local time to the second.
using Value = std::variant<Null, bool, qint64, double, QString, QDateTime>;

} // namespace jet
