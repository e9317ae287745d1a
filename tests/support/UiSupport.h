// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/CoreSupport.h"

#include "desktop/FileDialogs.h"
#include "desktop/Shell.h"

#include <QStringList>
#include <deque>

// File, colour and shell answers by script; what was asked is kept.
class ScriptedFiles : public FileDialogs {
public:
    std::optional<QString> openFile(const QString& title, const QString& filter) override;
    std::optional<QString> saveFile(const QString& title, const QString& filter, const QString& suffix) override;
    std::optional<std::uint32_t> pickColor(std::uint32_t initial) override;

    std::deque<std::optional<QString>> answers;
    std::deque<std::optional<std::uint32_t>> colors;
    QStringList asked; // "title|filter"
};

class ScriptedShell : public Shell {
public:
    bool open(const QString& linkOrFile) override
    {
        opened.append(linkOrFile);
        return true;
    }
    QStringList opened;
};
