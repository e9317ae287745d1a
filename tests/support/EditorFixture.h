// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/UiSupport.h"

#include "archive/Element.h"
#include "ui/widgets/ElementEditor.h"

#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

class FakeListener : public ElementListener {
public:
    qint32 selectedCategory() const override { return category; }
    void elementSaved(const ElementKey& key) override { saved.append(key.text()); }
    qint32 category = 0;
    QStringList saved;
};

// One editor of elements, its controls by their names.
struct EditorFixture : UiFixture {
    void show(std::unique_ptr<ElementEditor> editor) // as the explorer opens it
    {
        window = std::move(editor);
        loaded = window->Form_Load();
        window->show();
    }
    template <typename Widget>
    Widget& get(const char* name)
    {
        auto* widget = window->findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("there is no %s", name);
        return *widget;
    }
    QLineEdit& box(const char* name) { return get<QLineEdit>(name); }
    void click(const char* name) { QTest::mouseClick(&get<QPushButton>(name), Qt::LeftButton); }

    cViewFilter filter;
    FakeListener listener;
    std::unique_ptr<ElementEditor> window;
    bool loaded = false;
};
