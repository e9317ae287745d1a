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
#include "ui/print/PrintPages.h"
#include "ui/print/RichTextPrint.h"
#include "ui/print/frmPrintPreview.h"

#include <QPainter>
#include <QPrinter>
#include <QTextCursor>
#include <QTextTable>
#include <algorithm>
#include <memory>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

// Memos, each beginning on a page of its own; the pages are counted through. A memo is read when its pages are laid
// out and again when they are painted, so that a thousand of them need the memory of one.
class MemoPages final : public PrintPages {
public:
    using Reader = std::function<PrintedMemo(int memo)>; // counted from 0; may throw

    MemoPages(int memoCount, Reader reader);
    bool layOut(QPrinter& printer, const Step& step) override;
    int pageCount() const override;
    void paint(QPainter& painter, int page) override;

private:
    struct Laid { // one memo on paper
        int memo = -1;
        QString name;
        std::vector<std::unique_ptr<PrintColumn>> columns;
        std::vector<PrintPage> pages;
    };
    bool layOutMemo(int memo, const Step& step);

    int m_memoCount;
    Reader m_reader;
    PrintPaper m_paper;
    std::vector<int> m_firstPages; // of each memo, and the number of all pages
    std::unique_ptr<Laid> m_laid; // the last one
};

// The name in big letters and a table of what else is known. Texts go in as they are, never as HTML.
std::unique_ptr<QTextDocument> heading(const PrintedMemo& memo)
{
    const std::pair<QString, QString> all[] = {
        {u"Language:"_s, memo.language}, {u"Category:"_s, memo.category},
        {u"Date in:"_s, memo.created},   {u"Last Modified:"_s, memo.lastModified},
        {u"Link:"_s, memo.link},         {u"Description:"_s, memo.description},
    };
    std::vector<std::pair<QString, QString>> fields;
    std::copy_if(std::begin(all), std::end(all), std::back_inserter(fields),
                 [](const auto& field) { return !field.second.trimmed().isEmpty(); });

    auto document = newPrintDocument();
    QTextCursor cursor(document.get());
    QTextCharFormat title;
    title.setFontPointSize(16);
    title.setFontWeight(QFont::Bold);
    cursor.insertText(printable(memo.name), title);
    if (fields.empty())
        return document;
    QTextTableFormat format;
    format.setBorder(0);
    format.setCellSpacing(0);
    format.setCellPadding(1);
    format.setTopMargin(8);
    format.setColumnWidthConstraints({QTextLength(QTextLength::FixedLength, 110), QTextLength()});
    QTextTable* table = cursor.insertTable(int(fields.size()), 2, format);
    QTextCharFormat label;
    label.setForeground(QColor(0x50, 0x50, 0x50));
    for (int row = 0; row < int(fields.size()); ++row) {
        const auto& [caption, text] = fields[size_t(row)];
        table->cellAt(row, 0).firstCursorPosition().insertText(caption, label);
        table->cellAt(row, 1).firstCursorPosition().insertText(printable(text));
    }
    return document;
}

bool isBlank(const QByteArray& text)
{
    return std::all_of(text.begin(), text.end(), [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); });
}

MemoPages::MemoPages(int memoCount, Reader reader)
    : m_memoCount(memoCount), m_reader(std::move(reader)), m_firstPages(size_t(memoCount) + 1, 0)
{
}

bool MemoPages::layOutMemo(int index, const Step& step)
{
    if (m_laid && m_laid->memo == index)
        return true;
    m_laid.reset();
    auto laid = std::make_unique<Laid>();
    PrintedMemo memo = m_reader(index);
    laid->memo = index;
    laid->name = memo.name;
    laid->columns.push_back(std::make_unique<DocumentColumn>(heading(memo), m_paper));
    if (!isBlank(memo.code.text)) {
        auto code = std::make_unique<CodeColumn>(memo.code, m_paper);
        if (!code->wrap(step))
            return false;
        laid->columns.push_back(std::move(code));
    }
    if (auto notes = printDocumentOf(memo.notes)) {
        insertHeading(*notes, u"Notes"_s);
        laid->columns.push_back(std::make_unique<DocumentColumn>(std::move(notes), m_paper));
    }
    std::vector<const PrintColumn*> columns;
    for (const auto& column : laid->columns)
        columns.push_back(column.get());
    laid->pages = paginate(columns, m_paper);
    m_laid = std::move(laid);
    return true;
}

bool MemoPages::layOut(QPrinter& printer, const Step& step)
{
    constexpr int share = 1000; // of one memo in the progress
    m_paper = paperOf(printer);
    m_laid.reset();
    for (int memo = 0; memo < m_memoCount; ++memo) {
        const auto inMemo = [&](int done, int of) {
            return step(memo * share + int(qint64(done) * share / std::max(1, of)), m_memoCount * share);
        };
        if (!inMemo(0, 1) || !layOutMemo(memo, inMemo))
            return false;
        m_firstPages[size_t(memo) + 1] = m_firstPages[size_t(memo)] + int(m_laid->pages.size());
    }
    return true;
}

int MemoPages::pageCount() const
{
    return m_firstPages.back();
}

void MemoPages::paint(QPainter& painter, int page)
{
    const auto next = std::upper_bound(m_firstPages.begin(), m_firstPages.end(), page);
    const auto memo = int(next - m_firstPages.begin()) - 1;
    layOutMemo(memo, [](int, int) { return true; });
    const auto inMemo = size_t(page - m_firstPages[size_t(memo)]);
    if (inMemo < m_laid->pages.size()) // else it was made shorter in the meantime
        paintSlices(painter, m_laid->pages[inMemo]);
    paintFooter(painter, m_paper, m_laid->name, page, pageCount());
}

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
