// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/EditorFixture.h"
#include "support/Registry.h"
#include "vault/VaultFixture.h"

#include "desktop/TextForms.h"
#include "memo/cBookmark.h"
#include "memo/cMemo.h"
#include "memo/ui/frmBookmark.h"
#include "memo/ui/frmSnipVale.h"
#include "tasks/ui/frmToDo.h"
#include "vault/ui/frmPassword.h"

#include <QtWidgets>

namespace {

struct Kind {
    QString word; // also the name of its data row
    QString table, nameColumn, nameBox;
    QString texts; // what can be typed into
    bool hasApply, cancelAsks;
    QString savedKey; // what the explorer is told
    qint32 cViewFilter::*edited;
};

const Kind kinds[] = {
    {u"memo"_s, u"tab_memo"_s, u"memoName"_s, u"txtMemoName"_s,
     u"txtMemoName txtMemoDescription txtMemoLink rtfMemoNotes codeEditor"_s, true, true, u"1 M_ID"_s,
     &cViewFilter::EditingModeMemoID},
    {u"bookmark"_s, u"tab_bookmark"_s, u"name"_s, u"txtName"_s, u"txtName txtKeywords txtLink txtDescription"_s, true,
     false, u"1 B_ID"_s, &cViewFilter::EditingModeBookmarkID},
    {u"to-do"_s, u"tab_todo"_s, u"name"_s, u"txtName"_s, u"txtName rtfDescription txtPercentComplete txtResources"_s,
     false, false, u"1 T_ID"_s, &cViewFilter::EditingModeToDoID},
    {u"account"_s, u"tab_password"_s, u"title"_s, u"txtTitle"_s,
     u"txtTitle txtDescription txtUserName txtPassword txtURL txtNotes"_s, false, true, QString(),
     &cViewFilter::EditingModePasswordID},
};

// The editor of the kind that the data row names, opened as the program opens it.
struct Editor : VaultOn<EditorFixture> {
    void open(qint32 id)
    {
        const EditorContext context{archive, desktop, filter, listener};
        listener.category = 1;
        edited() = id;
        if (kind.word == "memo"_L1)
            show(std::make_unique<frmSnipVale>(context, memo, nullptr));
        else if (kind.word == "bookmark"_L1)
            show(std::make_unique<frmBookmark>(context, bookmark, nullptr));
        else if (isToDo)
            show(std::make_unique<frmToDo>(context, nullptr));
        else
            show(std::make_unique<frmPassword>(PasswordContext{archive, desktop, filter, password, 0}, nullptr));
    }
    qint32& edited() { return filter.*kind.edited; }
    QLineEdit& nameBox() { return box(qPrintable(kind.nameBox)); }
    void type(const QString& name) // and what else the window asks for
    {
        if (isAccount)
            for (const char* field : {"txtUserName", "txtPassword"})
                box(field).setText(u"x"_s);
        nameBox().setFocus();
        QTest::keyClicks(&nameBox(), name);
    }
    void applyByKey() { QTest::keyClick(window.get(), Qt::Key_S, Qt::ControlModifier); }
    void okFails(const QString& message)
    {
        questions.expect(QString());
        click("cmdOK");
        QVERIFY2(questions.asked.last().text.startsWith(message), qPrintable(questions.asked.last().text));
        QVERIFY(window->isVisible() && window->isDirty() && window->isEnabled());
    }
    // All that the window shows in its boxes and labels.
    QString shown()
    {
        QString texts;
        for (const QWidget* widget : window->findChildren<QWidget*>())
            texts += widget->property("text").toString() + widget->property("plainText").toString();
        return texts;
    }

    const Kind kind = *std::find_if(std::begin(kinds), std::end(kinds), [](const Kind& each) {
        return each.word == QString::fromLatin1(QTest::currentDataTag());
    });
    const bool isToDo = kind.word == "to-do"_L1;
    const bool isAccount = kind.word == "account"_L1;
    const QString path = archive.ArchivePath();
    const QString gone = scratch.path(u"gone.SVA"_s);
    cMemo memo{archive};
    cBookmark bookmark{archive};
};

void kindRows()
{
    QTest::addColumn<int>("unused");
    for (const Kind& kind : kinds)
        QTest::newRow(qPrintable(kind.word)) << 0;
}

} // namespace

// What the four editors do alike.
class tst_Editors : public QObject {
    Q_OBJECT
private slots:
    void saving_data() { kindRows(); }

