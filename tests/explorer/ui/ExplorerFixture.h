// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/UiSupport.h"

#include "archive/cCategory.h"
#include "explorer/ui/CategoryTreeModel.h"
#include "explorer/ui/DropHover.h"
#include "explorer/ui/ElementPanes.h"
#include "explorer/ui/ExplorerTreeView.h"
#include "explorer/ui/frmSnipValeS.h"
#include "memo/cBookmark.h"
#include "memo/cMemo.h"

#include <QHeaderView>
#include <QLabel>
#include <QStackedWidget>
#include <QtTest>

// The number of the category of a kind in a new archive: 1 Code, 2 Bookmarks, 3 ToDo.
inline int categoryOf(ElementKind kind)
{
    return int(kind) + 1;
}

inline QString keyOf(ElementKind kind, int id)
{
    return ElementKey{kind, id}.text();
}

// An explorer over an archive that holds what `fill` put there, by default nothing but its first categories.
struct Explorer : UiFixture {
    explicit Explorer(const std::function<void(Explorer&)>& fill = {})
        : filled(fill && (fill(*this), true)),
          window({archive, desktop, frame, filter, memo, bookmark, category}, nullptr)
    {
        window.resize(1000, 600);
        window.show();
        statements.clear();
    }

    template <typename Widget>
    Widget& find(const char* name)
    {
        return *window.findChild<Widget*>(QString::fromLatin1(name));
    }
    ExplorerTreeView& tree() { return find<ExplorerTreeView>("tvTreeView"); }
    CategoryTreeModel& model() { return *static_cast<CategoryTreeModel*>(tree().model()); }
    ListView& list(ElementKind kind = ElementKind::Memo)
    {
        return find<ListView>(("lvw" + wordsOf(kind).name.toLatin1()).constData());
    }
    QString label(const char* name) { return find<QLabel>(name).text(); }
    QString section() { return window.findChild<QStackedWidget*>()->currentWidget()->objectName(); }
    bool enabled(const QString& command) { return frame.enabledCommands.value(command); }
    int selected() { return window.selectedNode()->id; }

    QModelIndex node(int id) { return model().indexOf(id); }
    QPoint nodeAt(int id) { return tree().visualRect(node(id)).center(); } // in the tree's viewport
    void click(int id)
    {
        tree().expandAll();
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, nodeAt(id));
    }
    void click(ElementKind kind) { click(categoryOf(kind)); }
    static QPoint cellAt(ListView& view, int row, int column = 0)
    {
        return view.visualRect(view.model()->index(row, column)).center();
    }
    static QPoint below(ListView& view) { return {100, view.viewport()->height() - 8}; } // empty space
    static QStringList texts(ListView& view, int column = -1)
    {
        QStringList found;
        for (int row = 0; row < view.model()->rowCount(); ++row)
            found.append(view.model()->index(row, column < 0 ? view.nameColumn() : column).data().toString());
        return found;
    }

    void run(const QString& sql) { ArchiveUnit(archive).Execute(sql); }
    void addCategory(const QString& values) // "id, parent, type, 'name'"
    {
        run(QStringLiteral("INSERT INTO tab_category (categoryID, parentID, type, name) VALUES (%1)").arg(values));
    }
    // Elements of a kind in its first category; bookmarks have a link, to-dos the priority "Low".
    void add(ElementKind kind, const QStringList& names)
    {
        const char* const inserts[] = {
            "INSERT INTO tab_memo (categoryID, memoTypeID, memoName) VALUES (1, 3, '%1')",
            "INSERT INTO tab_bookmark (categoryID, url, name) VALUES (2, 'https://example.org/', '%1')",
            "INSERT INTO tab_todo (categoryID, priority, name) VALUES (3, 2, '%1')"};
        ArchiveUnit unit(archive);
        jet::Connection::Transaction transaction(unit.connection());
        for (const QString& name : names)
            unit.Execute(QString::fromLatin1(inserts[size_t(kind)]).arg(name));
        transaction.commit();
    }
    // From here on the archive cannot be opened.
    void loseArchive() { archive.setPath(scratch.path(QStringLiteral("gone.SVA"))); }

    cViewFilter filter;
    cMemo memo{archive};
    cBookmark bookmark{archive};
    cCategory category{archive};
    bool filled; // before the explorer reads it
    frmSnipValeS window;
};

// An explorer to drag in. The tree, all of it expanded:
//   0 Code Root
//     2 Bookmarks > 20 links
//     1 Code > 10 inner > 11 innermost
//     3 ToDo > 30 later
// Category 1 holds the memos 1 to 5, 2 the bookmarks 1 to 3, 3 the to-dos 1 to 3.
struct DragExplorer : Explorer {
    DragExplorer() : Explorer(fill)
    {
        QCoreApplication::processEvents(); // lays it out
        tree().expandAll();
    }

    DropHover& hover() { return *tree().findChild<DropHover*>(); }
    void show(int id)
    {
        tree().selectSilently(node(id));
        window.clickSelectedNode();
    }
    static void select(ListView& list, int first, int last)
    {
        const QAbstractItemModel& model = *list.model();
        list.selectionModel()->select(QItemSelection(model.index(first, 0), model.index(last, 0)),
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }

    // "1 2 3": the elements of a category
    QString filedIn(int categoryID, ElementKind kind = ElementKind::Memo)
    {
        QStringList ids;
        ArchiveUnit unit(archive);
        jet::Recordset rows =
            unit.Open(QStringLiteral("SELECT %2 FROM %1 WHERE categoryID = %3 ORDER BY %2")
                          .arg(wordsOf(kind).table, wordsOf(kind).keyColumn, QString::number(categoryID)));
        for (; !rows.eof(); rows.moveNext())
            ids.append(rows.text(0));
        return ids.join(u' ');
    }
    QString parentOf(int id)
    {
        return value(QStringLiteral("SELECT parentID FROM tab_category WHERE categoryID = %1").arg(id));
    }

private:
    static void fill(Explorer& e)
    {
        for (const char* category :
             {"20, 2, 1, 'links'", "10, 1, 0, 'inner'", "11, 10, 0, 'innermost'", "30, 3, 2, 'later'"})
            e.addCategory(QString::fromLatin1(category));
        for (const ElementKind kind : elementKinds)
            e.add(kind, {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
        e.add(ElementKind::Memo, {QStringLiteral("d"), QStringLiteral("e")});
    }
};
