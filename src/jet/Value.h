// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Error.h"

#include <QDateTime>
#include <QString>
#include <variant>

namespace jet {

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
