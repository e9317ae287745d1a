// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/frmSnipValeS.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/cCategory.h"
#include "archive/ui/frmCategory.h"
#include "desktop/Desktop.h"
#include "desktop/FrameServices.h"
#include "desktop/Questions.h"
#include "explorer/ui/CategoryTreeModel.h"
#include "explorer/ui/DragDrop.h"
#include "explorer/ui/ElementPanes.h"
#include "explorer/ui/SearchPane.h"
#include "explorer/ui/WelcomePage.h"
#include "ui/widgets/Icons.h"
#include "ui/widgets/ShownText.h"
#include "ui_frmSnipValeS.h"

#include <QAction>
#include <stdexcept>

#include <utility>

using namespace Qt::StringLiterals;

frmSnipValeS::frmSnipValeS(const ExplorerContext& context, QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::frmSnipValeS>()), m_context(context),
      m_tree(new CategoryTreeModel(this))
{
    m_ui->setupUi(this);
    m_ui->vSplitter->setStretchFactor(0, 0);
    m_ui->vSplitter->setStretchFactor(1, 1);
    m_ui->vSplitter->setSizes({fontMetrics().averageCharWidth() * 38, fontMetrics().averageCharWidth() * 120});
    makePanes();
    makeTreeToolBar();
    wireTree();
    const DragViews views{*m_tree, *m_ui->tvTreeView, {m_ui->lvwMemo, m_ui->lvwBookmark, m_ui->lvwToDo}};
    m_drag = std::make_unique<DragDrop>(*this, m_context, views);
    LoadTreeView();
}

frmSnipValeS::~frmSnipValeS() = default;

void frmSnipValeS::makePanes()
{
    m_welcome = new WelcomePage(*m_ui, m_context.archive, this);
    m_memos = new MemoPane({*m_ui->lvwMemo, m_context, *this, m_sort, this});
    m_bookmarks = new BookmarkPane({*m_ui->lvwBookmark, m_context, *this, m_sort, this});
    m_toDos = new ToDoPane({*m_ui->lvwToDo, m_context, *this, m_sort, this});
    const auto pathOf = [this](qint32 categoryID) {
        const QModelIndex node = m_tree->indexOf(categoryID);
        return m_tree->fullPath(node).mid(m_tree->fullPath(m_tree->rootIndex()).size() + 1);
    };
    m_search = new SearchPane(*m_ui, m_context.archive, m_context.frame, m_sort, pathOf, this);
    connect(m_welcome, &WelcomePage::toDoChosen, this, &frmSnipValeS::showToDo);
    connect(m_search, &SearchPane::openRequested, this, &frmSnipValeS::OpenSearchElement);
    connect(m_search, &SearchPane::elementsDeleted, this, &frmSnipValeS::clickSelectedNode);
}

void frmSnipValeS::wireTree()
{
    ExplorerTreeView* view = m_ui->tvTreeView;
    view->setModel(m_tree);
    connect(view, &ExplorerTreeView::nodeClicked, this, &frmSnipValeS::tvTreeView_NodeClick);
    connect(view, &ExplorerTreeView::deleteRequested, this, &frmSnipValeS::DeleteCategory);
    connect(view, &ExplorerTreeView::renameRequested, this,
            [this] { m_context.frame.runCommand(u"miCategoryModify"_s); });
    connect(view, &ExplorerTreeView::menuRequested, this, [this](const QPoint& position, bool overNode) {
        // Deleting the root is refused with a message; there is nothing of it to modify.
        m_context.frame.enableCommand(u"miCategoryModify"_s, overNode && selectedCategory() != 0);
        m_context.frame.enableCommand(u"miCategoryDelete"_s, overNode);
        m_context.frame.popupMenu(u"mnuCategory"_s, position);
    });
}

void frmSnipValeS::makeTreeToolBar()
{
    const auto add = [this](const QString& key, const QString& tip, const QString& icon, auto&& run) {
        QAction* action = m_ui->tbToolBarTree->addAction(themedIcon(icon), tip);
        action->setObjectName(key);
        connect(action, &QAction::triggered, this, run);
    };
    add(u"Home"_s, u"Home"_s, u"go-home"_s, [this] { goHome(); });
    add(u"ExpandAll"_s, u"Expand all"_s, u"expand-all"_s, [this] {
        CategoryExpandAll(true);
        goHome();
    });
    add(u"CollapseAll"_s, u"Collapse all"_s, u"collapse-all"_s, [this] {
        CategoryExpandAll(false);
        goHome();
    });
}

