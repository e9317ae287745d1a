// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/WelcomePage.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "explorer/Overview.h"
#include "explorer/ui/ElementLists.h"
#include "ui_frmSnipValeS.h"

#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

enum Role { KeyRole = Qt::UserRole, TagRole };

QString inCategories(const QString& what, const Summary::Kind& kind)
{
    return u"%1%2 in %3 categories\n"_s.arg(what).arg(kind.elements).arg(kind.categories);
}

} // namespace

WelcomePage::WelcomePage(Ui::frmSnipValeS& ui, Archive& archive, QObject* parent)
    : QObject(parent), m_ui(ui), m_archive(archive)
{
    QFont heading = m_ui.lblSummary->font();
    heading.setBold(true);
    heading.setPointSizeF(heading.pointSizeF() * 1.3);
    m_ui.lblSummary->setFont(heading);
    m_ui.tvwToDo->setModel(&m_toDos);
    connect(m_ui.tvwToDo, &QTreeView::activated, this, &WelcomePage::tvwToDo_DblClick);
}

void WelcomePage::ShowSummary()
{
    Summary sum;
    m_ui.lblSummary->setText(u"  Elements archived  "_s);
    trapErrors(m_archive.questions(), u"ShowSummary"_s, [&] { sum = readSummary(m_archive); });
    m_ui.lblSummaryMemo->setText(inCategories(u"Code: "_s, sum.kinds[0]));
    m_ui.lblSummaryBookmark->setText(inCategories(u"Bookmarks:  "_s, sum.kinds[1]));
    m_ui.lblSummaryToDo->setText(inCategories(u"ToDo:  "_s, sum.kinds[2]));
    m_ui.lblSummaryPassword->setText(u"Passwords:  "_s + QString::number(sum.passwords) + u'\n');
    m_ui.lblSummaryNote->setText(u"Notes:  "_s + QString::number(sum.notes) + u'\n');
}

void WelcomePage::LoadTodoTree()
{
    m_toDos.clear();
    auto* root = new QStandardItem(u"Due Dates"_s);
    root->setData(u"0 ID"_s, KeyRole);
    root->setData(u"root"_s, TagRole);
    m_toDos.appendRow(root);
    std::vector<DueGroup> groups;
    trapErrors(m_archive.questions(), u"LoadTodoTree"_s, [&] { groups = readDueGroups(m_archive); });
    for (const DueGroup& group : groups)
        addGroup(*root, group);
    m_ui.tvwToDo->expandAll();
    m_ui.tvwToDo->setCurrentIndex(root->index());
}

void WelcomePage::addGroup(QStandardItem& root, const DueGroup& due)
{
    auto* node =
        new QStandardItem(reportIcon(due.image), due.title + u" ("_s + QString::number(due.toDos.size()) + u')');
    QList<QStandardItem*> children;
    for (const DueToDo& toDo : due.toDos) {
        auto* child = new QStandardItem(toDo.name + u" ("_s +
                                        QLocale().toString(toDo.dueDate.date(), QLocale::LongFormat) + u')');
        child->setData(ElementKey{ElementKind::ToDo, toDo.id}.text(), KeyRole);
        child->setData(QString::number(toDo.categoryID) + u" todo"_s, TagRole);
        children.append(child);
    }
    node->appendRows(children);
    root.appendRow(node);
}

void WelcomePage::tvwToDo_DblClick()
{
    const QModelIndex node = m_ui.tvwToDo->currentIndex();
    const QString tag = node.data(TagRole).toString();
    if (tag.endsWith("todo"_L1))
        emit toDoChosen(leadingNumber(tag), leadingNumber(node.data(KeyRole).toString()));
}
