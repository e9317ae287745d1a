// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The frame's options, help and about box.
#include "app/modSnipVale.h"
#include "app/ui/CommandBars.h"
#include "app/ui/HelpTopics.h"
#include "app/ui/frmAbout.h"
#include "app/ui/frmHelp.h"
#include "app/ui/frmMain.h"
#include "app/ui/frmOptions.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"

#include <QApplication>

using namespace Qt::StringLiterals;

void frmMain::makeToolCommands()
{
    handle(u"miToolsOptions"_s, u"ActiveBar21_Click"_s, [this] { showOptions(); });
    handle(u"miOptionsLanguage"_s, u"OpenLanguage"_s, [this] {
        if (m_options)
            m_options->OpenLanguage();
    });
    handle(u"miOptionsLanguageDetailsOpen"_s, u"OpenDetails"_s, [this] {
        if (m_options)
            m_options->OpenDetails();
    });
    for (const QString& tool : {u"miOptionsLanguage"_s, u"miOptionsLanguageDetailsOpen"_s})
        m_bars->enable(tool, false); // they are commands of windows that are not open yet
    handle(u"miHelpWeb"_s, u"HelpWeb"_s, [this] { m_program.HelpWeb(); });
    for (const QString& tool : {u"miHelpManual"_s, u"miHelp"_s})
        handle(tool, u"HelpManual"_s, [this] { HelpManual(); });
    handle(u"miHelpAbout"_s, u"ActiveBar21_Click"_s, [this] { showAbout(); });
    new HelpKey([this] { runCommand(u"miHelpManual"_s); }, this);
}

void frmMain::showOptions()
{
    frmOptions options(m_program, m_desktop, *this, this);
    connect(&options, &frmOptions::lookChanged, m_bars, &CommandBars::setFlatLook);
    m_options = &options;
    options.Form_Load(); // without the languages the rest can still be set
    options.exec();
}

// At the page about what the user is at, whichever window that is in.
void frmMain::HelpManual()
{
    const QString page =
        helpPageFor(QApplication::focusWidget() ? QApplication::focusWidget() : QApplication::activeWindow());
    if (!m_help)
        m_help = std::make_unique<frmHelp>(m_program.helpFolder(), m_desktop);
    m_help->showPage(page);
}

void frmMain::showAbout()
{
    frmAbout about({m_program.archive.ArchivePath(), m_program.AppPath, m_program.ShippedPath + u"/LICENSE"_s}, this);
    about.exec();
}
