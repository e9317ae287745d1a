// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The description of the to-do editor: its tool bar, its menu and its files.
#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/TextForms.h"
#include "tasks/ui/frmToDo.h"
#include "ui/print/RichTextPrint.h"
#include "ui/richtext/RichTextBar.h"
#include "ui/richtext/RichTextBox.h"
#include "ui/widgets/Icons.h"
#include "ui_frmToDo.h"

#include <optional>

using namespace Qt::StringLiterals;

void frmToDo::makeNoteBar()
{
    RichTextBox& notes = *m_ui->rtfDescription;
    RichTextBar::Setup setup;
    setup.keys = {u"New"_s,     u"Open"_s,       u"Save"_s,    u"Print"_s,       u"|"_s,      u"Cut"_s,
                  u"Copy"_s,    u"Paste"_s,      u"|"_s,       u"Bold"_s,        u"Italic"_s, u"Underline"_s,
                  u"|"_s,       u"Align Left"_s, u"Center"_s,  u"Align Right"_s, u"|"_s,      u"Color"_s,
                  u"Numbers"_s, u"Bullets"_s,    u"Outdent"_s, u"Indent"_s};
    setup.hidden = {u"New"_s, u"Save"_s, u"Numbers"_s}; // they do nothing
    setup.icon = themedIcon;
    auto* bar = new RichTextBar(notes, setup, this);
    bar->setIconSize({16, 16});
    m_ui->layDescription->insertWidget(0, bar);
    bar->join(m_context.desktop, m_ui->txtName);
    connect(bar, &RichTextBar::openRequested, this, &frmToDo::openNoteFile);
    connect(bar, &RichTextBar::printRequested, this, &frmToDo::printNotes);
    QList<QAction*> toggles;
    for (const QString& key : {u"Bold"_s, u"Italic"_s, u"Underline"_s, u"Align Left"_s, u"Center"_s, u"Align Right"_s})
        toggles.append(bar->command(key));
    notes.addMenuActions(toggles);
    connect(&notes, &RichTextBox::linkActivated, this, &frmToDo::openLink);
}

void frmToDo::openLink(const QString& address)
{
    if (!isWebAddress(address))
        return;
    trapErrors(m_context.archive.questions(), u"OpenLink"_s, [&] { m_context.desktop.shell.openLink(address); });
}

void frmToDo::openNoteFile()
{
    trapErrors(m_context.archive.questions(), u"OpenFile"_s, [&] {
        if (const auto name = m_context.desktop.files.openFile(u"Apri "_s, u"All Files (*.*) |*.*"_s))
            m_ui->rtfDescription->replaceText(m_context.readTextFile(*name));
    });
}

void frmToDo::printNotes()
{
    printRichText(*m_ui->rtfDescription->document(), m_ui->txtName->text(), m_context.desktop, this);
}
