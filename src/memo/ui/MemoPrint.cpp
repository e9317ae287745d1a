// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/ui/MemoPrint.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/TextForms.h"
#include "memo/cMemo.h"
#include "memo/code/cScintilla.h"
#include "memo/code/ui/ScintillaView.h"
#include "ui/print/frmPrintPreview.h"

#include <QPrinter>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

// What the memos are called in the queue of the printer, and as a file.
struct Job {
    QString name;
    MemoPages pages;
};

QString nameIn(Archive& archive, const QString& sql)
{
    ArchiveUnit unit(archive);
    const jet::Recordset row = unit.Open(sql);
    return row.eof() ? QString() : row.text(u"name"_s);
}

// In an editor that is never shown: so paper has the very colours of the screen.
StyledCode styledCode(Archive& archive, const QString& text, qint32 language)
{
    ScintillaView editor;
    cScintilla scintilla(editor, archive);
    scintilla.Init();
    editor.setText(text.toUtf8());
    scintilla.SetLexer(language);
    return styledCodeOf(editor);
}

PrintedMemo readMemo(Archive& archive, qint32 id)
{
    cMemo memo(archive);
    memo.MemoID = id;
    if (!memo.Load())
        throw std::runtime_error(memo.lastError().toStdString());
    if (memo.CategoryID == 0)
        throw std::runtime_error("The memo is no longer in the archive.");
    PrintedMemo printed;
    printed.name = memo.MemoName;
    printed.language = languageName(archive, memo.MemoTypeID);
    printed.category = categoryName(archive, memo.CategoryID);
    printed.created = shortMoment(memo.MemoDateIn);
    printed.lastModified = shortMoment(memo.MemoDateLastMod);
    printed.link = memo.MemoLink;
    printed.description = memo.MemoDescription;
    printed.code = styledCode(archive, memo.SnipVale, memo.MemoTypeID);
    printed.notes = memo.MemoNotes;
    return printed;
}

Job jobOf(Archive& archive, const QList<qint32>& ids)
{
    const QString name = ids.size() == 1 ? readMemo(archive, ids.first()).name : u"%1 memos"_s.arg(ids.size());
    return {name, MemoPages(int(ids.size()), [&archive, ids](int memo) { return readMemo(archive, ids[memo]); })};
}

Job jobOf(const PrintedMemo& memo)
{
    return {memo.name, MemoPages(1, [memo](int) { return memo; })};
}

bool print(QWidget* parent, const Desktop& desktop, Job job)
{
    const std::unique_ptr<QPrinter> printer = newPrinter(job.name);
    return desktop.printing.choose(*printer, parent) && printPages(job.pages, *printer, parent);
}

bool preview(QWidget* parent, const Desktop& desktop, Job job)
{
    const std::unique_ptr<QPrinter> printer = newPrinter(job.name);
    frmPrintPreview window(job.pages, *printer, desktop, parent);
    return window.exec() == QDialog::Accepted;
}

template <typename Work>
bool trapped(const Desktop& desktop, const QString& routine, Work&& work)
{
    bool done = false;
    trapErrors(desktop.questions, routine, [&] { done = work(); });
    return done;
}

} // namespace

bool printMemos(QWidget* parent, Archive& archive, const Desktop& desktop, const QList<qint32>& ids)
{
    return trapped(desktop, u"PrintMemo"_s,
                   [&] { return !ids.isEmpty() && print(parent, desktop, jobOf(archive, ids)); });
}

bool previewMemos(QWidget* parent, Archive& archive, const Desktop& desktop, const QList<qint32>& ids)
{
    return trapped(desktop, u"PreviewMemo"_s,
                   [&] { return !ids.isEmpty() && preview(parent, desktop, jobOf(archive, ids)); });
}

bool printMemo(QWidget* parent, const Desktop& desktop, const PrintedMemo& memo)
{
    return trapped(desktop, u"PrintMemo"_s, [&] { return print(parent, desktop, jobOf(memo)); });
}

bool previewMemo(QWidget* parent, const Desktop& desktop, const PrintedMemo& memo)
{
    return trapped(desktop, u"PreviewMemo"_s, [&] { return preview(parent, desktop, jobOf(memo)); });
}

QString languageName(Archive& archive, qint32 memoTypeID)
{
    return nameIn(archive, u"SELECT name FROM tab_memoType WHERE memoTypeID = "_s + QString::number(memoTypeID));
}

QString categoryName(Archive& archive, qint32 categoryID)
{
    return nameIn(archive, u"SELECT name FROM tab_category WHERE categoryID = "_s + QString::number(categoryID));
}
