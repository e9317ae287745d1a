// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "vault/PasswordRows.h"

#include <QAbstractTableModel>

// The accounts of the password list in the archive's order. Passwords show as eight asterisks or, while they are
// shown, as themselves; the tag of a password's cell is the password either way.
class PasswordListModel final : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Title, Description, UserName, Password, Url, ColumnCount };
    enum Role { KeyRole = Qt::UserRole, TagRole }; // "5 ItemID" in every cell

    explicit PasswordListModel(QObject* parent = nullptr);
    ~PasswordListModel() override; // wipes

    void setRows(std::vector<PasswordRow> rows); // the rows before are wiped
    static QString keyOf(qint32 id);
    void setPasswordsShown(bool shown);
    bool passwordsShown() const { return m_isShown; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString cellText(const PasswordRow& row, int column) const;

    std::vector<PasswordRow> m_rows;
    bool m_isShown = false;
};
