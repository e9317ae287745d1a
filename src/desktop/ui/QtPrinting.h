// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

// The system's dialogs. Without a printer they offer to write a PDF file.
class QtPrinting final : public Printing {
public:
    bool choose(QPrinter& printer, QWidget* parent) override;
    bool setUpPage(QPrinter& printer, QWidget* parent) override;
};
