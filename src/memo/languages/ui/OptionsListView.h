// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTreeView>

// A report list of the options: a double click or Enter opens an item, Space ticks it wherever in its row the
// cursor is, and an item has a menu. Enter never presses the window's default button.
class OptionsListView : public QTreeView {
    Q_OBJECT
public:
    explicit OptionsListView(QWidget* parent = nullptr);

signals:
    void itemOpened(); // the current one
    void menuRequested(const QPoint& screenPosition); // for the current item

protected:
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    bool isOnCheckBox(const QPoint& position) const;
};
