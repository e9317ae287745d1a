// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

// A picture that is drawn anew for each size, so that it is sharp at every scale. A kind of picture says how in
// paint().
class DrawnIcon : public QIconEngine {
public:
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }
};
