// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractSpinBox>
#include <QFrame>
#include <QLabel>

// The controls of the to-do editor that no toolkit has.

// The number at the beginning of a text; 0 when there is none.
double numberIn(const QString& text);

// One step of 10 up to 100, or down to 0.
double percentUp(double percent);
double percentDown(double percent);

// The two buttons beside a text box. It shows no value of its own; Up and Down in the box are steps, too.
class ToDoUpDown : public QAbstractSpinBox {
    Q_OBJECT
public:
    explicit ToDoUpDown(QWidget* parent = nullptr);

    void setBuddy(QWidget* box); // not owned

    void stepBy(int steps) override;
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

signals:
    void upClick();
    void downClick();

protected:
    StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
    bool eventFilter(QObject* watched, QEvent* event) override;
};

// Two rectangles side by side: `Shape1` for what is done, `Shape2` for the rest.
class ToDoPercentBar : public QFrame {
    Q_OBJECT
public:
    explicit ToDoPercentBar(QWidget* parent = nullptr);
    void setPercent(double percent); // drawn as 0 to 100

private:
    QWidget* m_done;
    QWidget* m_rest;
};

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
