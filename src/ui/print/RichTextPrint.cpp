// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/print/RichTextPrint.h"

#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "ui/print/PrintPages.h"
#include "ui/richtext/Rtf.h"
#include "ui/widgets/Colors.h"

#include <QAbstractTextDocumentLayout>
#include <QFontDatabase>
#include <QFontInfo>
#include <QPainter>
#include <QPrinter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextLayout>
#include <QTextList>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qreal screenDpi = 96; // of the margins in a text document

void setUpDocument(QTextDocument& document)
{
    QFont font(QFontInfo(QFontDatabase::systemFont(QFontDatabase::GeneralFont)).family(), 10);
    document.setDefaultFont(font);
    document.setDocumentMargin(0);
    document.setUndoRedoEnabled(false);
    QTextOption option = document.defaultTextOption();
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    option.setTabStopDistance(48); // half an inch, as RTF has it
    document.setDefaultTextOption(option);
}

// The colour that a piece of text needs on paper; invalid when it can keep what it has.
QColor paperColor(const QTextCharFormat& format, const QTextBlockFormat& block)
{
    QColor paper = Qt::white;
    for (const QBrush& brush : {block.background(), format.background()}) {
        if (brush.style() != Qt::NoBrush)
            paper = brush.color();
    }
    const bool hasOwn = format.foreground().style() != Qt::NoBrush;
    const QColor color = hasOwn ? format.foreground().color() : QColor(Qt::black);
    if (format.isAnchor() && (color == rtf::linkColor() || rtf::isUsualLinkColor(color)))
        return readableOn(rtf::writtenLinkColor(), paper);
    const QColor shown = readableOn(color, paper);
    return shown == color ? QColor() : shown;
}

void useWhitePaper(QTextDocument& document)
{
    struct Change {
        int first;
        int end;
        QColor color;
    };
    std::vector<Change> changes;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment piece = it.fragment();
            const QColor color = paperColor(piece.charFormat(), block.blockFormat());
            if (color.isValid())
                changes.push_back({piece.position(), piece.position() + piece.length(), color});
        }
    }
    QTextCursor cursor(&document);
    for (const Change& change : changes) {
        cursor.setPosition(change.first);
        cursor.setPosition(change.end, QTextCursor::KeepAnchor);
        QTextCharFormat format;
        format.setForeground(change.color);
        cursor.mergeCharFormat(format);
    }
}

// An indent that leaves no room for the text would push it off the paper.
void limitIndents(QTextDocument& document, qreal width)
{
    int deepest = 1;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const QTextBlockFormat format = block.blockFormat();
        deepest = std::max(deepest, format.indent() + (block.textList() ? block.textList()->format().indent() : 0));
        const qreal taken = std::max(0.0, format.leftMargin()) + std::max(0.0, format.rightMargin());
        if (taken <= width / 2 && format.leftMargin() >= 0 && format.rightMargin() >= 0 &&
            std::abs(format.textIndent()) <= width / 2)
            continue;
        const qreal scale = taken > width / 2 ? width / 2 / taken : 1;
        QTextBlockFormat limited;
        limited.setLeftMargin(std::max(0.0, format.leftMargin()) * scale);
        limited.setRightMargin(std::max(0.0, format.rightMargin()) * scale);
        limited.setTextIndent(std::clamp(format.textIndent(), -limited.leftMargin(), width / 4));
        QTextCursor(block).mergeBlockFormat(limited);
    }
    document.setIndentWidth(std::min(document.indentWidth(), width / 3 / deepest));
}

// One rich text and nothing else.
class RichTextPages final : public PrintPages {
public:
    RichTextPages(const QTextDocument& text, QString name) : m_text(text), m_name(std::move(name)) { }

    bool layOut(QPrinter& printer, const Step& step) override
    {
        std::unique_ptr<QTextDocument> copy(m_text.clone());
        setUpDocument(*copy);
        m_paper = paperOf(printer);
        m_column = std::make_unique<DocumentColumn>(std::move(copy), m_paper);
        m_pages = paginate({m_column.get()}, m_paper);
        return step(1, 1);
    }
    int pageCount() const override { return int(m_pages.size()); }
    void paint(QPainter& painter, int page) override
    {
        paintSlices(painter, m_pages[size_t(page)]);
        paintFooter(painter, m_paper, m_name, page, pageCount());
    }

private:
    const QTextDocument& m_text;
    QString m_name;
    PrintPaper m_paper;
    std::unique_ptr<DocumentColumn> m_column;
    std::vector<PrintPage> m_pages;
};

} // namespace

