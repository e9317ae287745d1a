// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/print/PrintPages.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QLocale>
#include <QPageRanges>
#include <QPainter>
#include <QPrinter>
#include <QProgressDialog>
#include <QSaveFile>
#include <QTemporaryFile>
#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr qreal footerHeight = 24; // points
constexpr qreal columnGap = 14; // points

[[noreturn]] void fail(const QString& why)
{
    throw std::runtime_error(why.toStdString());
}

// The sign of life of long work, with a button that stops it. Until it is in sight no event is looked at, and from then
// on it keeps the user away from everything else: a window must not be used while its pages are being made.
class Progress {
public:
    explicit Progress(QWidget* parent) : m_dialog(u"Preparing the pages..."_s, u"Cancel"_s, 0, 0, parent)
    {
        m_dialog.setObjectName(u"frmPrintProgress"_s);
        m_dialog.setWindowTitle(u"Print"_s);
        m_dialog.setWindowModality(Qt::ApplicationModal);
        m_dialog.setMinimumDuration(std::numeric_limits<int>::max()); // shown below
        m_dialog.setAutoClose(false);
        m_dialog.setAutoReset(false);
        m_clock.start();
    }

    void say(const QString& text) { m_dialog.setLabelText(text); }
    bool step(int done, int of)
    {
        constexpr int pause = 40; // ms between two looks at the screen and the keyboard
        if (m_clock.elapsed() < m_nextLook || m_dialog.wasCanceled())
            return !m_dialog.wasCanceled();
        if (!m_dialog.isVisible())
            m_dialog.show();
        m_dialog.setMaximum(of);
        m_dialog.setValue(done);
        QCoreApplication::processEvents();
        m_nextLook = m_clock.elapsed() + pause;
        return !m_dialog.wasCanceled();
    }

private:
    QProgressDialog m_dialog;
    QElapsedTimer m_clock;
    qint64 m_nextLook = 400; // ms of patience
};

bool layOut(PrintPages& pages, QPrinter& printer, Progress& progress)
{
    return pages.layOut(printer, [&](int done, int of) { return progress.step(done, of); });
}

bool paintList(PrintPages& pages, QPrinter& printer, const std::vector<int>& list, Progress& progress, bool isJob)
{
    QPainter painter;
    if (!painter.begin(&printer))
        fail(printer.outputFormat() == QPrinter::PdfFormat
                 ? u"The PDF file cannot be written."_s
                 : u"The printer \"%1\" is not ready."_s.arg(printer.printerName()));
    const int count = int(list.size());
    for (int i = 0; i < count; ++i) {
        progress.say(u"Page %1 of %2"_s.arg(i + 1).arg(count));
        if (!progress.step(i, count)) {
            if (isJob) // a print system may still print the pages that it has
                printer.abort();
            return false;
        }
        if (i > 0 && !printer.newPage())
            fail(u"Page %1 could not be printed."_s.arg(i + 1));
        painter.save();
        pages.paint(painter, list[size_t(i)]);
        painter.restore();
    }
    if (!painter.end() || printer.printerState() == QPrinter::Error)
        fail(u"The printer did not take the document."_s);
    return true;
}

// Lists such as "1, 4-6" are left to the print system, which knows about sheets; from-to is the program's.
std::vector<int> chosenPages(const QPrinter& printer, int count)
{
    std::vector<int> chosen;
    const bool all = printer.printRange() != QPrinter::PageRange || printer.pageRanges().isEmpty();
    for (int page = 1; page <= count; ++page) {
        if (all || printer.pageRanges().contains(page))
            chosen.push_back(page - 1);
    }
    if (chosen.empty())
        fail(count == 1 ? u"There is only one page."_s : u"There are only %1 pages."_s.arg(count));
    if (printer.pageOrder() == QPrinter::LastPageFirst)
        std::reverse(chosen.begin(), chosen.end());
    return chosen;
}

