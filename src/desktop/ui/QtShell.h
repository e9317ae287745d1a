// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/Desktop.h"

class QtShell final : public Shell {
public:
    bool open(const QString& linkOrFile) override;
};
