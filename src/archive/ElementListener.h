// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

// What an editor of elements needs of the window that opened it.
class ElementListener {
public:
    virtual ~ElementListener() = default;
    virtual qint32 selectedCategory() const = 0; // where a new element goes; 0 when no category is selected
    // The archive holds a new state of the element: show its category again and select its item ("7 M_ID").
    virtual void elementSaved(const QString& itemKey) = 0;
};
