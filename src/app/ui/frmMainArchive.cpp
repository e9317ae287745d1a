// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The archive commands of the frame: open another archive, save a copy, compact and repair.
#include "app/modSnipVale.h"
#include "app/ui/CommandBars.h"
#include "app/ui/frmMain.h"
#include "archive/ErrorTrap.h"
#include "archive/Upgrade.h"
#include "desktop/Desktop.h"
#include "desktop/Questions.h"
#include "explorer/ui/frmSnipValeS.h"
#include "jet/Maintenance.h"
#include "notes/ui/frmNoteList.h"
#include "vault/ui/frmPasswordS.h"

#include <QFileInfo>
#include <QToolBar>

using namespace Qt::StringLiterals;

namespace {

const QString archiveFilter = u"SnipVale Archive (*.SVA) |*.SVA"_s;

} // namespace

void frmMain::makeArchiveCommands()
{
    handle(u"miFileOpen"_s, u"OpenArchive"_s, [this] { OpenArchive(); });
    handle(u"miFileSaveAs"_s, u"SaveArchiveAs"_s, [this] { SaveArchiveAs(); });
    handle(u"miFileCompactDB"_s, u"CompactArchive"_s, [this] { CompactArchive(); });
    handle(u"miFileExit"_s, u"ActiveBar21_Click"_s, [this] { leave(); });
}

// For this run only: the settings keep naming the archive of the next start.
void frmMain::OpenArchive()
{
    const std::optional<QString> chosen = m_desktop.files.openFile(u"Open Archive"_s, archiveFilter);
    if (!chosen || !m_noteWindows.closeNotes())
        return;
    m_program.archive.setPath(*chosen);
    setWindowTitle(m_program.captionWithPath());
    setStatus(u"Opening archive... please wait"_s);
    closeViews();
    for (const QString& bar : {u"barMemo"_s, u"barPassword"_s, u"barNote"_s})
        m_bars->bar(bar)->hide();
    loadTray();
    UpdateArchiveVersion(m_program.archive);
    showView(u"Memo"_s);
    setStatus(u"SnipVale"_s);
}

void frmMain::SaveArchiveAs()
{
    const std::optional<QString> chosen =
        m_desktop.files.saveFile(u"Save SnipVale Archive..."_s, archiveFilter, u"SVA"_s);
    if (!chosen)
        return;
    const QString& archive = m_program.archive.ArchivePath();
    if (chosen->trimmed().toLower() == archive.trimmed().toLower() || jet::isSameFile(*chosen, archive)) {
        m_desktop.questions.ask(u"Attention: it's forbidden to save on working archive! "_s, MessageStyle::Exclamation);
        return;
    }
    jet::copyArchive(archive, *chosen);
}

void frmMain::CompactArchive()
{
    const QString archive = m_program.archive.ArchivePath();
    const QString text = u"The following procedure will compact and repair the current archive!\r\n"
                         "You might do a backup copy of you archive  before starting.\r\n"
                         "Current archive: "_s +
        archive + u"\r\nConfirm procedure?"_s;
    if (m_desktop.questions.ask(text, MessageStyle::YesNo, u"Compact and repair archive"_s) != Answer::Yes)
        return;
    setStatus(u"Working... Please wait"_s);
    setCursor(Qt::WaitCursor);
    jet::CompactResult result;
    // In the archive's own folder, so that taking its place is one rename.
    const QString temporary = QFileInfo(archive).absolutePath() + u"/tmpCompactDB.sva"_s;
    const bool done =
        trapErrors(m_desktop.questions, u"CompactArchive"_s, [&] { result = jet::compactArchive(archive, temporary); });
    unsetCursor();
    setStatus(u"SnipVale"_s);
    if (done)
        reportCompacted(result.bytesBefore, result.bytesNow, result.damagedCopy);
}

void frmMain::reportCompacted(qint64 before, qint64 now, const QString& damagedCopy)
{
    m_desktop.questions.ask(u"Done!\r\nFile lenght in byte before procedure: "_s + QString::number(before) +
                                u"\r\nFile lenght in byte now: "_s + QString::number(now),
                            MessageStyle::Information);
    if (damagedCopy.isEmpty())
        return;
    m_desktop.questions.ask(u"The archive was damaged. What could be read is in the repaired archive.\r\n"
                            "The damaged file was kept as "_s +
                                damagedCopy,
                            MessageStyle::Exclamation);
    if (m_explorer)
        m_explorer->LoadTreeView();
    if (m_notes)
        m_notes->MakeLvwContents();
    if (m_passwords)
        m_passwords->setInFront(m_viewInFront == "Password"_L1);
}
