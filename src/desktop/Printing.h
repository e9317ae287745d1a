// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QPrinter;
class QWidget;

// What the user is asked before paper is used up. Nothing is printed here.
class Printing {
public:
    virtual ~Printing() = default;
    // The system's print dialog: printer or PDF file, paper, pages and copies go into `printer`. False: cancelled.
    virtual bool choose(QPrinter& printer, QWidget* parent) = 0;
    // Paper, orientation and margins alone. False: cancelled.
    virtual bool setUpPage(QPrinter& printer, QWidget* parent) = 0;
};
