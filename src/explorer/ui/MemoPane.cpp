// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/MemoPane.h"

#include "archive/Element.h"
#include "archive/SqlText.h"
#include "archive/cCategory.h"
#include "explorer/ui/MemoListModel.h"
#include "memo/ui/MemoPrint.h"
#include "memo/ui/frmSnipVale.h"

using namespace Qt::StringLiterals;

MemoPane::MemoPane(ElementListView& view, const ExplorerContext& context, ElementListener& listener,
                   SortDirection& sort, QObject* parent)
    : MemoPane(new MemoListModel, view, context, listener, sort, parent)
{
}

MemoPane::MemoPane(MemoListModel* model, ElementListView& view, const ExplorerContext& context,
                   ElementListener& listener, SortDirection& sort, QObject* parent)
    : ElementPane(view, *model, context, listener, sort,
                  {u"Memo"_s, u"Memo -  items: "_s, {u"miMemoPrint"_s, u"miMemoPrintPreview"_s}, {60, 26}}, parent),
      m_model(model)
{
}

void MemoPane::readRows()
{
    std::vector<MemoRow> rows;
    readMemoRows(context().archive, context().category.CategoryID, rows);
    m_model->setRows(std::move(rows));
}

void MemoPane::clear()
{
    m_model->clear();
}

qint32& MemoPane::idToEdit()
{
    return context().viewFilter.EditingModeMemoID;
}

void MemoPane::showEditor(QWidget& window)
{
    const ExplorerContext& c = context();
    frmSnipVale editor({c.archive, c.desktop, c.viewFilter, listener()}, c.memo, &window);
    if (editor.Form_Load())
        editor.exec();
}

void MemoPane::MemoDelete(const QString& ids)
{
    deleteMemos(context().archive, ids);
}

QList<qint32> MemoPane::selectedIds() const
{
    QList<qint32> ids;
    if (view().isVisibleTo(view().window())) {
        for (const QString& key : view().selectedKeys())
            ids.append(leadingNumber(key));
    }
    return ids;
}

void MemoPane::PrintMemo()
{
    printMemos(view().window(), context().archive, context().desktop, selectedIds());
}

void MemoPane::PreviewMemo()
{
    previewMemos(view().window(), context().archive, context().desktop, selectedIds());
}
