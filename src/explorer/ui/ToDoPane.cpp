// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ToDoPane.h"

#include "archive/Archive.h"
#include "archive/Element.h"
#include "archive/ErrorTrap.h"
#include "archive/cCategory.h"
#include "explorer/ui/ToDoListModel.h"
#include "tasks/modToDo.h"
#include "tasks/ui/frmToDo.h"

using namespace Qt::StringLiterals;

ToDoPane::ToDoPane(ElementListView& view, const ExplorerContext& context, ElementListener& listener,
                   SortDirection& sort, QObject* parent)
    : ToDoPane(new ToDoListModel, view, context, listener, sort, parent)
{
}

ToDoPane::ToDoPane(ToDoListModel* model, ElementListView& view, const ExplorerContext& context,
                   ElementListener& listener, SortDirection& sort, QObject* parent)
    : ElementPane(view, *model, context, listener, sort,
                  {u"ToDo"_s,
                   u"ToDo -  items: "_s,
                   {u"miToDoIncreasePriority"_s, u"miToDoDecreasePriority"_s},
                   {8, 52, 14, 11, 17}},
                  parent),
      m_model(model)
{
    connect(m_model, &ToDoListModel::doneToggled, this, &ToDoPane::markDone);
}

void ToDoPane::readRows()
{
    std::vector<ToDoRow> rows;
    readToDoRows(context().archive, context().category.CategoryID, rows);
    m_model->setRows(std::move(rows));
}

void ToDoPane::clear()
{
    m_model->setRows({});
}

void ToDoPane::rowsChanged()
{
    if (view().isVisibleTo(view().window()))
        refill();
}

void ToDoPane::deleteRows(const QString& ids)
{
    deleteToDos(context().archive, ids);
}

qint32& ToDoPane::idToEdit()
{
    return context().viewFilter.EditingModeToDoID;
}

void ToDoPane::showEditor(QWidget& window)
{
    const ExplorerContext& c = context();
    frmToDo editor({c.archive, c.desktop, c.viewFilter, listener()}, &window);
    if (editor.Form_Load())
        editor.exec();
}

void ToDoPane::markDone(qint32 id, bool done)
{
    trapErrors(context().archive.questions(), u"lvwToDo_ItemCheck"_s,
               [&] { markToDoDone(context().archive, id, done); });
    refill();
}

void ToDoPane::ToDoIncreasePriority()
{
    changePriority(u"ToDoIncreasePriority"_s, true);
}

void ToDoPane::ToDoDecreasePriority()
{
    changePriority(u"ToDoDecreasePriority"_s, false);
}

void ToDoPane::changePriority(const QString& routine, bool raise)
{
    const qint32 id = selectedId();
    if (id == 0)
        return;
    trapErrors(context().archive.questions(), routine, [&] {
        changeToDoPriority(context().archive, id, raise);
        refill();
    });
}
