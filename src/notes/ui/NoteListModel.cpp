// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/ui/NoteListModel.h"

#include "desktop/TextForms.h"
#include "notes/ui/NoteColors.h"
#include "ui/widgets/ShownText.h"

using namespace Qt::StringLiterals;

namespace {

QString tip(const NoteRow& row)
{
    return plainToolTip(row.content) + u"<p><i>"_s + shortMoment(row.date.date, row.date.time) + u"</i></p>"_s;
}

} // namespace

void NoteListModel::setRows(std::vector<NoteRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

QString NoteListModel::keyOf(qint32 id)
{
    return QString::number(id) + u" ItemID"_s;
}

int NoteListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

QVariant NoteListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const NoteRow& row = m_rows[size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return row.content;
    case Qt::AccessibleTextRole:
        return shownHeading(row.content);
    case Qt::ToolTipRole:
        return tip(row);
    case Qt::DecorationRole:
        return noteIcon(row.color);
    case Qt::UserRole:
        return keyOf(row.id);
    default:
        return {};
    }
}
