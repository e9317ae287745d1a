// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// What a category files and an element is: the code in tab_category.type.
enum class ElementKind : qint16 { Memo = 0, Bookmark = 1, ToDo = 2 };

inline constexpr ElementKind elementKinds[] = {ElementKind::Memo, ElementKind::Bookmark, ElementKind::ToDo};

// Null and unknown numbers are memos.
inline ElementKind elementKind(qint64 type)
{
    return type == 1 ? ElementKind::Bookmark : type == 2 ? ElementKind::ToDo : ElementKind::Memo;
}

// What the three kinds are called, wherever they differ by a word only.
struct ElementWords {
    QString name; // "ToDo": of the section, the command "miToDoNew", the menu "mnuToDo", the routine "DeleteToDo"
    QString image; // "todo": of the picture, and of the name's column in the search
    QString categoryTag; // "category" (of a memo), "bookmark", "todo": of the node of its category
    QString listTag; // "Memo", "bookmark", "todo": of its item in the list of its category
    QString hitTag; // "MEMO", "BOOKMARK", "TODO": of its item in the list of the search
    QString keySuffix; // " T_ID"
    QString table; // "tab_todo"
    QString keyColumn; // "todoID"
    QString deletedKey; // the same, as the deletion spells it
    QString status; // before the number of items in the list
    QString inDrag; // as the status of a drag calls them
};
const ElementWords& wordsOf(ElementKind kind);

// An element of the archive.
struct ElementKey {
    ElementKind kind = ElementKind::Memo;
    qint32 id = 0;

    QString text() const { return QString::number(id) + wordsOf(kind).keySuffix; } // of its item: "7 M_ID"
    bool operator==(const ElementKey&) const = default;
};

// What an editor of elements needs of the window that opened it.
class ElementListener {
public:
    virtual ~ElementListener() = default;
    virtual qint32 selectedCategory() const = 0; // where a new element goes; 0 when no category is selected
    // The archive holds a new state of the element: show its category again and select its item.
    virtual void elementSaved(const ElementKey& key) = 0;
};

// What the next editor of each kind is to edit: the element's identifier, or 0 for a new one. Whoever opens an
// editor writes it; the editor writes the new identifier back after its first save.
class cViewFilter {
public:
    qint32 EditingModeMemoID = 0;
    qint32 EditingModeBookmarkID = 0;
    qint32 EditingModeToDoID = 0;
    qint32 EditingModeCategoryID = 0;
    qint32 EditingModePasswordID = 0;
};
