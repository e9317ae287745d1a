// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/cCategory.h"
#include "desktop/ui/FrameView.h"
#include "explorer/ui/ElementPane.h"
#include "memo/cBookmark.h"
#include "memo/cMemo.h"

class frmSnipValeS;

// "Memo", the view that the frame starts with: the explorer, and the records that its windows share.
class ExplorerView final : public FrameView {
public:
    // All outlive it.
    ExplorerView(Archive& archive, const Desktop& desktop, FrameServices& frame, QWidget& window, cViewFilter& filter);

    void toDosChanged(); // elsewhere

    void registerCommands() override;
    QWidget* open() override;
    bool isOpen() const override { return m_window; }
    void cameToFront() override;
    void wentBehind() override { m_wasBehind = true; }
    void readAgain() override;
    void close() override;

private:
    cMemo m_memo;
    cBookmark m_bookmark;
    cCategory m_category;
    ExplorerContext m_context;
    frmSnipValeS* m_window = nullptr;
    bool m_wasBehind = false;
};
