// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/Element.h"

using namespace Qt::StringLiterals;

const ElementWords& wordsOf(ElementKind kind)
{
    static const ElementWords words[] = {
        // name, image; tags of category, list and search; key suffix, table, key column, the same for deleting; status,
        // in a drag
        {u"Memo"_s, u"memo"_s, u"category"_s, u"Memo"_s, u"MEMO"_s, u" M_ID"_s, u"tab_memo"_s, u"memoID"_s, u"memoID"_s,
         u"Memo -  items: "_s, u"memo"_s},
        {u"Bookmark"_s, u"bookmark"_s, u"bookmark"_s, u"bookmark"_s, u"BOOKMARK"_s, u" B_ID"_s, u"tab_bookmark"_s,
         u"bookmarkID"_s, u"bookmarkID"_s, u"Bookmarks -  items: "_s, u"bookmark"_s},
        {u"ToDo"_s, u"todo"_s, u"todo"_s, u"todo"_s, u"TODO"_s, u" T_ID"_s, u"tab_todo"_s, u"todoID"_s, u"ToDoID"_s,
         u"ToDo -  items: "_s, u"ToDo"_s},
    };
    return words[size_t(kind)];
}
