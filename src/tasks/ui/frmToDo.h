// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/cToDo.h"

#include <QDialog>
#include <functional>
#include <memory>

class ElementListener;
class OptionalDate;
class cViewFilter;
struct Desktop;

namespace Ui {
class frmToDo;
}

// What the to-do editor works on and with. All outlive it.
struct ToDoContext {
    Archive& archive;
    const Desktop& desktop;
    cViewFilter& viewFilter;
    ElementListener& listener;
    // Gives the lines of a file that the user picked. Throws std::runtime_error with a text for the user.
    std::function<QString(const QString& name)> readTextFile;
};

// Creates or edits one to-do: the one whose identifier cViewFilter holds, or a new one when that is 0.
class frmToDo : public QDialog {
    Q_OBJECT
public:
    frmToDo(const ToDoContext& context, QWidget* parent);
    ~frmToDo() override;

    // Reads the to-do and shows it. False when it cannot be read (the message was shown): do not show the window
    // then, a save would empty the to-do.
    bool Form_Load();

    bool isDirty() const { return m_isDirty; }

public slots:
    void reject() override; // asks when there are unsaved changes

protected:
    void changeEvent(QEvent* event) override;

private:
    void makeNoteBar();
    void openNoteFile();
    void printNotes();
    void openLink(const QString& address);

    void prepareControls();
    void fillLists();
    bool loadRecord();
    void showRecord();
    void wireControls();
    void wireDirty();
    void markDirty() { m_isDirty = true; }
    void paintState();
    void showPercent(double percent);
    void chkAlarm_Click();
    void cboPriority_Click();
    void cboStatus_Click();
    void chkDone_Click();
    void txtPercentComplete_Change();

    bool transfer(); // validates, then controls to record
    void transferAlarm();
    bool save();
    void cmdOK_Click();

    std::unique_ptr<Ui::frmToDo> m_ui;
    ToDoContext m_context;
    cToDo m_todo;
    QString m_shownResources; // as they were after loading
    bool m_isDirty = false;
};
