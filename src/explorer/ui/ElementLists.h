// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/ArchiveRows.h"
#include "explorer/ui/ElementListModel.h"

#include <QIcon>

// The picture behind a key of the lists and the due-date tree: "memo", "bookmark", "todo", "alarm", and the keys of
// tasks/ui/TaskPictures.h. Null for any other key.
QIcon reportIcon(const QString& key);

// The elements of one kind in a category.
class CategoryList : public ElementListModel {
public:
    CategoryList(ElementKind kind, QStringList columns) : ElementListModel(std::move(columns)), m_kind(kind) { }
    ElementKind kind() const { return m_kind; }
    virtual int nameColumn() const { return 0; }
    virtual void read(Archive& archive, qint32 categoryID) = 0; // throws jet::Error; the list keeps what it had then
    virtual void clear() = 0;

protected:
    QVariant cellIcon(int, int column) const override;
    QString tag(int) const override { return wordsOf(m_kind).listTag; }

private:
    ElementKind m_kind;
};

template <typename Row>
class CategoryListOf : public CategoryList {
public:
    using CategoryList::CategoryList;
    void setRows(std::vector<Row> rows)
    {
        refill([&] { m_rows = std::move(rows); });
    }
    void clear() override { setRows({}); }
    const Row& rowAt(int row) const { return m_rows[size_t(elementAt(row))]; }

protected:
    int elementCount() const override { return int(m_rows.size()); }
    ElementKey elementKey(int element) const override { return {kind(), m_rows[size_t(element)].id}; }

    std::vector<Row> m_rows; // in the archive's order
};

class MemoList final : public CategoryListOf<MemoRow> {
public:
    MemoList();
    void read(Archive& archive, qint32 categoryID) override { setRows(readMemoRows(archive, categoryID)); }

protected:
    QString cellText(int element, int column) const override;
};

class BookmarkList final : public CategoryListOf<BookmarkRow> {
public:
    BookmarkList();
    void read(Archive& archive, qint32 categoryID) override { setRows(readBookmarkRows(archive, categoryID)); }

protected:
    QString cellText(int element, int column) const override;
};

// The first column is the check box of the done flag: setData() of Qt::CheckStateRole only tells of the wish, the list
// shows what the archive holds.
class ToDoList final : public CategoryListOf<ToDoRow> {
    Q_OBJECT
public:
    enum Column { DoneColumn, NameColumn, PriorityColumn, PercentColumn, StatusColumn, DueDateColumn };

    ToDoList();
    int nameColumn() const override { return NameColumn; }
    void read(Archive& archive, qint32 categoryID) override { setRows(readToDoRows(archive, categoryID)); }

    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

signals:
    void doneToggled(qint32 todoID, bool done); // the list may be filled again meanwhile

protected:
    QString cellText(int element, int column) const override;
    QVariant cellIcon(int element, int column) const override;
};
