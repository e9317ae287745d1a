// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/widgets/ListView.h"

class Archive;
class FrameServices;
class QStandardItemModel;
struct Desktop;

// The languages that the archive enables, with a tick for those that the memo editor offers. Nothing is written before
// save().
class LanguageList final : public ListView {
    Q_OBJECT
public:
    explicit LanguageList(QWidget* parent = nullptr);

    void load(Archive& archive); // the first one is selected then; throws jet::Error
    void save(Archive& archive) const; // all ticks or, on an error, none; throws jet::Error
    // The styles of the selected language, in a window of their own; nothing when none is selected.
    void openStyles(Archive& archive, const Desktop& desktop, FrameServices& frame);

private:
    QStandardItemModel* m_languages;
};
