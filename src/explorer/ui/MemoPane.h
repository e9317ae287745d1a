// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/ui/ElementPane.h"

class MemoListModel;

// The memo list of the explorer.
class MemoPane final : public ElementPane {
    Q_OBJECT
public:
    MemoPane(ElementListView& view, const ExplorerContext& context, ElementListener& listener, SortDirection& sort,
             QObject* parent);

    void MakeLvwMemoColumns() { makeColumns(); }
    void MakeLvwMemoContents() { makeContents(); } // of the current category
    void NewMemo() { newElement(); }
    void ModifyMemo() { modifyElement(); } // the selected one
    void DeleteMemo() { deleteElements(); } // all selected ones, after a question
    void MemoDelete(const QString& ids); // throws jet::Error
    void PrintMemo(); // all selected ones, each on pages of its own
    void PreviewMemo();
    void clear() override;

protected:
    void readRows() override;
    void deleteRows(const QString& ids) override { MemoDelete(ids); }
    qint32& idToEdit() override;
    void showEditor(QWidget& window) override;

private:
    MemoPane(MemoListModel* model, ElementListView& view, const ExplorerContext& context, ElementListener& listener,
             SortDirection& sort, QObject* parent);
    QList<qint32> selectedIds() const; // none while another list is in front
    MemoListModel* m_model;
};
