// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/ui/ElementPane.h"

class ToDoListModel;

// The to-do list of the explorer.
class ToDoPane final : public ElementPane {
    Q_OBJECT
public:
    ToDoPane(ElementListView& view, const ExplorerContext& context, ElementListener& listener, SortDirection& sort,
             QObject* parent);

    void MakeLvwToDoColumns() { makeColumns(); }
    void MakeLvwToDoContents() { makeContents(); } // of the current category
    void NewToDo() { newElement(); }
    void ModifyToDo() { modifyElement(); } // the selected one
    void DeleteToDo() { deleteElements(); } // all selected ones, after a question
    void ToDoIncreasePriority(); // of the selected one, by one step
    void ToDoDecreasePriority();
    void rowsChanged(); // elsewhere: what is seen is read again
    void clear() override;

protected:
    void readRows() override;
    void deleteRows(const QString& ids) override;
    qint32& idToEdit() override;
    void showEditor(QWidget& window) override;

private:
    ToDoPane(ToDoListModel* model, ElementListView& view, const ExplorerContext& context, ElementListener& listener,
             SortDirection& sort, QObject* parent);
    void markDone(qint32 id, bool done);
    void changePriority(const QString& routine, bool raise);

    ToDoListModel* m_model;
};
