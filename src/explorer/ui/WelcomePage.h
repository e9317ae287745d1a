// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStandardItemModel>

class Archive;
class QTreeView;
struct DueGroup;

namespace Ui {
class frmSnipValeS;
}

// The welcome page of the explorer: how much is archived, and the open to-dos by due date. Both are read anew each
// time the page is shown. Errors are shown here.
class WelcomePage : public QObject {
    Q_OBJECT
public:
    WelcomePage(Ui::frmSnipValeS& ui, Archive& archive, QObject* parent);

    void ShowSummary();
    void LoadTodoTree();

signals:
    // A to-do of the due-date tree was double-clicked (or Enter was pressed on it).
    void toDoChosen(qint32 categoryID, qint32 toDoID);

private:
    void tvwToDo_DblClick();
    static void addGroup(QStandardItem& root, const DueGroup& due);

    Ui::frmSnipValeS& m_ui;
    Archive& m_archive;
    QStandardItemModel m_toDos;
};
