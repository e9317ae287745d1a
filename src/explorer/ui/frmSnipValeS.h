// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/cCategory.h"
#include "explorer/ui/ElementPane.h"
#include "ui/widgets/ListView.h"

#include <QWidget>
#include <memory>

class BookmarkPane;
class CategoryTreeModel;
class DragDrop;
class MemoPane;
class SearchPane;
class ToDoPane;
class WelcomePage;

namespace Ui {
class frmSnipValeS;
}

// The explorer: the category tree on the left, on the right what the selected node holds.
class frmSnipValeS : public QWidget, public CategoryTree, public ElementListener {
    Q_OBJECT
public:
    frmSnipValeS(const ExplorerContext& context, QWidget* parent);
    ~frmSnipValeS() override;

    void LoadTreeView();
    void tvTreeView_NodeClick(const QModelIndex& node);
    void cameToFront(); // from behind another view: numbers that may have changed meanwhile, and the status text
    void ShowSection(const QString& section); // "Welcome", "Memo", "Bookmark", "ToDo"
    void CategoryExpandAll(bool expand);

    void NewCategory();
    void ModifyCategory();
    void DeleteCategory();
    MemoPane& memos() { return *m_memos; }
    BookmarkPane& bookmarks() { return *m_bookmarks; }
    ToDoPane& toDos() { return *m_toDos; }
    SearchPane& search() { return *m_search; }

    bool SelectElementInTreeView(); // shows the selected hit in its category; false when that failed or there is none
    void OpenSearchElement(); // the same, and then opens it

    // CategoryTree
    const CategoryNode* selectedNode() const override;
    std::vector<qint32> childrenOf(qint32 categoryID) const override;
    void renameNode(qint32 categoryID, const QString& text) override;
    void addNode(qint32 parentID, const CategoryNode& node) override;
    void clickSelectedNode() override;
    // ElementListener
    qint32 selectedCategory() const override;
    void elementSaved(const ElementKey& key) override;

private:
    void wireTree();
    void makeTreeToolBar();
    void goHome();
    void showToDo(qint32 categoryID, qint32 toDoID);
    void editCategory();
    void makePanes();
    void showCategory(const QModelIndex& node);
    ElementPane& paneOf(ElementKind kind) const;
    QWidget* pageOf(ElementKind kind) const;

    std::unique_ptr<Ui::frmSnipValeS> m_ui;
    ExplorerContext m_context;
    SortDirection m_sort;
    qint64 m_hiddenCategories = 0; // that the user was told of
    CategoryTreeModel* m_tree;
    WelcomePage* m_welcome;
    MemoPane* m_memos;
    BookmarkPane* m_bookmarks;
    ToDoPane* m_toDos;
    SearchPane* m_search;
    std::unique_ptr<DragDrop> m_drag; // must not outlive the views that it watches
};
