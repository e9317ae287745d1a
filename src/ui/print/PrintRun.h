// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>
#include <memory>

class QPainter;
class QPrinter;
class QWidget;

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
