// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTreeView>

// The category tree: tells of clicks on nodes, by mouse or keyboard, and asks for its menu.
class ExplorerTreeView : public QTreeView {
    Q_OBJECT
public:
    explicit ExplorerTreeView(QWidget* parent = nullptr);
    void selectSilently(const QModelIndex& index); // without nodeClicked

signals:
    void nodeClicked(const QModelIndex& index);
    void deleteRequested();
    void renameRequested(); // F2
    void menuRequested(const QPoint& screenPosition, bool overNode);

protected:
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    bool m_silent = false;
};
