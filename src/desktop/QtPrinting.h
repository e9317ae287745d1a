// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Printing.h"

#include <QString>
#include <memory>

// The system's dialogs. Without a printer they offer to write a PDF file.
class QtPrinting final : public Printing {
public:
    bool choose(QPrinter& printer, QWidget* parent) override;
    bool setUpPage(QPrinter& printer, QWidget* parent) override;
};

// The printer that the user has as the usual one, on its usual paper; a PDF file of no name yet when there is none.
// Made when something is printed and not before: it asks the print system.
std::unique_ptr<QPrinter> newPrinter(const QString& documentName);
