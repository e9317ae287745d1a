// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <memory>

class Archive;
class ElementListener;
class QAction;
class RichTextBar;
class ScintillaView;
class cMemo;
class cScintilla;
class cViewFilter;
class frmScintillaFind;
struct Desktop;
struct PrintedMemo;

namespace Ui {
class frmSnipVale;
}

// What the memo editor works on and with. All outlive it.
struct MemoContext {
    Archive& archive;
    const Desktop& desktop;
    cViewFilter& viewFilter;
    cMemo& memo;
    ElementListener& listener;
};

// Creates or edits one memo: the one whose identifier cViewFilter holds, or a new one when that is 0.
class frmSnipVale : public QDialog {
    Q_OBJECT
public:
    frmSnipVale(const MemoContext& context, QWidget* parent);
    ~frmSnipVale() override;

    // Reads the memo and shows it. False when it cannot be read (the message was shown): do not show the window then,
    // a save would write the fields of another memo.
    bool Form_Load();

    // The memo as it stands in the controls, saved or not: through the print dialog, and on the screen first.
    void PrintDoc();
    void PreviewDoc();
    bool isDirty() const { return m_isDirty; }

public slots:
    void reject() override; // asks when there are unsaved changes

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void makeCodeEditor();
    void makeCodeBar();
    void makePrintMenu();
    void makeNoteBar();
    void wireFields();
    void wirePanes();
    bool loadRecord();
    void showRecord();
    void LoadComboMemoType();
    void cboMemoType_Click();
    void markDirty();
    void updateLinkButton();
    void openAddress(const QString& address);

    bool transfer(); // validates, then controls to record
    bool save();
    void cmdOK_Click();
    void cmdApply_Click();
    bool saveWithHourglass();

    void toggleWrap();
    void openCodeFile();
    void saveCodeFile();
    void openNoteFile();
    void printNotes();
    PrintedMemo printed() const;
    void showFind();
    void setPanes(int openingState);

    std::unique_ptr<Ui::frmSnipVale> m_ui;
    MemoContext m_context;
    ScintillaView* m_editor = nullptr; // null when it could not be made
    std::unique_ptr<cScintilla> m_scintilla;
    frmScintillaFind* m_find = nullptr;
    QAction* m_wrap = nullptr;
    bool m_isDirty = false;
    bool m_firstLayout = true;
};
