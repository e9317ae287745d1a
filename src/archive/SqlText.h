// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>
#include <vector>

// The pieces from which statements are built as text.

QString quoted(const QString& text); // every ' doubled; the caller writes the outer quotes

// year-month-day hour:minute:second without leading zeros (2005-3-4 9:5:0); empty when `value` is no date.
QString FormatDateSQL(const QDateTime& value);

// ", " before each identifier, the first character dropped: " 3, 8". Empty for no identifier.
QString idList(const std::vector<qint32>& ids);

// The leading number of a key such as "12 ID" or "7 M_ID"; 0 when there is none.
qint32 leadingNumber(const QString& key);

// The order of names in trees and lists: letter case does not count, accents decide last.
int compareNames(const QString& a, const QString& b);
