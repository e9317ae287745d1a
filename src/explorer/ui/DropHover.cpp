// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/ui/DropHover.h"

#include "ui/widgets/ShownText.h"

#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTreeView>

namespace {

constexpr int FirstScrollMs = 300; // a pointer on its way through an edge scrolls nothing
constexpr int NextScrollMs = 60;

// Frames the marked node. The selected one looks as before: the two are seldom the same.
class MarkingDelegate final : public QStyledItemDelegate {
public:
    MarkingDelegate(const DropHover& hover, QObject* parent) : QStyledItemDelegate(parent), m_hover(hover) { }

    QString displayText(const QVariant& value, const QLocale&) const override { return shownLine(value.toString()); }
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        const bool isMarked = index == m_hover.marked();
        QColor colour = option.palette.color(QPalette::Highlight);
        if (isMarked) {
            colour.setAlpha(60);
            painter->fillRect(option.rect, colour);
            colour.setAlpha(255);
        }
        QStyledItemDelegate::paint(painter, option, index);
        if (!isMarked)
            return;
        painter->save();
        painter->setPen(QPen(colour, 2));
        painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
        painter->restore();
    }

private:
    const DropHover& m_hover;
};

// -1, 0 or 1: which edge of 0..length the position is at.
int edge(int position, int length, int margin)
{
    if (position < margin)
        return -1;
    return position >= length - margin ? 1 : 0;
}

bool canStep(const QScrollBar& bar, int direction)
{
    return direction < 0 ? bar.value() > bar.minimum() : direction > 0 && bar.value() < bar.maximum();
}

} // namespace

DropHover::DropHover(QTreeView& view) : QObject(&view), m_view(view)
{
    view.setItemDelegate(new MarkingDelegate(*this, this));
    connect(&m_timer, &QTimer::timeout, this, &DropHover::scrollOn);
}

void DropHover::moveTo(const QPoint& viewportPosition)
{
    m_pointer = viewportPosition;
    mark(m_view.indexAt(m_pointer));
    if (!scroll(false)) {
        m_timer.stop();
        expandMarked();
    } else if (!m_timer.isActive()) {
        m_timer.start(FirstScrollMs);
    }
}

void DropHover::clear()
{
    m_timer.stop();
    mark({});
}

void DropHover::mark(const QModelIndex& index)
{
    if (index == m_marked)
        return;
    m_view.update(m_marked);
    m_marked = index;
    m_view.update(m_marked);
}

void DropHover::expandMarked()
{
    if (m_marked.isValid() && !m_view.isExpanded(m_marked))
        m_view.expand(m_marked);
}

bool DropHover::scroll(bool really)
{
    const QSize area = m_view.viewport()->size();
    const int margin = m_view.fontMetrics().height() * 3 / 2;
    const auto along = [really](QScrollBar& bar, int direction) {
        if (!canStep(bar, direction))
            return false;
        if (really)
            bar.triggerAction(direction < 0 ? QScrollBar::SliderSingleStepSub : QScrollBar::SliderSingleStepAdd);
        return true;
    };
    const bool down = along(*m_view.verticalScrollBar(), edge(m_pointer.y(), area.height(), margin));
    const bool across = along(*m_view.horizontalScrollBar(), edge(m_pointer.x(), area.width(), margin));
    return down || across;
}

// Nodes that pass below a resting pointer stay as they are; the one at which the scrolling ends is expanded.
void DropHover::scrollOn()
{
    m_timer.start(NextScrollMs);
    const bool scrolled = scroll(true);
    mark(m_view.indexAt(m_pointer));
    if (scrolled)
        return;
    m_timer.stop();
    expandMarked();
}
