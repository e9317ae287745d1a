// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ui/QtShell.h"

#include <QDesktopServices>
#include <QUrl>

bool QtShell::open(const QString& linkOrFile)
{
    return QDesktopServices::openUrl(QUrl::fromUserInput(linkOrFile));
}
