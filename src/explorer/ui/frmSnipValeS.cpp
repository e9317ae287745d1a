// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/frmSnipValeS.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "archive/cCategory.h"
#include "archive/ui/frmCategory.h"
#include "desktop/Desktop.h"
#include "desktop/FrameServices.h"
#include "desktop/Questions.h"
#include "explorer/ui/BookmarkPane.h"
#include "explorer/ui/CategoryTreeModel.h"
#include "explorer/ui/DragDrop.h"
#include "explorer/ui/MemoPane.h"
#include "explorer/ui/SearchPane.h"
#include "explorer/ui/ToDoPane.h"
#include "explorer/ui/WelcomePage.h"
#include "ui/widgets/Icons.h"
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
    const DragViews views{*m_tree, *m_ui->tvTreeView, *m_ui->lvwMemo, *m_ui->lvwBookmark, *m_ui->lvwToDo};
    m_drag = std::make_unique<DragDrop>(*this, m_context, views);
    LoadTreeView();
}

frmSnipValeS::~frmSnipValeS() = default;

void frmSnipValeS::makePanes()
{
    m_welcome = new WelcomePage(*m_ui, m_context.archive, this);
    m_memos = new MemoPane(*m_ui->lvwMemo, m_context, *this, m_sort, this);
    m_bookmarks = new BookmarkPane(*m_ui->lvwBookmark, m_context, *this, m_sort, this);
    m_toDos = new ToDoPane(*m_ui->lvwToDo, m_context, *this, m_sort, this);
    const auto pathOf = [this](qint32 categoryID) {
        const QModelIndex node = m_tree->indexOf(QString::number(categoryID) + u" ID"_s);
        return m_tree->fullPath(node).mid(m_tree->fullPath(m_tree->rootIndex()).size() + 1);
    };
    m_search = new SearchPane(*m_ui, m_context, m_sort, pathOf, this);
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
        m_context.frame.enableCommand(u"miCategoryModify"_s, overNode && leadingNumber(selectedKey()) != 0);
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
    std::vector<CategoryRow> rows;
    for (ElementPane* pane : {static_cast<ElementPane*>(m_memos), static_cast<ElementPane*>(m_bookmarks),
                              static_cast<ElementPane*>(m_toDos)})
        pane->clear();
    qint64 hidden = 0;
    const bool read = trapErrors(m_context.archive.questions(), u"LoadTreeView"_s,
                                 [&] { hidden = readCategories(m_context.archive, rows); });
    m_tree->setRows(rows);
    m_ui->tvTreeView->expand(m_tree->rootIndex());
    m_ui->tvTreeView->selectSilently(m_tree->rootIndex());
    if (!read)
        return;
    tvTreeView_NodeClick(m_tree->rootIndex());
    if (std::exchange(m_hiddenCategories, hidden) == hidden || hidden <= 0)
        return; // said once is enough
    m_context.archive.questions().ask(
        QString::number(hidden) +
            u" categories of this archive cannot be shown in the tree: the category above them is "
            "missing, or they lie below themselves. The search still finds what is in them."_s,
        MessageStyle::Exclamation);
}

void frmSnipValeS::tvTreeView_NodeClick(const QModelIndex& node)
{
    const QString tag = node.data(CategoryTreeModel::TagRole).toString();
    cCategory& current = m_context.category;
    current.CategoryID = leadingNumber(node.data(CategoryTreeModel::KeyRole).toString());
    current.CategoryParentID = leadingNumber(node.parent().data(CategoryTreeModel::KeyRole).toString());
    m_tree->setSelected(node);
    const QString path = m_tree->fullPath(node);
    if (tag == "root"_L1) {
        ShowSection(u"Welcome"_s);
        m_ui->lblFolderName->setText(u" Memo"_s);
    } else if (tag == "bookmark"_L1) {
        ShowSection(u"Bookmark"_s);
        m_bookmarks->MakeLvwBookmarkColumns();
        m_bookmarks->MakeLvwBookmarkContents();
        m_ui->lblFolderName->setText(u" Bookmark - "_s + path);
    } else if (tag == "todo"_L1) {
        ShowSection(u"ToDo"_s);
        m_toDos->MakeLvwToDoColumns();
        m_toDos->MakeLvwToDoContents();
        m_ui->lblFolderName->setText(u" ToDo - "_s + path + u' ');
    } else {
        ShowSection(u"Memo"_s);
        m_memos->MakeLvwMemoColumns();
        m_memos->MakeLvwMemoContents();
        m_ui->lblFolderName->setText(u" Memo - "_s + path + u' ');
    }
    m_ui->lblFolderName->setToolTip(path);
    enableFor(tag);
}

// The commands of the menus, after those of the tool bar were set for the section.
void frmSnipValeS::enableFor(const QString& tag)
{
    const auto enable = [this](bool enabled, std::initializer_list<const char*> commands) {
        for (const char* command : commands)
            m_context.frame.enableCommand(QString::fromLatin1(command), enabled);
    };
    enable(true, {"miCategoryNew"});
    if (tag == "root"_L1) {
        enable(false,
               {"miCategoryModify", "miCategoryDelete", "miMemoNew", "miBookmarkNew", "miMemoModify", "miMemoDelete"});
        return;
    }
    enable(true, {"miCategoryModify", "miCategoryDelete"});
    enable(tag == "category"_L1, {"miMemoNew"});
    enable(tag == "bookmark"_L1, {"miBookmarkNew"});
    if (tag == "todo"_L1)
        enable(true, {"miToDoNew"});
}

