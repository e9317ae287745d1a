// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class Questions;

// Asks before selected elements of any kind are deleted. True for Yes.
bool mayDeleteElements(Questions& questions);
