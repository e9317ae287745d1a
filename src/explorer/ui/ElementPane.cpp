// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/ElementPane.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "archive/cCategory.h"
#include "desktop/FrameServices.h"
#include "desktop/Questions.h"
#include "explorer/ui/ElementListModel.h"

#include <QHeaderView>

using namespace Qt::StringLiterals;

ElementPane::ElementPane(ElementListView& view, ElementListModel& model, const ExplorerContext& context,
                         ElementListener& listener, SortDirection& sort, Words words, QObject* parent)
    : QObject(parent), m_view(view), m_model(model), m_context(context), m_listener(listener), m_words(std::move(words))
{
    m_model.setParent(this);
    m_view.setList(&m_model, m_model.nameColumn());
    m_view.sortWith(sort);
    wire();
    enableNeeding(false);
}

void ElementPane::wire()
{
    connect(&m_view, &ElementListView::openRequested, this, &ElementPane::modifyElement);
    connect(&m_view, &ElementListView::deleteRequested, this, &ElementPane::deleteElements);
    connect(&m_view, &ElementListView::newRequested, this, [this] {
        if (m_context.category.CategoryID != 0)
            newElement();
    });
    connect(&m_view, &ElementListView::released, this, &ElementPane::enableNeeding);
    connect(m_view.selectionModel(), &QItemSelectionModel::selectionChanged, this,
            [this] { enableNeeding(m_view.selectionModel()->hasSelection()); });
    connect(&m_view, &ElementListView::menuRequested, this,
            [this](const QPoint& position) { m_context.frame.popupMenu(u"mnu"_s + m_words.element, position); });
}

QString ElementPane::command(const char* verb) const
{
    return u"mi"_s + m_words.element + QLatin1StringView(verb);
}

void ElementPane::enableNeedingButDelete(bool enabled)
{
    m_context.frame.enableCommand(command("Modify"), enabled);
    for (const QString& name : m_words.needing)
        m_context.frame.enableCommand(name, enabled);
}

void ElementPane::enableNeeding(bool enabled)
{
    enableNeedingButDelete(enabled);
    m_context.frame.enableCommand(command("Delete"), enabled);
}

void ElementPane::setInFront(bool inFront)
{
    if (!inFront)
        enableNeeding(false);
}

void ElementPane::makeColumns()
{
    // The titles are the model's; the widths are the user's once the list has been seen.
    if (std::exchange(m_columnsMade, true))
        return;
    const int unit = m_view.fontMetrics().averageCharWidth();
    for (size_t i = 0; i < m_words.widths.size(); ++i)
        m_view.header()->resizeSection(int(i), unit * m_words.widths[i]);
}

void ElementPane::makeContents()
{
    trapErrors(m_context.archive.questions(), u"MakeLvw"_s + m_words.element + u"Contents"_s, [&] {
        readRows();
        // Nothing is selected in a list that was filled. The delete tool is left to the section and the mouse.
        enableNeedingButDelete(false);
        UpdateStatusBar();
    });
}

void ElementPane::refill()
{
    m_view.refill([this] { makeContents(); });
}

void ElementPane::UpdateStatusBar()
{
    m_context.frame.setStatus(m_words.status + QString::number(m_model.rowCount()));
}

void ElementPane::selectKey(const QString& key)
{
    m_view.selectKey(key);
}

QStringList ElementPane::selectedKeys() const
{
    return m_view.isVisibleTo(m_view.window()) ? m_view.selectedKeys() : QStringList();
}

qint32 ElementPane::selectedId() const
{
    return m_view.isVisibleTo(m_view.window()) ? m_view.selectedId() : 0;
}

void ElementPane::newElement()
{
    openElement(0);
}

void ElementPane::modifyElement()
{
    if (const qint32 id = selectedId())
        openElement(id);
}

void ElementPane::openElement(qint32 id)
{
    idToEdit() = id;
    QWidget* window = m_view.window();
    window->setCursor(Qt::WaitCursor);
    trapErrors(m_context.archive.questions(), u"Modify"_s + m_words.element, [&] { showEditor(*window); });
    window->unsetCursor();
}

void ElementPane::deleteElements()
{
    trapErrors(m_context.archive.questions(), u"Delete"_s + m_words.element, [&] {
        std::vector<qint32> ids;
        for (const QString& key : selectedKeys())
            ids.push_back(leadingNumber(key));
        if (ids.empty() || !mayDeleteElements(m_context.archive.questions()))
            return;
        deleteRows(idList(ids));
        m_view.refillAfterDelete([this] { makeContents(); });
    });
}