std::vector<int> withCopies(const QPrinter& printer, const std::vector<int>& chosen)
{
    const int copies = printer.supportsMultipleCopies() ? 1 : std::max(1, printer.copyCount());
    std::vector<int> list;
    const int rounds = printer.collateCopies() ? copies : 1;
    for (int round = 0; round < rounds; ++round) {
        for (const int page : chosen)
            list.insert(list.end(), size_t(copies / rounds), page);
    }
    return list;
}

// The writer of PDF files does not say when the disk is full. A whole file ends with the place of its table of
// contents (ISO 32000-1, 7.5.5), and a piece that is missing in the middle makes that place wrong.
bool isWholePdf(const QByteArray& pdf)
{
    const qsizetype mark = pdf.lastIndexOf("startxref");
    const qsizetype end = pdf.lastIndexOf("%%EOF");
    if (mark < 0 || end < mark)
        return false;
    const qint64 place = pdf.mid(mark + 9, end - mark - 9).trimmed().toLongLong();
    return place > 0 && QByteArrayView(pdf).sliced(std::min<qsizetype>(place, pdf.size())).startsWith("xref");
}

void copyPdf(const QString& from, QSaveFile& to)
{
    QFile written(from);
    const QByteArray pdf = written.open(QIODevice::ReadOnly) ? written.readAll() : QByteArray();
    if (!isWholePdf(pdf))
        fail(u"The folder for temporary files, \"%1\", is full."_s.arg(QDir::toNativeSeparators(QDir::tempPath())));
    if (to.write(pdf) != pdf.size() || !to.flush() || !to.commit())
        fail(u"The file \"%1\" cannot be written: %2"_s.arg(QDir::toNativeSeparators(to.fileName()), to.errorString()));
}

bool printPdf(PrintPages& pages, QPrinter& printer, const std::vector<int>& list, Progress& progress)
{
    const QString name = printer.outputFileName();
    if (name.isEmpty())
        fail(u"There is no printer, and no file was chosen."_s);
    QSaveFile target(name);
    if (!target.open(QIODevice::WriteOnly))
        fail(u"The file \"%1\" cannot be written: %2"_s.arg(QDir::toNativeSeparators(name), target.errorString()));
    QTemporaryFile scratch(QDir::tempPath() + u"/snipvale-XXXXXX.pdf"_s);
    if (!scratch.open())
        fail(u"A temporary file cannot be written: "_s + scratch.errorString());
    printer.setOutputFileName(scratch.fileName());
    bool finished = false;
    try {
        finished = paintList(pages, printer, list, progress, false);
    } catch (...) {
        printer.setOutputFileName(name);
        throw;
    }
    printer.setOutputFileName(name);
    if (finished)
        copyPdf(scratch.fileName(), target);
    return finished;
}

} // namespace

qreal PrintPaper::points(qreal count) const
{
    return count * device->logicalDpiY() / 72;
}

PrintPaper paperOf(QPrinter& printer)
{
    PrintPaper paper{&printer, QSizeF(printer.width(), printer.height())};
    paper.size.rheight() -= paper.points(footerHeight);
    return paper;
}

char16_t printable(char16_t character)
{
    // Controls, objects, and marks that a text document keeps for itself. Hardly a font has pictures of the controls.
    const bool isControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
    if ((isControl && character != u'\t') || character == QChar::ObjectReplacementCharacter ||
        (character >= 0xFDD0 && character <= 0xFDEF))
        return QChar::ReplacementCharacter;
    if (character == QChar::LineSeparator || character == QChar::ParagraphSeparator)
        return QChar::ReplacementCharacter;
    return character;
}

QString printable(const QString& text)
{
    QString shown = text;
    shown.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n').replace(QChar::LineSeparator, u'\n');
    shown.replace(QChar::ParagraphSeparator, u'\n');
    for (qsizetype i = 0; i < shown.size(); ++i) {
        const QChar c = shown[i];
        if (c.isHighSurrogate() && i + 1 < shown.size() && shown[i + 1].isLowSurrogate())
            ++i;
        else if (c.isSurrogate())
            shown[i] = QChar::ReplacementCharacter;
        else if (c != u'\n')
            shown[i] = QChar(printable(c.unicode()));
    }
    return shown;
}