void frmSnipValeS::LoadTreeView()
{
    for (const ElementKind kind : elementKinds)
        paneOf(kind).clear();
    CategoryRows rows;
    const bool read =
        trapErrors(m_context.archive.questions(), u"LoadTreeView"_s, [&] { rows = readCategories(m_context.archive); });
    m_tree->setRows(rows.reached);
    m_ui->tvTreeView->expand(m_tree->rootIndex());
    m_ui->tvTreeView->selectSilently(m_tree->rootIndex());
    if (!read)
        return;
    tvTreeView_NodeClick(m_tree->rootIndex());
    if (std::exchange(m_hiddenCategories, rows.hidden) == rows.hidden || rows.hidden <= 0)
        return; // said once is enough
    m_context.archive.questions().ask(
        QString::number(rows.hidden) +
            u" categories of this archive cannot be shown in the tree: the category above them is "
            "missing, or they lie below themselves. The search still finds what is in them."_s,
        MessageStyle::Exclamation);
}

void frmSnipValeS::tvTreeView_NodeClick(const QModelIndex& node)
{
    const CategoryNode category = *m_tree->category(node);
    const CategoryNode* parent = m_tree->category(node.parent());
    m_context.category.CategoryID = category.id;
    m_context.category.CategoryParentID = parent ? parent->id : 0;
    m_tree->setSelected(node);
    const QString path = m_tree->fullPath(node);
    m_ui->lblFolderName->setToolTip(plainToolTip(path));
    if (category.id == 0) {
        ShowSection(u"Welcome"_s);
        m_ui->lblFolderName->setText(u" Memo"_s);
    } else {
        const QString& name = wordsOf(category.kind).name;
        ShowSection(name);
        paneOf(category.kind).makeColumns();
        paneOf(category.kind).makeContents();
        const QString end = category.kind == ElementKind::Bookmark ? QString() : u" "_s;
        m_ui->lblFolderName->setText(u" %1 - %2%3"_s.arg(name, path, end));
    }
    m_context.frame.enableCommand(u"miCategoryNew"_s, true);
    m_context.frame.enableCommand(u"miCategoryModify"_s, category.id != 0);
    m_context.frame.enableCommand(u"miCategoryDelete"_s, category.id != 0);
}

void frmSnipValeS::ShowSection(const QString& section)
{
    for (const ElementKind kind : elementKinds) {
        const QString& name = wordsOf(kind).name;
        const bool isShown = section == name;
        if (isShown)
            m_ui->stkSections->setCurrentWidget(pageOf(kind));
        paneOf(kind).setInFront(isShown);
        m_context.frame.enableCommand(u"mi%1New"_s.arg(name), isShown);
        m_context.frame.enableCommand(u"mi%1Delete"_s.arg(name), isShown);
    }
    if (section != "Welcome"_L1)
        return;
    m_ui->stkSections->setCurrentWidget(m_ui->picWelcome);
    m_welcome->ShowSummary();
    m_welcome->LoadTodoTree();
}

void frmSnipValeS::cameToFront()
{
    for (const ElementKind kind : elementKinds)
        if (m_ui->stkSections->currentWidget() == pageOf(kind))
            return paneOf(kind).UpdateStatusBar();
    m_welcome->ShowSummary();
    m_welcome->LoadTodoTree();
    m_context.frame.setStatus(u"SnipVale"_s);
}

void frmSnipValeS::CategoryExpandAll(bool expand)
{
    if (expand)
        m_ui->tvTreeView->expandAll();
    else
        m_ui->tvTreeView->collapseAll();
}

void frmSnipValeS::goHome()
{
    showCategory(m_tree->rootIndex());
}

void frmSnipValeS::showCategory(const QModelIndex& node)
{
    m_ui->tvTreeView->selectSilently(node);
    tvTreeView_NodeClick(node);
}

void frmSnipValeS::showToDo(qint32 categoryID, qint32 toDoID)
{
    const QModelIndex node = m_tree->indexOf(categoryID);
    if (!node.isValid())
        return;
    showCategory(node);
    ShowSection(u"ToDo"_s);
    m_toDos->select(toDoID);
}