    // A name is required; a new one is inserted once, then updated; what fails leaves the window with all that was
    // typed.
    void saving()
    {
        Editor e;
        e.open(0);
        QVERIFY(e.loaded && !e.window->isDirty() && QTest::qWaitForWindowActive(e.window.get()));
        const auto* apply = e.window->findChild<QPushButton*>(u"cmdApply"_s);
        QVERIFY(bool(apply) == e.kind.hasApply && !(apply && apply->isEnabled()));
        e.applyByKey(); // nothing to save, nothing asked
        e.type(u" \t "_s);
        const QString nameless = e.isAccount ? u"Please choose a title!"_s : u"Please choose a name!"_s;
        e.okFails(nameless);
        e.questions.expect(nameless);
        e.applyByKey();
        QCOMPARE(e.window->focusWidget(), &e.nameBox());
        e.type(u"it's"_s);
        e.archive.setPath(e.gone);
        e.okFails(e.isToDo ? u"Error in ToDo.Save: "_s : u"Error in Save: "_s);
        QCOMPARE(e.edited(), 0);
        e.archive.setPath(e.path);
        apply ? e.click("cmdApply") : e.applyByKey();
        QVERIFY(e.window->isVisible() && e.window->isEnabled() && !e.window->isDirty() && e.edited() == 1);
        e.type(u"x"_s);
        QVERIFY(!apply || apply->isEnabled());
        e.archive.setPath(e.gone);
        const QString updateFailed = e.isToDo ? u"Error in Save: "_s : u"Error in Update: "_s;
        e.okFails(updateFailed);
        e.archive.setPath(e.path); // mended: the same window saves
        e.applyByKey();
        QVERIFY(!e.window->isDirty() && !(apply && apply->isEnabled()));
        e.type(u"y"_s);
        e.click("cmdOK");
        QVERIFY(!e.window->isVisible());
        const QString rows = u"SELECT COUNT(*) & ' ' & MAX(%1) AS n FROM %2"_s.arg(e.kind.nameColumn, e.kind.table);
        QCOMPARE(e.value(rows).simplified(), u"1 it'sxy"_s);
        QCOMPARE(e.listener.saved,
                 e.isAccount ? QStringList() : QStringList(3, e.kind.savedKey)); // only what was written
        e.open(1);
        e.type(u"!"_s);
        e.execute(u"DELETE * FROM "_s + e.kind.table);
        e.okFails(updateFailed + u"The %1 is no longer in the archive."_s.arg(e.kind.word));
    }
    void closingAsks_data() { kindRows(); }

    void closingAsks()
    {
        Editor e;
        e.open(0);
        QTest::keyClick(e.window.get(), Qt::Key_Escape); // nothing unsaved: no question
        QVERIFY(!e.window->isVisible());
        for (const QString& field : e.kind.texts.split(u' ')) {
            e.open(0);
            QTest::keyClicks(&e.get<QWidget>(qPrintable(field)), u"1"_s);
            QVERIFY2(e.window->isDirty(), qPrintable(field));
        }
        const QString question = u"Close without saving changes?"_s;
        e.questions.expect(question, Answer::No);
        QTest::keyClick(e.window.get(), Qt::Key_Escape);
        QCOMPARE(e.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
        e.questions.expect(question, Answer::No);
        QVERIFY(!e.window->close()); // the window's own close box
        if (e.kind.cancelAsks)
            e.questions.expect(question, Answer::Yes);
        e.click("cmdClose"); // the others say what they do
        QVERIFY(!e.window->isVisible());
        QCOMPARE(e.value(u"SELECT COUNT(*) AS n FROM "_s + e.kind.table), u"0"_s);
    }
    void reading_data() { kindRows(); }

    // What cannot be read is refused. And of the element before nothing stays, neither its texts nor its dates: not for
    // a row that has nothing to say, and not for a new one.
    void reading()
    {
        Editor e;
        e.questions.expect(u"Error in Load: The %1 is no longer in the archive."_s.arg(e.kind.word));
        e.open(4711);
        QVERIFY(!e.loaded);
        e.open(0);
        for (const QString& field : e.kind.texts.split(u' '))
            QTest::keyClicks(&e.get<QWidget>(qPrintable(field)), u"before"_s);
        e.click("cmdOK");
        e.open(1);
        const QString date = shortMoment(e.clock.now());
        QVERIFY(e.shown().contains(u"before"_s) && e.shown().contains(date));
        e.execute(u"INSERT INTO %1 (%2) VALUES (%3)"_s
                      .arg(e.kind.table, e.isAccount ? u"passwordCategoryID"_s : u"categoryID"_s)
                      .arg(e.listener.category));
        for (const qint32 id : {2, 0}) {
            e.open(1);
            e.open(id);
            QVERIFY(e.loaded);
            QVERIFY2(!e.shown().contains(u"before"_s) && !e.shown().contains(date), qPrintable(e.shown()));
        }
    }
};

SNIPVALE_TEST(tst_Editors)
#include "tst_Editors.moc"
