// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/Element.h"

#include <QObject>
#include <QStringList>
#include <vector>

class Archive;
class CategoryList;
class FrameServices;
class ListView;
class cBookmark;
class cCategory;
class cMemo;
class cViewFilter;
struct Desktop;
struct SortDirection;

// What the explorer works on and with. All outlive it.
struct ExplorerContext {
    Archive& archive;
    const Desktop& desktop;
    FrameServices& frame;
    cViewFilter& viewFilter;
    cMemo& memo;
    cBookmark& bookmark;
    cCategory& category; // the current one
};

// What the memo, bookmark and to-do list of the explorer have in common: how they are filled, opened and emptied, and
// which commands they enable. Errors are shown here; a list keeps what it had then.
class ElementPane : public QObject {
    Q_OBJECT
public:
    // Where a pane works; all of it outlives the pane.
    struct Place {
        ListView& view;
        const ExplorerContext& context;
        ElementListener& listener;
        SortDirection& sort;
        QObject* parent;
    };

    void UpdateStatusBar();
    void makeColumns(); // as wide as they begin; later the widths are the user's
    void makeContents(); // of the current category
    void newElement();
    void modifyElement(); // the selected one
    void deleteElements(); // all selected ones, after a question
    void clear();
    void select(qint32 id); // it alone; an unknown one selects nothing
    void openElement(qint32 id); // in its editor; 0 is a new one
    void setInFront(bool inFront); // while it is not, the commands that need an element are off

protected:
    // `needing`: the commands that need an element, beside Modify and Delete. `widths`: of the columns but the last, in
    // characters. The model becomes a child of the pane.
    ElementPane(const Place& place, CategoryList* model, QStringList needing, std::vector<int> widths);

    void refill(); // what was selected and seen stays so
    std::vector<qint32> selectedIds() const; // none while another list is in front
    qint32 selectedId() const; // the current one, else the first selected; 0 without one
    virtual void showEditor(QWidget& window) = 0; // a child of `window`; modal

    ListView& view() const { return m_view; }
    CategoryList& list() const { return m_list; }
    const ExplorerContext& context() const { return m_context; }
    ElementListener& listener() const { return m_listener; }

private:
    void wire();
    void fill();
    void enableNeeding(bool enabled);
    void enableNeedingButDelete(bool enabled);

    ListView& m_view;
    CategoryList& m_list;
    ExplorerContext m_context;
    ElementListener& m_listener;
    const ElementWords& m_words;
    QStringList m_needing;
    std::vector<int> m_widths; // empty once they were set
};
