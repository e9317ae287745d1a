// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QSizeF>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

class QPaintDevice;
class QPainter;
class QPrinter;
class QWidget;

// White paper. Lengths are in dots of the device, between the margins of the page.
struct PrintPaper {
    QPaintDevice* device = nullptr; // not owned
    QSizeF size; // of the body, the footer is below it
    qreal points(qreal count) const; // that many points (1/72 inch) in dots
};

PrintPaper paperOf(QPrinter& printer);

// Control characters and whatever else would not be seen as U+FFFD: nothing disappears. Line ends of all kinds become
// LF; tabs stay.
QString printable(const QString& text);
char16_t printable(char16_t character); // of one that is no line end and no surrogate

// A column of rows, as wide as the body. It is broken into pages between two rows.
class PrintColumn {
public:
    virtual ~PrintColumn() = default;
    virtual int rowCount() const = 0;
    virtual qreal heightOf(int row) const = 0;
    virtual void paint(QPainter& painter, qreal top, int first, int end) const = 0; // the rows from first to end - 1
};

// Rows of one column at a place of a page.
struct PrintSlice {
    const PrintColumn* column;
    qreal top;
    int first;
    int end;
};
using PrintPage = std::vector<PrintSlice>;

// Puts the columns one below the other onto pages. A column does not begin with a single row at a page's end. At least
// one page.
std::vector<PrintPage> paginate(const std::vector<const PrintColumn*>& columns, const PrintPaper& paper);

void paintSlices(QPainter& painter, const PrintPage& page);

// The document's name on the left, "Page 2 of 5" on the right, under a thin line.
void paintFooter(QPainter& painter, const PrintPaper& paper, const QString& name, int page, int pageCount);

// Something that can be put on pages of any paper. Both may throw.
class PrintPages {
public:
    // Called every now and then with how much is done; false: stop.
    using Step = std::function<bool(int done, int of)>;

    virtual ~PrintPages() = default;
    virtual bool layOut(QPrinter& printer, const Step& step) = 0; // false when it was stopped
    virtual int pageCount() const = 0; // as laid out last; at least 1
    virtual void paint(QPainter& painter, int page) = 0; // counted from 0; the origin is the corner inside the margins
};

// Prints what `printer` was set up for in the print dialog: its pages, order and copies. Long work shows its progress
// over `parent` and can be stopped: false then. Throws std::runtime_error with the reason when nothing or not all could
// be printed; a PDF file is written whole or not at all, and one that was there stays until then.
bool printPages(PrintPages& pages, QPrinter& printer, QWidget* parent);

// All pages onto a printer in preview mode. False when it was stopped.
bool paintPages(PrintPages& pages, QPrinter& printer, QWidget* parent);

// The printer that the user has as the usual one, on its usual paper; a PDF file of no name yet when there is none.
// Made when something is printed and not before: it asks the print system.
std::unique_ptr<QPrinter> newPrinter(const QString& documentName);
