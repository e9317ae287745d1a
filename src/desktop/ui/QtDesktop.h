// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"
#include "desktop/Questions.h"

class QFileDialog;

// The outside world as the toolkit has it.

// Message boxes over the window in front.
class QtQuestions final : public Questions {
public:
    using Questions::ask;
    Answer ask(const QString& text, MessageStyle style, const QString& title) override;
};

class QtFileDialogs final : public FileDialogs {
public:
    std::optional<QString> openFile(const QString& title, const QString& filter) override;
    std::optional<QString> saveFile(const QString& title, const QString& filter, const QString& suffix) override;
    std::optional<std::uint32_t> pickColor(std::uint32_t initial) override;

private:
    std::optional<QString> run(QFileDialog& dialog, const QString& filter);
    QString m_folder; // where the last file was chosen
};

// The system's dialogs. Without a printer they offer to write a PDF file.
class QtPrinting final : public Printing {
public:
    bool choose(QPrinter& printer, QWidget* parent) override;
    bool setUpPage(QPrinter& printer, QWidget* parent) override;
};

class QtShell final : public Shell {
public:
    bool open(const QString& linkOrFile) override;
};
