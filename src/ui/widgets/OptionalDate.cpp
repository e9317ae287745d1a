// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/OptionalDate.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QWheelEvent>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int boxInset = 3; // pixels between the field's edge and the check box, and again before the date

} // namespace

QString shortDayFormat()
{
    QString format = QLocale().dateFormat(QLocale::ShortFormat);
    if (!format.contains("yyyy"_L1))
        format.replace("yy"_L1, "yyyy"_L1);
    return format;
}

OptionalDate::OptionalDate(QWidget* parent) : QDateEdit(parent), m_check(new QCheckBox(this))
{
    setTimeSpec(Qt::UTC); // a day, whatever the clocks do on it
    setDisplayFormat(shortDayFormat());
    setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
    setCalendarPopup(true);
    setFocusPolicy(Qt::StrongFocus);
    m_check->setFocusPolicy(Qt::TabFocus);
    m_check->setCursor(Qt::ArrowCursor);
    m_check->setToolTip(u"Untick for no date"_s);
    setTabOrder(m_check, this); // in the order in which they stand
    connect(this, &QObject::objectNameChanged, m_check,
            [this](const QString& name) { m_check->setObjectName(name + u"_check"_s); });
    connect(this, &QDateEdit::dateChanged, m_check, [this] { m_check->setChecked(true); });
    connect(m_check, &QCheckBox::toggled, this, [this](bool checked) {
        showState();
        emit toggled(checked);
    });
    showState();
}

bool OptionalDate::isChecked() const
{
    return m_check->isChecked();
}

void OptionalDate::setChecked(bool checked)
{
    m_check->setChecked(checked);
}

void OptionalDate::setValue(const QDate& date)
{
    if (date.isValid())
        setDate(qBound(minimumDate(), date, maximumDate()));
    setChecked(date.isValid());
}

QDate OptionalDate::value()
{
    interpretText();
    return isChecked() ? date() : QDate();
}

int OptionalDate::checkWidth() const
{
    return m_check->sizeHint().width();
}

QSize OptionalDate::sizeHint() const
{
    return QDateEdit::sizeHint() + QSize(2 * boxInset + checkWidth(), 0);
}

QSize OptionalDate::minimumSizeHint() const
{
    return QDateEdit::minimumSizeHint() + QSize(2 * boxInset + checkWidth(), 0);
}

void OptionalDate::placeCheck()
{
    const QRect field = lineEdit()->geometry();
    m_check->setGeometry(field.left() + boxInset, field.top(), checkWidth(), field.height());
    lineEdit()->setTextMargins(2 * boxInset + checkWidth(), 0, 0, 0);
}

void OptionalDate::showState()
{
    QPalette colours;
    if (!isChecked())
        colours.setColor(QPalette::Text, palette().color(QPalette::Disabled, QPalette::Text));
    lineEdit()->setPalette(colours);
    // The outline of a check box is made from the window's colour; on a dark field that would not be seen.
    QColor outline = palette().color(QPalette::Text);
    outline.setAlpha(128);
    QPalette boxColours;
    boxColours.setColor(QPalette::Window, outline);
    m_check->setPalette(boxColours);
}

void OptionalDate::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space && event->modifiers() == Qt::NoModifier)
        m_check->toggle();
    else
        QDateEdit::keyPressEvent(event);
}

// A click on the day that is shown changes no date, and still chooses it.
void OptionalDate::mousePressEvent(QMouseEvent* event)
{
    if (!std::exchange(m_calendarWatched, true)) // not before: making a calendar is slow
        connect(calendarWidget(), &QCalendarWidget::clicked, m_check, [this] { m_check->setChecked(true); });
    QDateEdit::mousePressEvent(event);
}

// The wheel turns only the picker that one is in: rolling over it must not give a date.
void OptionalDate::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QDateEdit::wheelEvent(event);
    else
        event->ignore();
}

void OptionalDate::resizeEvent(QResizeEvent* event)
{
    QDateEdit::resizeEvent(event);
    placeCheck();
}

void OptionalDate::showEvent(QShowEvent* event)
{
    m_check->setAccessibleName(accessibleName()); // both are read out as one thing
    QDateEdit::showEvent(event);
    placeCheck();
}

void OptionalDate::changeEvent(QEvent* event)
{
    QDateEdit::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::EnabledChange)
        showState();
    if (event->type() == QEvent::StyleChange || event->type() == QEvent::FontChange)
        placeCheck();
}
