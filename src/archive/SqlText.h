// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Value.h"

#include <QDateTime>
#include <QString>
#include <vector>

// The pieces from which statements are built as text.

QString quoted(const QString& text); // every ' doubled; the caller writes the outer quotes

// year-month-day hour:minute:second without leading zeros (2005-3-4 9:5:0); empty when `value` is no date.
QString FormatDateSQL(const QDateTime& value);

// The same of parts of a moment: 2005-3-4, 9:5:0 and 2005-3-4 9:5:0. Empty when it is no date or time.
QString sqlDate(const QDate& date);
QString sqlTime(const QTime& time);
QString sqlDateTime(const jet::LocalMoment& moment);

// One UPDATE, column by column, with the blanks in it that the archive has always been written with:
// "UPDATE tab_note SET tab_note.color = 'Green' , tab_note.noteDate = Null WHERE (tab_note.noteID = 7 ) ".
class UpdateText {
public:
    // `gap` stands between two assignments.
    explicit UpdateText(const QString& table, const QString& gap = QStringLiteral(" , "));

    UpdateText& set(const QString& column, const QString& text); // every ' doubled
    UpdateText& set(const QString& column, qint64 number);
    UpdateText& setFlag(const QString& column, bool on); // 1 or 0, a wider gap behind it
    UpdateText& setDate(const QString& column, const QString& date); // Null for "", a wider gap behind that
    UpdateText& put(const QString& column, const QString& value); // as it stands
    // The whole text. `end` stands behind the last assignment.
    QString where(const QString& key, qint64 id, const QString& end = QStringLiteral(" ")) const;

private:
    QString m_text;
    QString m_gap; // of the table
    QString m_nextGap; // before the next assignment
};

// ", " before each identifier, the first character dropped: " 3, 8". Empty for no identifier.
QString idList(const std::vector<qint32>& ids);

// The leading number of a key such as "12 ID" or "7 M_ID"; 0 when there is none.
qint32 leadingNumber(const QString& key);

// The order of names in trees and lists: letter case does not count, accents decide last.
int compareNames(const QString& a, const QString& b);
