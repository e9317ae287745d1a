// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/DragRules.h"

#include "archive/Archive.h"
#include "archive/SqlText.h"
#include "archive/cCategory.h"

using namespace Qt::StringLiterals;

namespace {

QString elementRefusal(DragSource source, const DropTarget& target)
{
    if (leadingNumber(target.key) == 0)
        return u"Drop not allowed in root folder"_s;
    if (target.tag == "bookmark"_L1 && source != DragSource::Bookmark)
        return u"Drop not allowed here\r\nMoving into a bookmark folder you must select a bookmark item."_s;
    if (target.tag == "todo"_L1 && source != DragSource::ToDo)
        return u"Drop not allowed here\r\nMoving into a ToDo folder you must select a ToDo item."_s;
    if (target.tag == "category"_L1 && source != DragSource::Memo)
        return u"Drop not allowed here.\r\nMoving into a memo folder you must select a memo item."_s;
    return {};
}

QString categoryRefusal(const DragState& drag, const DropTarget& target, const CategoryTree& tree)
{
    if (drag.dragged == 0)
        return u"You Cannot move Root element!"_s;
    if (leadingNumber(target.key) == drag.dragged)
        return u"Cannot move "_s + drag.text + u": The destination folder is the same as the source folder!"_s;
    if (IsParentNode(tree, QString::number(drag.dragged) + u" ID"_s, target.key))
        return u"Cannot move "_s + drag.text + u": The destination folder is a subfolder of the source folder!"_s;
    return {};
}

void run(Archive& archive, const QString& sql)
{
    ArchiveUnit unit(archive);
    unit.Execute(sql);
}

} // namespace

QString dropRefusal(const DragState& drag, const DropTarget& target, const CategoryTree& tree)
{
    return drag.source == DragSource::Category ? categoryRefusal(drag, target, tree)
                                               : elementRefusal(drag.source, target);
}

bool IsParentNode(const CategoryTree& tree, const QString& source, const QString& destination)
{
    QStringList waiting = {source};
    while (!waiting.isEmpty()) {
        const QStringList children = tree.childKeys(waiting.takeLast());
        if (children.contains(destination))
            return true;
        waiting.append(children);
    }
    return false;
}

void ChangeMemoCategory(Archive& archive, const QString& ids, qint32 target)
{
    run(archive,
        u"UPDATE tab_memo SET "_s + u"tab_memo.categoryID = "_s + QString::number(target) + u"  "_s +
            u"WHERE tab_memo.memoID IN ("_s + ids + u") "_s);
}

void ChangeBookmarkCategory(Archive& archive, const QString& ids, qint32 target)
{
    run(archive,
        u"UPDATE tab_bookmark SET "_s + u"tab_bookmark.categoryID = "_s + QString::number(target) + u"  "_s +
            u"WHERE tab_bookmark.bookmarkID IN ("_s + ids + u") "_s);
}

void ChangeToDoCategory(Archive& archive, const QString& ids, qint32 target)
{
    run(archive,
        u"UPDATE tab_todo SET "_s + u"tab_todo.categoryID = "_s + QString::number(target) + u"  "_s +
            u"WHERE tab_todo.todoID IN ("_s + ids + u") "_s);
}

void ChangeCategoryParent(Archive& archive, qint32 dragged, qint32 target)
{
    run(archive,
        u"UPDATE tab_category SET "_s + u"tab_category.parentID = "_s + QString::number(target) + u"  "_s +
            u"WHERE tab_category.categoryID = "_s + QString::number(dragged) + u' ');
}
