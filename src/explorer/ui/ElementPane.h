// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "explorer/ui/ElementListView.h"
#include "explorer/ui/ExplorerContext.h"

#include <QObject>
#include <QStringList>
#include <vector>

class ElementListModel;
class ElementListener;

// What the memo, bookmark and to-do list of the explorer have in common: how they are filled, opened and emptied, and
// which commands they enable. Errors are shown here; a list keeps what it had then.
class ElementPane : public QObject {
    Q_OBJECT
public:
    void UpdateStatusBar();
    virtual void clear() = 0;
    void selectKey(const QString& key); // it alone; an unknown key selects nothing
    void openElement(qint32 id); // in its editor
    void setInFront(bool inFront); // while it is not, the commands that need an element are off

protected:
    struct Words {
        QString element; // as in "miMemoNew", "mnuMemo", "DeleteMemo"
        QString status; // before the number of items
        QStringList needing; // the commands that need an element, beside Modify and Delete
        std::vector<int> widths; // of the columns but the last, in characters
    };

    ElementPane(ElementListView& view, ElementListModel& model, const ExplorerContext& context,
                ElementListener& listener, SortDirection& sort, Words words, QObject* parent);

    void makeColumns();
    void makeContents(); // of the current category
    void refill(); // the same, and what was selected and seen stays so
    void newElement();
    void modifyElement(); // the selected one
    void deleteElements(); // all selected ones, after a question
    qint32 selectedId() const; // the current one, else the first selected; 0 without one

    virtual void readRows() = 0; // throws; the model stays as it is then
    virtual void deleteRows(const QString& ids) = 0; // throws
    virtual qint32& idToEdit() = 0; // of cViewFilter
    virtual void showEditor(QWidget&) { } // a kind may have none

    ElementListView& view() const { return m_view; }
    const ExplorerContext& context() const { return m_context; }
    ElementListener& listener() const { return m_listener; }

private:
    void wire();
    void enableNeeding(bool enabled);
    void enableNeedingButDelete(bool enabled);
    QString command(const char* verb) const;
    QStringList selectedKeys() const; // none while another list is in front

    ElementListView& m_view;
    ElementListModel& m_model;
    ExplorerContext m_context;
    ElementListener& m_listener;
    Words m_words;
    bool m_columnsMade = false;
};
