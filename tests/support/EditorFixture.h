// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/UiSupport.h"

#include "archive/Element.h"

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
template <typename Window>
struct EditorFixture : UiFixture {
    virtual ~EditorFixture() = default;
    virtual void open(qint32 id) = 0;
    void show(std::unique_ptr<Window> editor) // as the explorer opens it
    {
        window = std::move(editor);
        loaded = window->Form_Load();
        window->show();
    }
    template <typename Widget>
    Widget& get(const char* name)
    {
        auto* widget = window->template findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("there is no %s", name);
        return *widget;
    }
    QLineEdit& box(const char* name) { return get<QLineEdit>(name); }
    void click(const char* name) { QTest::mouseClick(&get<QPushButton>(name), Qt::LeftButton); }
    // OK while the archive is away: the message, and the window stays with what was typed.
    void okFails(const QString& message)
    {
        const QString path = archive.ArchivePath();
        archive.setPath(scratch.path(QStringLiteral("gone.SVA")));
        questions.expect(QString());
        click("cmdOK");
        QVERIFY(questions.asked.last().text.startsWith(message));
        QVERIFY(questions.asked.last().text.contains(QLatin1String("gone.SVA")));
        QVERIFY(window->isVisible() && window->isDirty());
        archive.setPath(path);
    }

    // Neither an element that is gone nor one of an archive that is away is shown.
    void refusesWhatItCannotRead(const QString& gone)
    {
        questions.expect(QStringLiteral("Error in Load: ") + gone);
        open(4711);
        QVERIFY(!loaded);
        archive.setPath(scratch.path(QStringLiteral("gone.SVA")));
        questions.expect(QString());
        open(1);
        QVERIFY(!loaded);
        QVERIFY(questions.asked.last().text.startsWith(QLatin1String("Error in Load: ")));
    }

    cViewFilter filter;
    FakeListener listener;
    std::unique_ptr<Window> window;
    bool loaded = false;
};
