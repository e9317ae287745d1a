// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/ui/MemoPrintPages.h"

#include "ui/print/RichTextPrint.h"

#include <QPainter>
#include <QPrinter>
#include <QTextCursor>
#include <QTextTable>
#include <algorithm>

using namespace Qt::StringLiterals;

struct MemoPages::Laid {
    int memo = -1;
    QString name;
    std::vector<std::unique_ptr<PrintColumn>> columns;
    std::vector<PrintPage> pages;
};

namespace {

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

} // namespace

MemoPages::MemoPages(int memoCount, Reader reader)
    : m_memoCount(memoCount), m_reader(std::move(reader)), m_firstPages(size_t(memoCount) + 1, 0)
{
}

MemoPages::~MemoPages() = default;

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
