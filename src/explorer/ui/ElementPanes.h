// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/ui/ElementPane.h"

// The memo list of the explorer.
class MemoPane final : public ElementPane {
public:
    explicit MemoPane(const Place& place);

    void MakeLvwMemoColumns() { makeColumns(); }
    void MakeLvwMemoContents() { makeContents(); }
    void NewMemo() { newElement(); }
    void ModifyMemo() { modifyElement(); }
    void DeleteMemo() { deleteElements(); }
    void PrintMemo(); // all selected ones, each on pages of its own
    void PreviewMemo();

protected:
    void showEditor(QWidget& window) override;
};

// The bookmark list of the explorer.
class BookmarkPane final : public ElementPane {
public:
    explicit BookmarkPane(const Place& place);

    void MakeLvwBookmarkColumns() { makeColumns(); }
    void MakeLvwBookmarkContents() { makeContents(); }
    void NewBookmark() { newElement(); }
    void ModifyBookmark() { modifyElement(); }
    void DeleteBookmark() { deleteElements(); }
    void VisitBookmark(); // opens the link of the selected one, if it has one

protected:
    void showEditor(QWidget& window) override;
};

// The to-do list of the explorer.
class ToDoPane final : public ElementPane {
public:
    explicit ToDoPane(const Place& place);

    void MakeLvwToDoColumns() { makeColumns(); }
    void MakeLvwToDoContents() { makeContents(); }
    void NewToDo() { newElement(); }
    void ModifyToDo() { modifyElement(); }
    void DeleteToDo() { deleteElements(); }
    void ToDoIncreasePriority(); // of the selected one, by one step
    void ToDoDecreasePriority();
    void rowsChanged(); // elsewhere: what is seen is read again

protected:
    void showEditor(QWidget& window) override;

private:
    void markDone(qint32 id, bool done);
    void changePriority(const QString& routine, bool raise);
};
