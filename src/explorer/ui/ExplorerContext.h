// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Archive;
class FrameServices;
class cBookmark;
class cCategory;
class cMemo;
class cViewFilter;
struct Desktop;

// What the explorer works on and with. All outlive it.
struct ExplorerContext {
    Archive& archive;
    const Desktop& desktop;
    FrameServices& frame;
    cViewFilter& viewFilter;
    cMemo& memo;
    cBookmark& bookmark;
    cCategory& category; // the current one
};
