// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QSizeF>
#include <QString>
#include <vector>

class QPainter;
class QPrinter;
class QPaintDevice;

// White paper. Lengths are in dots of the device, between the margins of the page.
struct PrintPaper {
    QPaintDevice* device = nullptr; // not owned
    QSizeF size; // of the body, the footer is below it
    qreal points(qreal count) const; // that many points (1/72 inch) in dots
};

PrintPaper paperOf(QPrinter& printer);

// `text` as it can be read on `paper`: the hue stays, but what is too pale becomes darker (on dark paper: lighter).
// Contrast is that of the Web Content Accessibility Guidelines 2.1.
QColor readableOn(const QColor& text, const QColor& paper);

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
