// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/print/PrintPages.h"

#include <QTextDocument>
#include <memory>

class QWidget;
struct Desktop;

// A text document for paper: an empty one to be filled, and what is ready to be laid out.
std::unique_ptr<QTextDocument> newPrintDocument();

// The notes of an element as stored: RTF, or plain when it is not RTF. Null when there is nothing to read in them.
std::unique_ptr<QTextDocument> printDocumentOf(const QString& stored);

// A heading before everything else.
void insertHeading(QTextDocument& document, const QString& heading);

// A text document as a column, with its formatting, on white paper: what a dark screen needs is not printed.
class DocumentColumn final : public PrintColumn {
public:
    DocumentColumn(std::unique_ptr<QTextDocument> document, const PrintPaper& paper);
    int rowCount() const override { return int(m_bounds.size()) - 1; }
    qreal heightOf(int row) const override { return m_bounds[size_t(row) + 1] - m_bounds[size_t(row)]; }
    void paint(QPainter& painter, qreal top, int first, int end) const override;

private:
    void findRows(qreal pageHeight);
    std::unique_ptr<QTextDocument> m_document;
    std::vector<qreal> m_bounds; // top of each row, and the bottom of the last
};

// Prints a rich text alone, through the print dialog. False when the user cancelled, or after an error that was shown.
bool printRichText(const QTextDocument& text, const QString& name, const Desktop& desktop, QWidget* parent);
