// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "archive/Element.h"

#include <QString>
#include <functional>
#include <vector>

class Archive;

// Which columns of a memo are searched; of bookmarks and to-dos it is always the same ones.
struct SearchFields {
    bool memoName = true;
    bool snipVale = true; // the code
    bool memoNotes = true;
};

// An element that was found.
struct SearchHit {
    ElementKey key;
    qint32 categoryID = 0;
    QString name;
    QString type; // the language of a memo
};

// The query for the elements that hold the text in one of the fields. The text goes into the statement as it was
// typed: % _ and [ ] are wildcards, and a single quote breaks it.
QString searchStatement(ElementKind kind, const QString& text, const SearchFields& fields);

// `keepGoing` is asked every few milliseconds, and may be empty; false stops the search with a jet::Error. Throws
// jet::Error.
std::vector<SearchHit> searchElements(Archive& archive, ElementKind kind, const QString& text,
                                      const SearchFields& fields, const std::function<bool()>& keepGoing);
