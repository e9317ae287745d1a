// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/DragRules.h"

#include "archive/Archive.h"

using namespace Qt::StringLiterals;

namespace {

QString elementRefusal(const DragState& drag, const CategoryNode& target)
{
    if (target.id == 0)
        return u"Drop not allowed in root folder"_s;
    if (drag.kind == target.kind)
        return {};
    // The full stop is the memo folder's alone.
    return u"Drop not allowed here%1\r\nMoving into a %2 folder you must select a %2 item."_s.arg(
        target.kind == ElementKind::Memo ? u"."_s : QString(), wordsOf(target.kind).inDrag);
}

QString categoryRefusal(const DragState& drag, const CategoryNode& target, const CategoryTree& tree)
{
    if (drag.dragged == 0)
        return u"You Cannot move Root element!"_s;
    const QString refused = u"Cannot move "_s + drag.text + u": The destination folder is "_s;
    if (target.id == drag.dragged)
        return refused + u"the same as the source folder!"_s;
    if (IsParentNode(tree, drag.dragged, target.id))
        return refused + u"a subfolder of the source folder!"_s;
    return {};
}

void run(Archive& archive, const QString& sql)
{
    ArchiveUnit unit(archive);
    unit.Execute(sql);
}

void changeCategory(Archive& archive, ElementKind kind, const QString& ids, qint32 target)
{
    const ElementWords& words = wordsOf(kind);
    run(archive,
        u"UPDATE %1 SET %1.categoryID = %2  WHERE %1.%3 IN (%4) "_s.arg(words.table, QString::number(target),
                                                                        words.keyColumn, ids));
}

} // namespace

QString dropRefusal(const DragState& drag, const CategoryNode& target, const CategoryTree& tree)
{
    return drag.isCategory ? categoryRefusal(drag, target, tree) : elementRefusal(drag, target);
}

bool IsParentNode(const CategoryTree& tree, qint32 source, qint32 destination)
{
    std::vector<qint32> waiting = {source};
    while (!waiting.empty()) {
        const qint32 parent = waiting.back();
        waiting.pop_back();
        for (const qint32 child : tree.childrenOf(parent)) {
            if (child == destination)
                return true;
            waiting.push_back(child);
        }
    }
    return false;
}

void ChangeMemoCategory(Archive& archive, const QString& ids, qint32 target)
{
    changeCategory(archive, ElementKind::Memo, ids, target);
}

void ChangeBookmarkCategory(Archive& archive, const QString& ids, qint32 target)
{
    changeCategory(archive, ElementKind::Bookmark, ids, target);
}

void ChangeToDoCategory(Archive& archive, const QString& ids, qint32 target)
{
    changeCategory(archive, ElementKind::ToDo, ids, target);
}

void ChangeCategoryParent(Archive& archive, qint32 dragged, qint32 target)
{
    run(archive,
        u"UPDATE tab_category SET tab_category.parentID = %1  WHERE tab_category.categoryID = %2 "_s.arg(
            QString::number(target), QString::number(dragged)));
}
