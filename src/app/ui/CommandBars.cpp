// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/CommandBars.h"

#include "app/ui/CommandTable.h"
#include "ui/widgets/Icons.h"

#include <QAction>
#include <QHelpEvent>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <QToolTip>
#include <algorithm>

using namespace Qt::StringLiterals;

CommandBars::CommandBars(QMainWindow& frame) : QObject(&frame), m_frame(frame)
{
    m_frame.menuBar()->setObjectName(u"ActiveBar21"_s);
    makeActions();
    makeMenus();
    makeBars();
}

void CommandBars::makeActions()
{
    for (const NeedRow& row : needTable())
        for (const QString& name : QString::fromLatin1(row.commands).split(u' '))
            m_needs.insert(name, QStringView(row.need).toString());
    for (const CommandRow& row : commandTable()) {
        const QString name = QString::fromLatin1(row.name);
        auto* action = new QAction(QStringView(row.caption).toString(), &m_frame);
        action->setObjectName(name);
        action->setCheckable(row.checkable);
        action->setMenuRole(QAction::NoRole);
        if (*row.icon)
            action->setIcon(themedIcon(QString::fromLatin1(row.icon)));
        if (*row.shortcut)
            action->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
        connect(action, &QAction::triggered, this, [this, name] { run(name); });
        m_actions.insert(name, action);
        enable(name, false);
    }
}

QString CommandBars::toolTip(const QString& name) const
{
    const QAction& tool = *action(name);
    QString tip = tool.text().remove(u'&').remove(u"..."_s);
    if (!tool.shortcut().isEmpty())
        tip += u" ("_s + tool.shortcut().toString(QKeySequence::NativeText) + u')';
    const QString need = m_needs.value(name);
    return tool.isEnabled() || need.isEmpty() ? tip : tip + u'\n' + need;
}

template <typename Target>
void CommandBars::fill(Target& target, const char* items)
{
    for (const QString& item : QString::fromLatin1(items).split(u' ')) {
        if (item == "-"_L1)
            target.addSeparator();
        else if (QMenu* inner = menu(item))
            target.addAction(inner->menuAction());
        else
            target.addAction(action(item));
    }
}

void CommandBars::makeMenus()
{
    for (const MenuRow& row : menuTable()) {
        auto* menu = new QMenu(QStringView(row.title).toString(), &m_frame);
        menu->setObjectName(QString::fromLatin1(row.name));
        fill(*menu, row.items);
        menu->installEventFilter(this);
        m_menus.insert(menu->objectName(), menu);
        if (row.inMenuBar)
            m_frame.menuBar()->addMenu(menu);
    }
}

void CommandBars::makeBars()
{
    for (const BarRow& row : barTable()) {
        auto* bar = new QToolBar(QStringView(row.title).toString(), &m_frame);
        bar->setObjectName(QString::fromLatin1(row.name));
        fill(*bar, row.items);
        m_bars.insert(bar->objectName(), bar);
        const bool isSideBar = bar->objectName() == "barOutlook"_L1;
        bar->setToolButtonStyle(isSideBar ? Qt::ToolButtonTextUnderIcon : Qt::ToolButtonIconOnly);
        if (isSideBar)
            bar->setIconSize(QSize(32, 32));
        bar->setContextMenuPolicy(Qt::PreventContextMenu); // the view menu shows and hides bars
        m_frame.addToolBar(isSideBar ? Qt::LeftToolBarArea : Qt::TopToolBarArea, bar);
    }
}

void CommandBars::handle(const QString& name, const Handler& handler)
{
    m_handlers.insert(name, handler);
    enable(name, true);
}

void CommandBars::run(const QString& name)
{
    const QAction* action = m_actions.value(name);
    const Handler handler = m_handlers.value(name);
    if (!action || !handler || !action->isEnabled())
        return;
    emit clicked(name);
    handler();
}

void CommandBars::enable(const QString& name, bool enabled)
{
    QAction* action = m_actions.value(name);
    if (!action)
        return;
    action->setEnabled(enabled && m_handlers.value(name));
    action->setToolTip(toolTip(name));
}

// Only of what is grey: an entry that can be chosen tells itself what it does.
bool CommandBars::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QObject::eventFilter(watched, event);
    auto* menu = static_cast<QMenu*>(watched);
    const auto* help = static_cast<QHelpEvent*>(event);
    const QAction* action = menu->actionAt(help->pos());
    const QString need = !action || action->isEnabled() ? QString() : m_needs.value(action->objectName());
    QToolTip::showText(help->globalPos(), need, menu); // an empty one hides the last
    return true;
}

void CommandBars::check(const QString& name, bool checked)
{
    if (QAction* action = m_actions.value(name))
        action->setChecked(checked);
}

void CommandBars::setFlatLook(bool flat)
{
    for (QToolBar* bar : std::as_const(m_bars)) {
        const bool isSideBar = bar->objectName() == "barOutlook"_L1;
        const int size = isSideBar ? (flat ? 32 : 22) : (flat ? 22 : 16);
        bar->setMovable(!flat);
        bar->setIconSize(QSize(size, size));
        int widest = 0;
        QList<QToolButton*> buttons;
        for (QAction* action : bar->actions()) {
            auto* button = qobject_cast<QToolButton*>(bar->widgetForAction(action));
            if (!button) // a separator
                continue;
            buttons.append(button);
            button->setAutoRaise(flat); // a frame only under the pointer, or always
            widest = std::max(widest, button->sizeHint().width());
        }
        for (QToolButton* button : std::as_const(buttons))
            button->setMinimumWidth(isSideBar ? widest : 0); // frames one below the other have one width
    }
}
