// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ElementListModel.h"

#include "ui/widgets/ShownText.h"

#include <algorithm>
#include <numeric>
#include <string_view>

namespace {

struct SortKey {
    quint64 first; // four letters of UTF-16, the first one highest
    int element;
};

quint64 firstLetters(std::u16string_view text)
{
    quint64 letters = 0;
    for (size_t i = 0; i < 4; ++i)
        letters = letters << 16 | (i < text.size() ? quint64(text[i]) : 0);
    return letters;
}

size_t lengthInCommon(std::u16string_view a, std::u16string_view b, size_t most)
{
    most = std::min({most, a.size(), b.size()});
    size_t length = 0;
    while (length < most && a[length] == b[length])
        ++length;
    return length;
}

} // namespace

ElementListModel::ElementListModel(QStringList columns, QObject* parent)
    : QAbstractTableModel(parent), m_columns(std::move(columns))
{
}

int ElementListModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_order.size());
}

int ElementListModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(m_columns.size());
}

QVariant ElementListModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const int element = elementAt(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return cellText(element, index.column());
    case Qt::ToolTipRole:
        return plainToolTip(cellText(element, index.column()));
    case Qt::DecorationRole:
        return cellIcon(element, index.column());
    case KeyRole:
        return elementKey(element).text();
    case TagRole:
        return tag(element);
    default:
        return {};
    }
}

QVariant ElementListModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < m_columns.size())
        return m_columns[section];
    return {};
}

void ElementListModel::sort(int column, Qt::SortOrder order)
{
    m_sortColumn = column;
    m_sortOrder = order;
    emit layoutAboutToBeChanged({}, VerticalSortHint);
    const QModelIndexList before = persistentIndexList();
    const std::vector<int> oldOrder = m_order;
    arrange();
    std::vector<int> newRow(m_order.size());
    for (size_t row = 0; row < m_order.size(); ++row)
        newRow[size_t(m_order[row])] = int(row);
    QModelIndexList after;
    for (const QModelIndex& old : before)
        after.append(index(newRow[size_t(oldOrder[size_t(old.row())])], old.column()));
    changePersistentIndexList(before, after);
    emit layoutChanged({}, VerticalSortHint);
}

void ElementListModel::arrange()
{
    m_order.resize(size_t(elementCount()));
    std::iota(m_order.begin(), m_order.end(), 0);
    if (m_sortColumn < 0)
        return;
    // The texts are folded once, not at each comparison, and lie in one piece of memory. Most comparisons end
    // in the first letters after what all texts begin with.
    std::u16string letters;
    std::vector<size_t> begins(m_order.size() + 1);
    for (size_t i = 0; i < m_order.size(); ++i) {
        begins[i] = letters.size();
        const QString folded = cellText(int(i), m_sortColumn).toCaseFolded();
        letters.append(QStringView(folded).utf16(), size_t(folded.size()));
    }
    begins.back() = letters.size();
    const auto text = [&](size_t i) {
        return std::u16string_view(letters).substr(begins[i], begins[i + 1] - begins[i]);
    };
    size_t common = m_order.empty() ? 0 : text(0).size();
    for (size_t i = 1; i < m_order.size() && common > 0; ++i)
        common = lengthInCommon(text(0), text(i), common);
    std::vector<SortKey> keys(m_order.size());
    for (size_t i = 0; i < keys.size(); ++i)
        keys[i] = {firstLetters(text(i).substr(common)), int(i)};
    const bool ascending = m_sortOrder == Qt::AscendingOrder;
    std::sort(keys.begin(), keys.end(), [&](const SortKey& a, const SortKey& b) {
        if (a.first != b.first)
            return ascending == (a.first < b.first);
        const int order = text(size_t(a.element)).compare(text(size_t(b.element)));
        // Equal texts keep the archive's order, upwards and downwards.
        return order == 0 ? a.element < b.element : ascending == (order < 0);
    });
    std::transform(keys.begin(), keys.end(), m_order.begin(), [](const SortKey& key) { return key.element; });
}
