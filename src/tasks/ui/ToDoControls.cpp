// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/ui/ToDoControls.h"

#include "ui/widgets/ShownText.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QRegularExpression>
#include <QStyle>
#include <QStyleOptionSpinBox>
#include <QToolTip>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr double percentStep = 10;
constexpr double twipsAPercent = 20;
constexpr double twipsAPixel = 15; // at 96 dots an inch, which Qt scales

int barWidth(double percent)
{
    return int(std::lround(percent * twipsAPercent / twipsAPixel));
}

} // namespace

double numberIn(const QString& text)
{
    static const QRegularExpression number(u"^\\s*([+-]?(\\d+\\.?\\d*|\\.\\d+)([eE][+-]?\\d+)?)"_s);
    return number.match(text).captured(1).toDouble();
}

double percentUp(double percent)
{
    return percent <= 100 - percentStep ? percent + percentStep : 100;
}

double percentDown(double percent)
{
    return percent >= percentStep ? percent - percentStep : 0;
}

ToDoUpDown::ToDoUpDown(QWidget* parent) : QAbstractSpinBox(parent)
{
    lineEdit()->hide();
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void ToDoUpDown::setBuddy(QWidget* box)
{
    box->installEventFilter(this);
}

void ToDoUpDown::stepBy(int steps)
{
    for (; steps > 0; --steps)
        emit upClick();
    for (; steps < 0; ++steps)
        emit downClick();
}

// As high as a text box, as wide as the style's buttons.
QSize ToDoUpDown::sizeHint() const
{
    const QSize full = QAbstractSpinBox::sizeHint();
    QStyleOptionSpinBox option;
    initStyleOption(&option);
    option.rect = QRect(QPoint(), full);
    const QRect up = style()->subControlRect(QStyle::CC_SpinBox, &option, QStyle::SC_SpinBoxUp, this);
    return {full.width() - up.left() + 1, full.height()};
}

bool ToDoUpDown::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Up || key == Qt::Key_Down) {
            stepBy(key == Qt::Key_Up ? 1 : -1);
            return true;
        }
    }
    return QAbstractSpinBox::eventFilter(watched, event);
}

ToDoPercentBar::ToDoPercentBar(QWidget* parent) : QFrame(parent), m_done(new QWidget(this)), m_rest(new QWidget(this))
{
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setForegroundRole(QPalette::Mid);
    setFixedSize(barWidth(100) + 2 * frameWidth(), fontMetrics().height() + 2 * frameWidth());
    m_done->setObjectName(u"Shape1"_s);
    m_rest->setObjectName(u"Shape2"_s);
    m_done->setPalette(QColor(255, 255, 192));
    m_rest->setPalette(QColor(255, 0, 0));
    for (QWidget* shape : {m_done, m_rest})
        shape->setAutoFillBackground(true);
    setPercent(0);
}

void ToDoPercentBar::setPercent(double percent)
{
    const double shown = qBound(0.0, percent, 100.0);
    const QRect inside = contentsRect();
    const int done = barWidth(shown);
    m_done->setGeometry(inside.left(), inside.top(), done, inside.height());
    m_rest->setGeometry(inside.left() + done, inside.top(), barWidth(100) - done, inside.height());
    setAccessibleName(QString::number(shown) + u" %"_s);
}

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
