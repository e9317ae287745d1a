// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Value.h"

#include <string>
#include <string_view>

namespace jet {

// How 3/7/2024 is read when both numbers could be the month. Year first and dots need no hint.
enum class DateOrder {
    Regional, // as the user's short date has it: text between single quotes
    MonthFirst, // between # signs
};

// The stored form of a moment, 19 characters that sort by time: "2024-03-07 09:05:00". A time alone belongs to
// the day 1899-12-30. Years 100 to 9999. Throws Error when the text is no date.
std::string parseDate(std::string_view text, DateOrder order = DateOrder::Regional);
std::string dateFromSerial(double days); // days since 1899-12-30 with the time as fraction; throws Error
std::string storedDate(const QDateTime& moment); // throws Error for a year out of range

// Reads the stored form quickly, and whatever else another tool may have written. Invalid when it is no date.
LocalMoment readMoment(std::string_view stored);
QDateTime readDate(std::string_view stored);

} // namespace jet
