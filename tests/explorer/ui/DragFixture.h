// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/UiSupport.h"

#include "archive/Element.h"
#include "archive/cCategory.h"
#include "explorer/ui/CategoryTreeModel.h"
#include "explorer/ui/DropHover.h"
#include "explorer/ui/ExplorerTreeView.h"
#include "explorer/ui/frmSnipValeS.h"
#include "memo/cBookmark.h"
#include "memo/cMemo.h"

#include <QStackedWidget>
#include <QtTest>

// An explorer to drag in. The tree, all of it expanded:
//   0 Code Root
//     2 Bookmarks > 20 links
//     1 Code > 10 inner > 11 innermost
//     3 ToDo > 30 later
// Category 1 holds the memos 1 to 5, 2 the bookmarks 1 to 3, 3 the to-dos 1 to 3.
struct DragExplorer : UiFixture {
    DragExplorer() : filled(fill()), window({archive, desktop, frame, filter, memo, bookmark, category}, nullptr)
    {
        window.resize(1000, 600);
        window.show();
        QCoreApplication::processEvents(); // lays it out
        tree().expandAll();
        statements.clear();
    }

    ExplorerTreeView& tree() { return *window.findChild<ExplorerTreeView*>(); }
    CategoryTreeModel& model() { return *static_cast<CategoryTreeModel*>(tree().model()); }
    ElementListView& list(const char* name) { return *window.findChild<ElementListView*>(QString::fromLatin1(name)); }
    DropHover& hover() { return *tree().findChild<DropHover*>(); }
    QString section() { return window.findChild<QStackedWidget*>()->currentWidget()->objectName(); }

    QModelIndex node(int id) { return model().indexOf(QString::number(id) + QStringLiteral(" ID")); }
    QPoint nodeAt(int id) { return tree().visualRect(node(id)).center(); } // in the tree's viewport
    static QPoint rowAt(ElementListView& list, int row)
    {
        return list.visualRect(list.model()->index(row, 0)).center();
    }
    void show(int id)
    {
        tree().selectSilently(node(id));
        window.clickSelectedNode();
    }
    static void select(ElementListView& list, int first, int last)
    {
        const QAbstractItemModel& model = *list.model();
        list.selectionModel()->select(QItemSelection(model.index(first, 0), model.index(last, 0)),
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }

    // "1 2 3": the elements of a category
    QString filedIn(const QString& table, const QString& key, int categoryID)
    {
        QStringList ids;
        jet::Connection connection;
        connection.Open(archive.ConnectionString());
        const QString sql = QStringLiteral("SELECT %2 FROM %1 WHERE categoryID = %3 ORDER BY %2");
        jet::Recordset rows = connection.OpenRecordset(sql.arg(table, key).arg(categoryID));
        for (; !rows.eof(); rows.moveNext())
            ids.append(rows.text(0));
        return ids.join(u' ');
    }
    QString memosIn(int id) { return filedIn(QStringLiteral("tab_memo"), QStringLiteral("memoID"), id); }
    QString parentOf(int id)
    {
        return value(QStringLiteral("SELECT parentID FROM tab_category WHERE categoryID = %1").arg(id));
    }

private:
    bool fill()
    {
        ArchiveUnit unit(archive);
        for (const char* row :
             {"20, 2, 1, 'links'", "10, 1, 0, 'inner'", "11, 10, 0, 'innermost'", "30, 3, 2, 'later'"})
            unit.Execute(QStringLiteral("INSERT INTO tab_category (categoryID, parentID, type, name) VALUES (%1)")
                             .arg(QString::fromLatin1(row)));
        for (int i = 1; i <= 5; ++i)
            unit.Execute(QStringLiteral("INSERT INTO tab_memo (memoID, categoryID, memoTypeID, memoName) "
                                        "VALUES (%1, 1, 3, 'memo %1')")
                             .arg(i));
        for (int i = 1; i <= 3; ++i) {
            unit.Execute(
                QStringLiteral("INSERT INTO tab_bookmark (bookmarkID, categoryID, name) VALUES (%1, 2, 'b %1')")
                    .arg(i));
            unit.Execute(
                QStringLiteral("INSERT INTO tab_todo (todoID, categoryID, name) VALUES (%1, 3, 't %1')").arg(i));
        }
        return true;
    }

public:
    cViewFilter filter;
    cMemo memo{archive};
    cBookmark bookmark{archive};
    cCategory category{archive};
    bool filled; // before the explorer reads it
    frmSnipValeS window;
};
