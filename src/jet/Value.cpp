// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Value.h"

using namespace Qt::StringLiterals;

namespace jet {

Error::Error(const QString& description, int sqliteCode)
    : std::runtime_error((description.isEmpty() ? u"Unknown error of the archive"_s : description).toStdString()),
      m_code(sqliteCode)
{
}

} // namespace jet
