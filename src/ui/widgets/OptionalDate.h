// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateEdit>

class QCheckBox;

// The user's short date with all digits of the year.
QString shortDayFormat();

// A date picker that can be empty: a date edit with a calendar and with a check box inside its left edge, which is
// named as the picker is, with "_check" behind. Unticked stands for no date; the date that is shown greyed then is
// the one that ticking brings back. A change of the date, by the user or by the program, ticks. Space ticks and
// unticks as the check box does. Dates of the years 100 to 9999, as the archive has them; another one is moved to the
// nearer end.
class OptionalDate : public QDateEdit {
    Q_OBJECT
    Q_PROPERTY(bool checked READ isChecked WRITE setChecked NOTIFY toggled)
public:
    explicit OptionalDate(QWidget* parent = nullptr);

    bool isChecked() const;
    void setChecked(bool checked);

    void setValue(const QDate& date); // an invalid date unticks, and what is shown stays
    QDate value(); // invalid when unticked. Takes over what is being typed

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    void toggled(bool checked);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    int checkWidth() const;
    void placeCheck();
    void showState();

    QCheckBox* m_check;
    bool m_calendarWatched = false;
};
