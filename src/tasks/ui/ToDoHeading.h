// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

// A line of plain text that takes the room it gets: a longer one ends in dots, and its tool tip has it whole. The
// text itself stays as it was given.
class ToDoHeading : public QLabel {
    Q_OBJECT
public:
    explicit ToDoHeading(QWidget* parent = nullptr);
    QSize minimumSizeHint() const override { return {0, QLabel::minimumSizeHint().height()}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool event(QEvent* event) override;
};
