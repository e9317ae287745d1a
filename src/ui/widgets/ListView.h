// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHash>
#include <QKeyCombination>
#include <QTreeView>
#include <functional>
#include <vector>

// One sort direction for several lists: each click on a header flips it, in whichever list.
struct SortDirection {
    bool descending = false;
};

// A list in report style. It knows mouse and keyboard, not what its rows are. Every row of the model has a key in
// Qt::UserRole, which begins with its number ("12 M_ID"); by it a row is found again after the list was filled anew.
class ListView : public QTreeView {
    Q_OBJECT
public:
    explicit ListView(QWidget* parent = nullptr);

    // A list whose names have pictures. Typing in it looks through the names. The model outlives the view.
    void setList(QAbstractItemModel* model, int nameColumn = 0);
    int nameColumn() const { return m_nameColumn; }
    void sortWith(SortDirection& direction); // by header clicks; it outlives the view
    // Beside the keys that every list has. All of them come before commands of the frame with the same key.
    void addKey(QKeyCombination key, const std::function<void()>& routine);

    QString keyOf(int row) const; // empty when there is no such row
    QModelIndex selectedRow() const; // the current one if it is selected, else the first selected; may be invalid
    QString selectedKey() const; // of that row; empty for none
    qint32 selectedId() const; // the number of that key; 0 for none
    QStringList selectedKeys() const; // in list order
    std::vector<qint32> selectedIds() const; // their numbers
    void selectKey(const QString& key); // it alone, and makes it visible; an unknown key selects nothing
    // All known ones of them; `current` gets the focus. Nothing is scrolled.
    void selectKeys(const QStringList& keys, const QString& current);
    bool isItemAt(const QPoint& viewportPosition) const;

    // Calls `fill`, which replaces the rows. Rows that are still there stay selected, and the view stays in its place.
    // If `fill` throws, nothing has changed.
    void refill(const std::function<void()>& fill);
    // The same when `fill` takes the selected rows away: the row after them, else the one before, is selected then.
    void refillAfterDelete(const std::function<void()>& fill);

    void keyboardSearch(const QString& search) override; // in the names, whatever column has the focus

signals:
    void openRequested(); // Enter, F2, or a double click on a row
    void newRequested(); // Insert, or a double click on empty space
    void deleteRequested(); // Delete
    void selectionMade(); // it may have changed
    // The mouse button went up, or the menu key was pressed: over an item or not.
    void released(bool overItem);
    void menuRequested(const QPoint& screenPosition, bool overItem);

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    QModelIndexList selectedRows() const; // in list order
    QStringList keysBesideSelection() const;
    void fillAndSelect(const std::function<void()>& fill, const QStringList& next);
    QModelIndex find(const QStringList& keys) const;
    bool isOnCheckBox(const QPoint& position) const;
    bool toggleCheckBox();

    int m_nameColumn = 0;
    QHash<int, std::function<void()>> m_keys;
};
