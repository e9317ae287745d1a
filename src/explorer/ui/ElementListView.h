// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTreeView>

class ElementListModel;

// One sort direction for all lists of the explorer: each click on a header flips it, in whichever list.
struct SortDirection {
    bool descending = false;
};

// A list of elements in report style. It knows mouse and keyboard, not what the elements are.
class ElementListView : public QTreeView {
    Q_OBJECT
public:
    explicit ElementListView(QWidget* parent = nullptr);

    void setList(ElementListModel* model, SortDirection& direction); // both outlive the view
    ElementListModel* list() const;

    QStringList selectedKeys() const; // in list order
    void selectKey(const QString& key); // it alone, and makes it visible; an unknown key selects nothing
    // All known ones of them; `current` gets the focus. Nothing is scrolled.
    void selectKeys(const QStringList& keys, const QString& current);
    bool isItemAt(const QPoint& viewportPosition) const;

    void keyboardSearch(const QString& search) override; // types ahead in the names, whatever column has the focus

signals:
    void openRequested(); // the current item: double click, Enter or F2
    void newRequested(); // double click on empty space
    void deleteRequested(); // Delete
    // The mouse button went up, or the menu key was pressed: over an item or not.
    void released(bool overItem);
    void menuRequested(const QPoint& screenPosition, bool overItem);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void sortBy(int column);
    bool toggleCheckBox();
    SortDirection* m_direction = nullptr;
};
