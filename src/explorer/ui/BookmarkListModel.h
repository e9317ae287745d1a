// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/BookmarkRows.h"
#include "explorer/ui/ElementListModel.h"

// The bookmarks of one category: name, link and description.
class BookmarkListModel final : public ElementListModel {
    Q_OBJECT
public:
    explicit BookmarkListModel(QObject* parent = nullptr);
    void setRows(std::vector<BookmarkRow> rows);
    const BookmarkRow& rowAt(int row) const { return m_rows[size_t(elementAt(row))]; }

protected:
    int elementCount() const override { return int(m_rows.size()); }
    qint32 elementId(int element) const override { return m_rows[size_t(element)].id; }
    QString cellText(int element, int column) const override;
    QVariant cellIcon(int element, int column) const override;
    QString keySuffix(int) const override;
    QString tag(int) const override;

private:
    std::vector<BookmarkRow> m_rows;
};