std::unique_ptr<QTextDocument> newPrintDocument()
{
    auto document = std::make_unique<QTextDocument>();
    setUpDocument(*document);
    return document;
}

std::unique_ptr<QTextDocument> printDocumentOf(const QString& stored)
{
    auto document = newPrintDocument();
    if (!rtf::read(stored, document.get()).ok)
        document->setPlainText(printable(stored));
    setUpDocument(*document);
    return document->toPlainText().trimmed().isEmpty() ? nullptr : std::move(document);
}

void insertHeading(QTextDocument& document, const QString& heading)
{
    QTextCursor cursor(&document);
    cursor.insertBlock();
    cursor.movePosition(QTextCursor::Start);
    if (QTextList* list = cursor.currentList())
        list->remove(cursor.block());
    QTextBlockFormat block;
    block.setBottomMargin(4);
    cursor.setBlockFormat(block);
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    format.setFontPointSize(12);
    cursor.setBlockCharFormat(format);
    cursor.insertText(heading, format);
}

DocumentColumn::DocumentColumn(std::unique_ptr<QTextDocument> document, const PrintPaper& paper)
    : m_document(std::move(document))
{
    useWhitePaper(*m_document);
    limitIndents(*m_document, paper.size.width() * screenDpi / paper.device->logicalDpiX());
    m_document->documentLayout()->setPaintDevice(paper.device);
    m_document->setPageSize(QSizeF(paper.size.width(), -1));
    findRows(paper.size.height());
}

// Lines that stand beside each other, as in a table, are one row. A row higher than a page is cut.
void DocumentColumn::findRows(qreal pageHeight)
{
    std::vector<std::pair<qreal, qreal>> lines; // top, bottom
    const QAbstractTextDocumentLayout& layout = *m_document->documentLayout();
    for (QTextBlock block = m_document->begin(); block.isValid(); block = block.next()) {
        const QPointF corner = layout.blockBoundingRect(block).topLeft();
        const QTextLayout& text = *block.layout();
        for (int i = 0; i < text.lineCount(); ++i) {
            const qreal top = corner.y() + text.lineAt(i).y();
            lines.emplace_back(top, top + text.lineAt(i).height());
        }
    }
    std::sort(lines.begin(), lines.end());
    m_bounds.push_back(0);
    qreal bottom = 0;
    const auto close = [&] {
        while (bottom - m_bounds.back() > pageHeight)
            m_bounds.push_back(m_bounds.back() + pageHeight);
        m_bounds.push_back(bottom);
    };
    for (const auto& [top, lineBottom] : lines) {
        if (top >= bottom - 1 && bottom > m_bounds.back())
            close();
        bottom = std::max(bottom, lineBottom);
    }
    if (bottom > m_bounds.back())
        close();
}

void DocumentColumn::paint(QPainter& painter, qreal top, int first, int end) const
{
    const qreal from = m_bounds[size_t(first)];
    const QRectF rect(0, from, m_document->pageSize().width(), m_bounds[size_t(end)] - from);
    painter.translate(0, top - from);
    painter.setClipRect(rect, Qt::IntersectClip);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = rect.adjusted(0, 1, 0, -1); // else the neighbours that touch it are drawn too
    for (const auto role : {QPalette::Text, QPalette::WindowText})
        context.palette.setColor(role, Qt::black);
    context.palette.setColor(QPalette::Link, rtf::writtenLinkColor());
    m_document->documentLayout()->draw(&painter, context);
}

bool printRichText(const QTextDocument& text, const QString& name, const Desktop& desktop, QWidget* parent)
{
    bool printed = false;
    trapErrors(desktop.questions, u"PrintDoc"_s, [&] {
        const std::unique_ptr<QPrinter> printer = newPrinter(name);
        if (!desktop.printing.choose(*printer, parent))
            return;
        RichTextPages pages(text, name);
        printed = printPages(pages, *printer, parent);
    });
    return printed;
}
