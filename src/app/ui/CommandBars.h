// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <functional>

class QAction;
class QMainWindow;
class QMenu;
class QToolBar;

// The commands, menus and tool bars of the frame, made from the command table. A command is one QAction, shown
// wherever the table puts it. A command that nothing handles stays disabled, whoever asks for it.
class CommandBars : public QObject {
    Q_OBJECT
public:
    explicit CommandBars(QMainWindow& frame);

    using Handler = std::function<void()>;
    void handle(const QString& name, const Handler& handler); // enables the command; an empty one disables it
    void run(const QString& name); // as a click: nothing when disabled or unknown

    void enable(const QString& name, bool enabled);
    void check(const QString& name, bool checked);
    QAction* action(const QString& name) const { return m_actions.value(name); } // null when unknown
    QMenu* menu(const QString& name) const { return m_menus.value(name); }
    QToolBar* bar(const QString& name) const { return m_bars.value(name); }

    // Flat bars with large pictures in their places, or raised buttons with small ones in bars that can be moved.
    void setFlatLook(bool flat);

signals:
    void clicked(const QString& name); // before the handler runs

protected:
    bool eventFilter(QObject* watched, QEvent* event) override; // the tips of the menus

private:
    void makeActions();
    void makeMenus();
    void makeBars();
    QString toolTip(const QString& name) const; // of a disabled command: with what it needs
    template <typename Target>
    void fill(Target& target, const char* items);

    QMainWindow& m_frame;
    QHash<QString, QAction*> m_actions;
    QHash<QString, QMenu*> m_menus;
    QHash<QString, QToolBar*> m_bars;
    QHash<QString, Handler> m_handlers;
    QHash<QString, QString> m_needs; // of disabled commands
};