void frmSnipValeS::ShowSection(const QString& section)
{
    struct Section {
        const char16_t* name;
        QWidget* page;
        ElementPane* pane;
    };
    const Section sections[] = {{u"Memo", m_ui->lvwMemo, m_memos},
                                {u"Bookmark", m_ui->picBookmark, m_bookmarks},
                                {u"ToDo", m_ui->picToDo, m_toDos},
                                {u"Welcome", m_ui->picWelcome, nullptr}};
    for (const Section& s : sections) {
        const bool isShown = section == QStringView(s.name);
        if (isShown)
            m_ui->stkSections->setCurrentWidget(s.page);
        if (!s.pane)
            continue;
        s.pane->setInFront(isShown);
        m_context.frame.enableCommand(u"mi%1New"_s.arg(QStringView(s.name)), isShown);
        m_context.frame.enableCommand(u"mi%1Delete"_s.arg(QStringView(s.name)), isShown);
    }
    if (section != "Welcome"_L1)
        return;
    m_welcome->ShowSummary();
    m_welcome->LoadTodoTree();
}

void frmSnipValeS::cameToFront()
{
    const QWidget* shown = m_ui->stkSections->currentWidget();
    if (shown == m_ui->lvwMemo)
        m_memos->UpdateStatusBar();
    else if (shown == m_ui->picBookmark)
        m_bookmarks->UpdateStatusBar();
    else if (shown == m_ui->picToDo)
        m_toDos->UpdateStatusBar();
    else {
        m_welcome->ShowSummary();
        m_welcome->LoadTodoTree();
        m_context.frame.setStatus(u"SnipVale"_s);
    }
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

void frmSnipValeS::showToDo(const QString& categoryKey, const QString& toDoKey)
{
    const QModelIndex node = m_tree->indexOf(categoryKey);
    if (!node.isValid())
        return;
    showCategory(node);
    ShowSection(u"ToDo"_s);
    m_toDos->selectKey(toDoKey);
}

ElementPane& frmSnipValeS::paneOf(ElementKind kind) const
{
    ElementPane* const panes[] = {m_memos, m_bookmarks, m_toDos};
    return *panes[size_t(kind)];
}

bool frmSnipValeS::SelectElementInTreeView()
{
    const std::optional<SearchHit> hit = m_search->selectedHit();
    return hit && trapErrors(m_context.archive.questions(), u"SelectElementInTreeView"_s, [&] {
               const QModelIndex node = m_tree->indexOf(QString::number(hit->categoryID) + u" ID"_s);
               if (!node.isValid())
                   throw std::runtime_error("The category is no longer in the tree.");
               showCategory(node);
               ShowSection(wordsOf(hit->kind).name);
               paneOf(hit->kind).selectKey(ElementKey{hit->kind, hit->id}.text());
           });
}

void frmSnipValeS::OpenSearchElement()
{
    const std::optional<SearchHit> hit = m_search->selectedHit();
    if (!hit)
        m_context.archive.questions().ask(u"Error: Nothing is selected"_s, MessageStyle::Critical);
    else if (SelectElementInTreeView())
        paneOf(hit->kind).openElement(hit->id);
}

void frmSnipValeS::NewCategory()
{
    m_context.category.EditingMode = 0;
    editCategory();
}

void frmSnipValeS::ModifyCategory()
{
    const QString key = selectedKey();
    if (key.isEmpty()) {
        m_context.archive.questions().ask(u"Alert: select a folder!"_s, MessageStyle::Information);
        return;
    }
    m_context.category.EditingMode = -1;
    m_context.category.CategoryID = leadingNumber(key);
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
    const QModelIndex node = m_ui->tvTreeView->currentIndex();
    if (!node.isValid())
        return;
    trapErrors(m_context.archive.questions(), u"DeleteCategory"_s, [&] {
        Questions& questions = m_context.archive.questions();
        const QString key = selectedKey();
        if (leadingNumber(key) == 0) {
            questions.ask(u"You cannot delete Root Code"_s, MessageStyle::Exclamation);
            return;
        }
        const QString text = u"Are you sure you want to delete selected categories '"_s + m_tree->fullPath(node) +
            u"' ? \r\nATTENTION: this will delete all elements too!"_s;
        if (questions.ask(text, MessageStyle::YesNoDefaultNo, u"Deleting "_s) != Answer::Yes)
            return;
        cCategory& category = m_context.category;
        category.CategoryIDsPath = QString::number(leadingNumber(key));
        category.TraverseTree(*this, key);
        category.Delete(category.CategoryIDsPath);
        LoadTreeView();
    });
}

QString frmSnipValeS::selectedKey() const
{
    return m_ui->tvTreeView->currentIndex().data(CategoryTreeModel::KeyRole).toString();
}

QString frmSnipValeS::selectedTag() const
{
    return m_ui->tvTreeView->currentIndex().data(CategoryTreeModel::TagRole).toString();
}

QStringList frmSnipValeS::childKeys(const QString& key) const
{
    return m_tree->childKeys(key);
}

void frmSnipValeS::renameNode(const QString& key, const QString& text)
{
    m_tree->rename(key, text);
}

void frmSnipValeS::addNode(const QString& parentKey, const CategoryNode& node)
{
    const QModelIndex added = m_tree->add(parentKey, node);
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
    return leadingNumber(selectedKey());
}

void frmSnipValeS::elementSaved(const ElementKey& key)
{
    clickSelectedNode();
    paneOf(key.kind).selectKey(key.text());
}
