// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Questions;

// What every list and every editor asks alike. True for Yes, which is never the default.
bool mayDeleteElements(Questions& questions); // the selected ones, of any kind
bool mayDropChanges(Questions& questions); // an editor with unsaved changes is closed
