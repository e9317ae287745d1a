// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/UiSupport.h"

#include "archive/Element.h"
#include "archive/cCategory.h"
#include "explorer/ui/CategoryTreeModel.h"
#include "explorer/ui/frmSnipValeS.h"
#include "memo/cBookmark.h"
#include "memo/cMemo.h"

#include <QHeaderView>
#include <QLabel>
#include <QStackedWidget>
#include <QtTest>

// An explorer over an archive with the categories 1 Code, 2 Bookmarks, 3 ToDo.
struct Explorer : UiFixture {
    Explorer() : window({archive, desktop, frame, filter, memo, bookmark, category}, nullptr)
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
    QTreeView& tree() { return find<QTreeView>("tvTreeView"); }
    ElementListView& list(const char* name = "lvwMemo") { return find<ElementListView>(name); }
    QString label(const char* name) { return find<QLabel>(name).text(); }
    QString section() { return window.findChild<QStackedWidget*>()->currentWidget()->objectName(); }
    QModelIndex node(const QString& key) { return static_cast<CategoryTreeModel*>(tree().model())->indexOf(key); }
    bool enabled(const char* command) { return frame.enabledCommands.value(QString::fromLatin1(command)); }

    void click(const QString& key)
    {
        tree().expandAll();
        QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, tree().visualRect(node(key)).center());
    }
    void clickHeader(const char* name, int column)
    {
        QHeaderView* bar = list(name).header();
        QTest::mouseClick(bar->viewport(), Qt::LeftButton, {}, QPoint(bar->sectionViewportPosition(column) + 12, 8));
    }
    QPoint cellOf(ElementListView& view, int row, int column = 0)
    {
        return view.visualRect(view.model()->index(row, column)).center();
    }
    QStringList texts(const char* name, int column = 0)
    {
        QStringList found;
        for (int row = 0; row < list(name).model()->rowCount(); ++row)
            found.append(list(name).model()->index(row, column).data().toString());
        return found;
    }

    void run(const QString& sql)
    {
        ArchiveUnit unit(archive);
        unit.Execute(sql);
        statements.removeLast();
    }
    void addMemo(const QString& name)
    {
        run(QStringLiteral("INSERT INTO tab_memo (categoryID, memoTypeID, memoName, dateIn) VALUES (1, 3, '%1', "
                           "'2026-3-4 9:5:0')")
                .arg(name));
    }
    void addBookmark(const QString& name, const QString& url = {})
    {
        run(QStringLiteral("INSERT INTO tab_bookmark (categoryID, name, url) VALUES (2, '%1', '%2')").arg(name, url));
    }
    void addToDo(const QString& name, int priority = 0)
    {
        run(QStringLiteral("INSERT INTO tab_todo (categoryID, name, priority) VALUES (3, '%1', %2)")
                .arg(name)
                .arg(priority));
    }

    cViewFilter filter;
    cMemo memo{archive};
    cBookmark bookmark{archive};
    cCategory category{archive};
    frmSnipValeS window;
};
