// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tasks/cToDo.h"
#include "ui/widgets/ElementEditor.h"

#include <memory>

namespace Ui {
class frmToDo;
}

// Creates or edits one to-do: the one whose identifier cViewFilter holds, or a new one when that is 0.
class frmToDo final : public ElementEditor {
    Q_OBJECT
public:
    frmToDo(const EditorContext& context, QWidget* parent);
    ~frmToDo() override;

protected:
    void changeEvent(QEvent* event) override;

private:
    ElementRecord& record() override { return m_todo; }
    void startNew() override;
    void showRecord(bool isNew) override;
    bool transfer() override;
    void saved() override;
    QString updateRoutine() const override { return QStringLiteral("Save"); }

    void prepareControls();
    void makeNoteBar();
    void openNoteFile();
    void showDates();
    void wireControls();
    void watchControls();
    void paintState();
    void showPercent(double percent);
    void chkAlarm_Click();
    void cboPriority_Click();
    void cboStatus_Click();
    void txtPercentComplete_Change();
    void transferAlarm();

    std::unique_ptr<Ui::frmToDo> m_ui;
    EditorContext m_context;
    cToDo m_todo;
};