std::vector<PrintPage> paginate(const std::vector<const PrintColumn*>& columns, const PrintPaper& paper)
{
    std::vector<PrintPage> pages(1);
    const qreal bottom = paper.size.height();
    qreal top = 0;
    const auto turn = [&] {
        pages.emplace_back();
        top = 0;
    };
    for (const PrintColumn* column : columns) {
        const int rows = column->rowCount();
        if (rows == 0)
            continue;
        if (top > 0)
            top += paper.points(columnGap);
        const qreal beginning = column->heightOf(0) + (rows > 1 ? column->heightOf(1) : 0);
        if (top > 0 && top + beginning > bottom)
            turn();
        for (int row = 0; row < rows; ++row) {
            const qreal height = column->heightOf(row);
            if (top > 0 && top + height > bottom)
                turn();
            PrintPage& page = pages.back();
            if (page.empty() || page.back().column != column)
                page.push_back({column, top, row, row});
            page.back().end = row + 1;
            top += height;
        }
    }
    return pages;
}

void paintSlices(QPainter& painter, const PrintPage& page)
{
    for (const PrintSlice& slice : page) {
        painter.save();
        slice.column->paint(painter, slice.top, slice.first, slice.end);
        painter.restore();
    }
}

void paintFooter(QPainter& painter, const PrintPaper& paper, const QString& name, int page, int pageCount)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::GeneralFont);
    font.setPointSizeF(8);
    painter.setFont(font);
    const QFontMetricsF metrics(font, paper.device);
    const qreal line = paper.size.height() + paper.points(8);
    painter.setPen(QPen(QColor(0xA0, 0xA0, 0xA0), paper.points(0.5)));
    painter.drawLine(QPointF(0, line), QPointF(paper.size.width(), line));
    painter.setPen(QColor(0x40, 0x40, 0x40));
    const QRectF rect(0, line + paper.points(2), paper.size.width(), metrics.height() + 1);
    const QString number = u"Page %1 of %2"_s.arg(page + 1).arg(pageCount);
    const qreal room = rect.width() - metrics.horizontalAdvance(number) - paper.points(12);
    painter.drawText(rect, Qt::AlignRight | Qt::AlignTop | Qt::TextSingleLine, number);
    const QString oneLine = printable(name.left(300)).replace(u'\n', u' ').replace(u'\t', u' ');
    painter.drawText(rect, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                     metrics.elidedText(oneLine, Qt::ElideRight, room));
}

bool printPages(PrintPages& pages, QPrinter& printer, QWidget* parent)
{
    Progress progress(parent);
    if (!layOut(pages, printer, progress))
        return false;
    const std::vector<int> list = withCopies(printer, chosenPages(printer, pages.pageCount()));
    const bool isFile = printer.outputFormat() == QPrinter::PdfFormat;
    return isFile ? printPdf(pages, printer, list, progress) : paintList(pages, printer, list, progress, true);
}

bool paintPages(PrintPages& pages, QPrinter& printer, QWidget* parent)
{
    Progress progress(parent);
    if (!layOut(pages, printer, progress))
        return false;
    std::vector<int> all(size_t(pages.pageCount()));
    std::iota(all.begin(), all.end(), 0);
    return paintList(pages, printer, all, progress, false);
}

std::unique_ptr<QPrinter> newPrinter(const QString& documentName)
{
    constexpr qreal margin = 15; // mm
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setDocName(documentName);
    printer->setCreator(u"SnipVale"_s);
    if (printer->outputFormat() == QPrinter::PdfFormat) { // no printer knows the paper
        const bool isLetter = QLocale().measurementSystem() == QLocale::ImperialUSSystem;
        printer->setPageSize(QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4));
    }
    printer->setPageMargins(QMarginsF(margin, margin, margin, margin), QPageLayout::Millimeter);
    return printer;
}
