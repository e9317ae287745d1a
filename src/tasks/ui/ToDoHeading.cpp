// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/ui/ToDoHeading.h"

#include "ui/widgets/PlainToolTip.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

ToDoHeading::ToDoHeading(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void ToDoHeading::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const QString shown = fontMetrics().elidedText(text().simplified(), Qt::ElideRight, width());
    painter.drawText(rect(), Qt::AlignVCenter | Qt::TextSingleLine, shown);
}

bool ToDoHeading::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QLabel::event(event);
    if (fontMetrics().horizontalAdvance(text().simplified()) > width())
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), plainToolTip(text()), this);
    return true;
}
