// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

class QFileDialog;

class QtFileDialogs final : public FileDialogs {
public:
    std::optional<QString> openFile(const QString& title, const QString& filter) override;
    std::optional<QString> saveFile(const QString& title, const QString& filter, const QString& suffix) override;
    std::optional<std::uint32_t> pickColor(std::uint32_t initial) override;

private:
    std::optional<QString> run(QFileDialog& dialog, const QString& filter);
    QString m_folder; // where the last file was chosen
};
