// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "jet/Value.h"

#include <QString>

// A moment without time zone arithmetic, small enough to keep two for each of 100,000 rows.
struct PackedMoment {
    qint32 julianDay = 0; // 0: no date
    qint32 second = 0; // of the day
};

PackedMoment packed(const jet::LocalMoment& moment);

// "Short Date" of the user's locale; "" for no date.
QString shortDate(PackedMoment moment);
// "Short Date" and "Short Time" with a blank between; "" for no date.
QString shortMoment(PackedMoment moment);