ElementPane& frmSnipValeS::paneOf(ElementKind kind) const
{
    ElementPane* const panes[] = {m_memos, m_bookmarks, m_toDos};
    return *panes[size_t(kind)];
}

QWidget* frmSnipValeS::pageOf(ElementKind kind) const
{
    QWidget* const pages[] = {m_ui->lvwMemo, m_ui->picBookmark, m_ui->picToDo};
    return pages[size_t(kind)];
}

bool frmSnipValeS::SelectElementInTreeView()
{
    const std::optional<SearchHit> hit = m_search->selectedHit();
    return hit && trapErrors(m_context.archive.questions(), u"SelectElementInTreeView"_s, [&] {
               const QModelIndex node = m_tree->indexOf(hit->categoryID);
               if (!node.isValid())
                   throw std::runtime_error("The category is no longer in the tree.");
               showCategory(node);
               ShowSection(wordsOf(hit->key.kind).name);
               paneOf(hit->key.kind).select(hit->key.id);
           });
}

void frmSnipValeS::OpenSearchElement()
{
    const std::optional<SearchHit> hit = m_search->selectedHit();
    if (!hit)
        m_context.archive.questions().ask(u"Error: Nothing is selected"_s, MessageStyle::Critical);
    else if (SelectElementInTreeView())
        paneOf(hit->key.kind).openElement(hit->key.id);
}

void frmSnipValeS::NewCategory()
{
    m_context.category.EditingMode = 0;
    editCategory();
}

void frmSnipValeS::ModifyCategory()
{
    const CategoryNode* node = selectedNode();
    if (!node) {
        m_context.archive.questions().ask(u"Alert: select a folder!"_s, MessageStyle::Information);
        return;
    }
    m_context.category.EditingMode = -1;
    m_context.category.CategoryID = node->id;
    editCategory();
}

void frmSnipValeS::editCategory()
{
    setCursor(Qt::WaitCursor);
    frmCategory(m_context.category, *this, m_context.archive.questions(), window()).exec();
    unsetCursor();
}

void frmSnipValeS::DeleteCategory()
{
    const CategoryNode* node = selectedNode();
    if (!node)
        return;
    trapErrors(m_context.archive.questions(), u"DeleteCategory"_s, [&] {
        Questions& questions = m_context.archive.questions();
        if (node->id == 0) {
            questions.ask(u"You cannot delete Root Code"_s, MessageStyle::Exclamation);
            return;
        }
        const QString text = u"Are you sure you want to delete selected categories '"_s +
            m_tree->fullPath(m_ui->tvTreeView->currentIndex()) +
            u"' ? \r\nATTENTION: this will delete all elements too!"_s;
        if (questions.ask(text, MessageStyle::YesNoDefaultNo, u"Deleting "_s) != Answer::Yes)
            return;
        cCategory& category = m_context.category;
        category.CategoryIDsPath = QString::number(node->id);
        category.TraverseTree(*this, node->key());
        category.Delete(category.CategoryIDsPath);
        LoadTreeView();
    });
}

const CategoryNode* frmSnipValeS::selectedNode() const
{
    return m_tree->category(m_ui->tvTreeView->currentIndex());
}

std::vector<qint32> frmSnipValeS::childrenOf(qint32 categoryID) const
{
    return m_tree->childrenOf(categoryID);
}

void frmSnipValeS::renameNode(qint32 categoryID, const QString& text)
{
    m_tree->rename(categoryID, text);
}

void frmSnipValeS::addNode(qint32 parentID, const CategoryNode& node)
{
    const QModelIndex added = m_tree->add(parentID, node);
    if (added.isValid())
        m_ui->tvTreeView->selectSilently(added);
}

void frmSnipValeS::clickSelectedNode()
{
    if (const QModelIndex node = m_ui->tvTreeView->currentIndex(); node.isValid())
        tvTreeView_NodeClick(node);
}

qint32 frmSnipValeS::selectedCategory() const
{
    const CategoryNode* node = selectedNode();
    return node ? node->id : 0;
}

void frmSnipValeS::elementSaved(const ElementKey& key)
{
    clickSelectedNode();
    paneOf(key.kind).select(key.id);
}
