// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/MemoRows.h"
#include "explorer/ui/ElementListModel.h"

// The memos of one category: name and both dates.
class MemoListModel final : public ElementListModel {
    Q_OBJECT
public:
    explicit MemoListModel(QObject* parent = nullptr);
    void setRows(std::vector<MemoRow> rows);
    void clear() { setRows({}); }

protected:
    int elementCount() const override { return int(m_rows.size()); }
    qint32 elementId(int element) const override { return m_rows[size_t(element)].id; }
    QString cellText(int element, int column) const override;
    QVariant cellIcon(int element, int column) const override;
    QString keySuffix(int) const override;
    QString tag(int) const override;

private:
    std::vector<MemoRow> m_rows;
};
