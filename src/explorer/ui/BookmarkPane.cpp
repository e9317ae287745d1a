// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/BookmarkPane.h"

#include "archive/Archive.h"
#include "archive/Element.h"
#include "archive/ErrorTrap.h"
#include "archive/cCategory.h"
#include "desktop/Desktop.h"
#include "explorer/ui/BookmarkListModel.h"
#include "memo/ui/frmBookmark.h"

using namespace Qt::StringLiterals;

BookmarkPane::BookmarkPane(ElementListView& view, const ExplorerContext& context, ElementListener& listener,
                           SortDirection& sort, QObject* parent)
    : BookmarkPane(new BookmarkListModel, view, context, listener, sort, parent)
{
}

BookmarkPane::BookmarkPane(BookmarkListModel* model, ElementListView& view, const ExplorerContext& context,
                           ElementListener& listener, SortDirection& sort, QObject* parent)
    : ElementPane(view, *model, context, listener, sort,
                  {u"Bookmark"_s, u"Bookmarks -  items: "_s, {u"miBookmarkVisit"_s}, {36, 40}}, parent),
      m_model(model)
{
}

void BookmarkPane::readRows()
{
    std::vector<BookmarkRow> rows;
    readBookmarkRows(context().archive, context().category.CategoryID, rows);
    m_model->setRows(std::move(rows));
}

void BookmarkPane::clear()
{
    m_model->setRows({});
}

void BookmarkPane::deleteRows(const QString& ids)
{
    deleteBookmarks(context().archive, ids);
}

qint32& BookmarkPane::idToEdit()
{
    return context().viewFilter.EditingModeBookmarkID;
}

void BookmarkPane::showEditor(QWidget& window)
{
    const ExplorerContext& c = context();
    frmBookmark editor({c.archive, c.desktop, c.viewFilter, listener()}, c.bookmark, &window);
    if (editor.Form_Load())
        editor.exec();
}

void BookmarkPane::VisitBookmark()
{
    trapErrors(context().archive.questions(), u"VisitBookmark"_s, [&] {
        const qint32 id = selectedId();
        const int row = id == 0 ? -1 : m_model->rowOf(QString::number(id) + u" B_ID"_s);
        const QString link = row < 0 ? QString() : m_model->rowAt(row).url;
        if (!link.isEmpty())
            context().desktop.shell.openLink(link);
    });
}
