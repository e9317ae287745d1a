// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/ui/PasswordListModel.h"

#include "ui/widgets/Icons.h"
#include "ui/widgets/ShownText.h"

using namespace Qt::StringLiterals;

namespace {

QIcon notSpecified()
{
    static const QIcon icon = themedIcon(u"question"_s);
    return icon;
}

} // namespace

PasswordListModel::PasswordListModel(QObject* parent) : QAbstractTableModel(parent) { }

PasswordListModel::~PasswordListModel()
{
    wipePasswordRows(m_rows);
}

void PasswordListModel::setRows(std::vector<PasswordRow> rows)
{
    beginResetModel();
    m_rows.swap(rows);
    endResetModel();
    wipePasswordRows(rows);
}

void PasswordListModel::setPasswordsShown(bool shown)
{
    if (m_isShown == shown)
        return;
    m_isShown = shown;
    if (!m_rows.empty())
        emit dataChanged(index(0, Password), index(int(m_rows.size()) - 1, Password));
}

QString PasswordListModel::keyOf(qint32 id)
{
    return QString::number(id) + u" ItemID"_s;
}

int PasswordListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_rows.size());
}

int PasswordListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(ColumnCount);
}

QString PasswordListModel::cellText(const PasswordRow& row, int column) const
{
    switch (column) {
    case Title:
        return row.title;
    case Description:
        return row.description;
    case UserName:
        return row.userName;
    case Password:
        return m_isShown ? row.password : u"********"_s;
    default:
        return row.url;
    }
}

QVariant PasswordListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const PasswordRow& row = m_rows[size_t(index.row())];
    const bool isWithoutCategory = index.column() == Title && row.categoryID == 0;
    switch (role) {
    case Qt::DisplayRole:
        return cellText(row, index.column());
    case Qt::ToolTipRole: // asterisks tell nothing
        return index.column() == Password && !m_isShown ? QString() : plainToolTip(cellText(row, index.column()));
    case Qt::DecorationRole:
        return isWithoutCategory ? QVariant(notSpecified()) : QVariant();
    case Qt::AccessibleDescriptionRole: // what the picture says
        return isWithoutCategory ? u"Category not specified"_s : QString();
    case KeyRole:
        return keyOf(row.id);
    case TagRole:
        return index.column() == Password ? QVariant(row.password) : QVariant();
    default:
        return {};
    }
}

QVariant PasswordListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QString titles[] = {u"Title"_s, u"Description"_s, u"UserName"_s, u"Password"_s, u"URL"_s};
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < ColumnCount)
        return titles[section];
    return {};
}
