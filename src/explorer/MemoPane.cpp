// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/MemoPane.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "archive/cCategory.h"
#include "archive/cViewFilter.h"
#include "desktop/Desktop.h"
#include "desktop/FrameServices.h"
#include "desktop/Questions.h"
#include "explorer/MemoListModel.h"
#include "memo/frmSnipVale.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

MemoPane::MemoPane(ElementListView& view, const ExplorerContext& context, ElementListener& listener,
                   SortDirection& sort, QObject* parent)
    : QObject(parent), m_view(view), m_context(context), m_listener(listener), m_model(new MemoListModel(this))
{
    m_view.setList(m_model, sort);
    wire();
}

void MemoPane::wire()
{
    FrameServices& frame = m_context.frame;
    connect(&m_view, &ElementListView::openRequested, this, &MemoPane::ModifyMemo);
    connect(&m_view, &ElementListView::deleteRequested, this, &MemoPane::DeleteMemo);
    connect(&m_view, &ElementListView::newRequested, this, [this] {
        if (m_context.category.CategoryID != 0)
            NewMemo();
    });
    connect(&m_view, &ElementListView::released, this, [&frame](bool overItem) {
        frame.enableCommand(u"miMemoModify"_s, overItem);
        frame.enableCommand(u"miMemoDelete"_s, overItem);
    });
    connect(m_view.selectionModel(), &QItemSelectionModel::selectionChanged, this, [this, &frame] {
        const bool any = m_view.selectionModel()->hasSelection();
        frame.enableCommand(u"miMemoModify"_s, any);
        frame.enableCommand(u"miMemoDelete"_s, any);
    });
    connect(&m_view, &ElementListView::menuRequested, this,
            [&frame](const QPoint& position) { frame.popupMenu(u"mnuMemo"_s, position); });
}

void MemoPane::MakeLvwMemoColumns()
{
    // The titles are the model's; the widths are the user's once the list has been seen.
    if (m_view.property("sized").toBool())
        return;
    m_view.setProperty("sized", true);
    const int unit = m_view.fontMetrics().averageCharWidth();
    m_view.header()->resizeSection(0, unit * 60);
    m_view.header()->resizeSection(1, unit * 26);
}

void MemoPane::MakeLvwMemoContents()
{
    trapErrors(m_context.archive.questions(), u"MakeLvwMemoContents"_s, [&] {
        std::vector<MemoRow> rows;
        readMemoRows(m_context.archive, m_context.category.CategoryID, rows);
        m_model->setRows(std::move(rows));
        UpdateStatusBar();
    });
}

void MemoPane::UpdateStatusBar()
{
    m_context.frame.setStatus(u"Memo -  items: "_s + QString::number(m_model->rowCount()));
}

void MemoPane::clear()
{
    m_model->clear();
}

void MemoPane::NewMemo()
{
    m_context.viewFilter.EditingModeMemoID = 0;
    openEditor();
}

void MemoPane::ModifyMemo()
{
    const QStringList selected = m_view.selectedKeys();
    if (selected.isEmpty())
        return;
    const QModelIndex current = m_view.currentIndex();
    const QString currentKey = current.isValid() ? m_model->keyOf(current.row()) : QString();
    m_context.viewFilter.EditingModeMemoID =
        leadingNumber(selected.contains(currentKey) ? currentKey : selected.first());
    openEditor();
}

void MemoPane::openEditor()
{
    QWidget* window = m_view.window();
    window->setCursor(Qt::WaitCursor);
    trapErrors(m_context.archive.questions(), u"ModifyMemo"_s, [&] {
        frmSnipVale editor({m_context.archive, m_context.desktop, m_context.viewFilter, m_context.memo, m_listener},
                           window);
        if (editor.Form_Load())
            editor.exec();
    });
    window->unsetCursor();
}

void MemoPane::DeleteMemo()
{
    trapErrors(m_context.archive.questions(), u"DeleteMemo"_s, [&] {
        std::vector<qint32> ids;
        for (const QString& key : m_view.selectedKeys())
            ids.push_back(leadingNumber(key));
        if (ids.empty())
            return;
        if (m_context.archive.questions().ask(u"Are you sure you want to delete selected elements? "_s,
                                              MessageStyle::YesNoDefaultNo, u"Deleting elements"_s) != Answer::Yes)
            return;
        MemoDelete(idList(ids));
        MakeLvwMemoContents();
    });
}

void MemoPane::MemoDelete(const QString& ids)
{
    deleteMemos(m_context.archive, ids);
}
