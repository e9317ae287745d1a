// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/code/ui/CodeHost.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

CodeHost::CodeHost(QWidget* parent) : QWidget(parent)
{
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

void CodeHost::host(QWidget* editor)
{
    layout()->addWidget(editor);
    setFocusProxy(editor);
}

void CodeHost::setText(const QString& text)
{
    m_text = text;
    setFont(QFont(u"Lucida Console"_s));
}
