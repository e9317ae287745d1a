// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/widgets/ElementEditor.h"

#include <memory>

class QAction;
class RichTextBar;
class ScintillaView;
class cMemo;
class cScintilla;
class frmScintillaFind;
struct PrintedMemo;

namespace Ui {
class frmSnipVale;
}

// Creates or edits one memo: the one whose identifier cViewFilter holds, or a new one when that is 0.
class frmSnipVale final : public ElementEditor {
    Q_OBJECT
public:
    frmSnipVale(const EditorContext& context, cMemo& memo, QWidget* parent); // the record outlives it
    ~frmSnipVale() override;

    // The memo as it stands in the controls, saved or not: through the print dialog, and on the screen first.
    void PrintDoc();
    void PreviewDoc();

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    ElementRecord& record() override;
    void startNew() override;
    void showRecord(bool isNew) override;
    bool transfer() override;
    void saved() override;

    void makeCodeEditor();
    void makeCodeBar();
    void makePrintMenu();
    void makeNoteBar();
    void wirePanes();
    void watchFields();
    void LoadComboMemoType();
    void cboMemoType_Click();
    void updateLinkButton();
    void openAddress(const QString& address);

    void toggleWrap();
    void openCodeFile();
    void saveCodeFile();
    void openNoteFile();
    PrintedMemo printed() const;
    void showFind();
    void setPanes(int openingState);

    std::unique_ptr<Ui::frmSnipVale> m_ui;
    EditorContext m_context;
    cMemo& m_memo;
    ScintillaView* m_editor = nullptr; // null when it could not be made
    std::unique_ptr<cScintilla> m_scintilla;
    frmScintillaFind* m_find = nullptr;
    QAction* m_wrap = nullptr;
    bool m_firstLayout = true;
};
