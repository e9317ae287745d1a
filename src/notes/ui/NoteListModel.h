// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "notes/NoteRows.h"

#include <QAbstractListModel>

// The notes of the list: the whole text, a sheet in its colour, and as key (Qt::UserRole) "12 ItemID".
class NoteListModel final : public QAbstractListModel {
    Q_OBJECT
public:
    using QAbstractListModel::QAbstractListModel;

    void setRows(std::vector<NoteRow> rows);
    static QString keyOf(qint32 id);

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<NoteRow> m_rows;
};
