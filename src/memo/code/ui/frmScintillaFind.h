// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <cstdint>
#include <memory>

class Questions;
class cScintilla;
namespace Ui {
class frmScintillaFind;
}

// Find and replace in the code editor. Modeless: the editor can be used beside it. Each showing starts at the
// beginning of the text. The editor's class and the questions must outlive it.
class frmScintillaFind : public QDialog {
    Q_OBJECT
public:
    frmScintillaFind(cScintilla& editor, Questions& questions, QWidget* parent = nullptr);
    ~frmScintillaFind() override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    bool findNext(); // false when there is nothing to look for, or nothing was found
    void replaceNext();
    int searchFlags() const;

    std::unique_ptr<Ui::frmScintillaFind> m_ui;
    cScintilla& m_editor;
    Questions& m_questions;
    std::intptr_t m_lastMatch = -1; // byte position; the next search begins behind it
};
