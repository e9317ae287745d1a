// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <QItemSelection>
#include <utility>

// The rows of a list for which isWanted(row) holds, in its first column. In runs, not row by row: there may be 100,000.
template <typename IsWanted>
QItemSelection selectionOf(const QAbstractItemModel& model, IsWanted isWanted)
{
    QItemSelection selection;
    int first = -1;
    for (int row = 0, rows = model.rowCount(); row <= rows; ++row) {
        const bool isInRun = row < rows && isWanted(row);
        if (isInRun && first < 0)
            first = row;
        if (!isInRun && first >= 0)
            selection.select(model.index(std::exchange(first, -1), 0), model.index(row - 1, 0));
    }
    return selection;
}
