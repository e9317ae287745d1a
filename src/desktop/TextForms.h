// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

// The forms of texts that all rooms share.

// "Short Date" of the user's locale, and with "Short Time" behind it; "" for no date. Quick for lists of any length.
QString shortDate(const QDate& date);
QString shortMoment(const QDate& date, const QTime& time);
QString shortMoment(const QDateTime& moment);

// An address of the web. The two schemes count as they are: in capital letters they are none.
bool isWebAddress(const QString& text);

// Bytes that are Windows-1252. Never fails: the five bytes that mean nothing there become the control characters of
// their numbers.
QString westernText(const QByteArray& bytes);
