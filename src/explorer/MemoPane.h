// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/frmSnipValeS.h"

#include <QObject>

class MemoListModel;

// The memo list of the explorer: what fills it and what its commands do. Errors are shown here; the list keeps
// what it had then.
class MemoPane : public QObject {
    Q_OBJECT
public:
    MemoPane(ElementListView& view, const ExplorerContext& context, ElementListener& listener, SortDirection& sort,
             QObject* parent);

    void MakeLvwMemoColumns();
    void MakeLvwMemoContents(); // of the current category
    void NewMemo();
    void ModifyMemo(); // the selected one
    void DeleteMemo(); // all selected ones, after a question
    void MemoDelete(const QString& ids); // throws jet::Error
    void UpdateStatusBar();
    void clear();

private:
    void wire();
    void openEditor();

    ElementListView& m_view;
    ExplorerContext m_context;
    ElementListener& m_listener;
    MemoListModel* m_model;
};
