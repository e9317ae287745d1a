// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/code/ui/frmScintillaFind.h"

#include "desktop/Questions.h"
#include "memo/code/cScintilla.h"
#include "ui_frmScintillaFind.h"

#include <QShowEvent>

using namespace Qt::StringLiterals;

frmScintillaFind::frmScintillaFind(cScintilla& editor, Questions& questions, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmScintillaFind>()), m_editor(editor), m_questions(questions)
{
    m_ui->setupUi(this);
    // The default button: Enter in a text box presses it.
    connect(m_ui->cmkFind, &QPushButton::clicked, this, &frmScintillaFind::findNext);
    connect(m_ui->cmdReplace, &QPushButton::clicked, this, &frmScintillaFind::replaceNext);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &frmScintillaFind::close);
}

frmScintillaFind::~frmScintillaFind() = default;

void frmScintillaFind::showEvent(QShowEvent* event)
{
    if (!event->spontaneous()) {
        m_lastMatch = -1;
        m_ui->txtFind->setFocus();
        m_ui->txtFind->selectAll();
    }
    QDialog::showEvent(event);
}

int frmScintillaFind::searchFlags() const
{
    return (m_ui->chkMatchCase->isChecked() ? SCFIND_MATCHCASE : 0) +
        (m_ui->chkWholeWord->isChecked() ? SCFIND_WHOLEWORD : 0);
}

bool frmScintillaFind::findNext()
{
    if (m_ui->txtFind->text().isEmpty()) {
        m_questions.ask(u"Enter text to find"_s, MessageStyle::Exclamation);
        return false;
    }
    m_lastMatch = m_editor.Find(m_ui->txtFind->text(), searchFlags(), m_lastMatch + 1);
    return m_lastMatch >= 0;
}

void frmScintillaFind::replaceNext()
{
    if (m_ui->txtReplace->text().isEmpty()) {
        m_questions.ask(u"Enter text to replace"_s, MessageStyle::Exclamation);
        return;
    }
    // The next search begins behind the replacement, so that one holding the searched text is not found again.
    if (findNext())
        m_lastMatch = m_editor.ReplaceFound(m_ui->txtReplace->text()) - 1;
}
