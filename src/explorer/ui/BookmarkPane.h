// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/ui/ElementPane.h"

class BookmarkListModel;

// The bookmark list of the explorer.
class BookmarkPane final : public ElementPane {
    Q_OBJECT
public:
    BookmarkPane(ElementListView& view, const ExplorerContext& context, ElementListener& listener, SortDirection& sort,
                 QObject* parent);

    void MakeLvwBookmarkColumns() { makeColumns(); }
    void MakeLvwBookmarkContents() { makeContents(); } // of the current category
    void NewBookmark() { newElement(); }
    void ModifyBookmark() { modifyElement(); } // the selected one
    void DeleteBookmark() { deleteElements(); } // all selected ones, after a question
    void VisitBookmark(); // opens the link of the selected one, if it has one
    void clear() override;

protected:
    void readRows() override;
    void deleteRows(const QString& ids) override;
    qint32& idToEdit() override;
    void showEditor(QWidget& window) override;

private:
    BookmarkPane(BookmarkListModel* model, ElementListView& view, const ExplorerContext& context,
                 ElementListener& listener, SortDirection& sort, QObject* parent);
    BookmarkListModel* m_model;
};
