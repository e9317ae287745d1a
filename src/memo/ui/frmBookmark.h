// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/widgets/ElementEditor.h"

#include <memory>

class cBookmark;

namespace Ui {
class frmBookmark;
}

// Creates or edits one bookmark: the one whose identifier cViewFilter holds, or a new one when that is 0.
class frmBookmark final : public ElementEditor {
    Q_OBJECT
public:
    frmBookmark(const EditorContext& context, cBookmark& bookmark, QWidget* parent); // the record outlives it
    ~frmBookmark() override;

private:
    ElementRecord& record() override;
    void startNew() override;
    void showRecord(bool isNew) override;
    bool transfer() override;
    void saved() override;
    void updateVisitButton();
    void VisitBookmark();

    std::unique_ptr<Ui::frmBookmark> m_ui;
    EditorContext m_context;
    cBookmark& m_bookmark;
};
