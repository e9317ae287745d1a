// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/ui/NoteListModel.h"

#include "desktop/TextForms.h"
#include "notes/ui/NoteColors.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// The text as it stands, and no more of it than fits a tip.
QString tip(const NoteRow& row)
{
    constexpr qsizetype longest = 1000; // characters
    const QString text = row.content.size() > longest ? row.content.left(longest) + u'…' : row.content;
    return u"<p style='white-space:pre-wrap'>"_s + text.toHtmlEscaped() + u"</p><p><i>"_s +
        shortMoment(row.date.date, row.date.time) + u"</i></p>"_s;
}

} // namespace

void NoteListModel::setRows(std::vector<NoteRow> rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

int NoteListModel::rowOf(qint32 id) const
{
    const auto row = std::find_if(m_rows.begin(), m_rows.end(), [&](const NoteRow& note) { return note.id == id; });
    return row == m_rows.end() ? -1 : int(row - m_rows.begin());
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
        return noteHeading(row.content);
    case Qt::ToolTipRole:
        return tip(row);
    case Qt::DecorationRole:
        return noteIcon(row.color);
    case KeyRole:
        return QString::number(row.id) + u" ItemID"_s;
    default:
        return {};
    }
}
