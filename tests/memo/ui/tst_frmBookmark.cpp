// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/EditorFixture.h"
#include "support/Registry.h"

#include "memo/cBookmark.h"
#include "memo/ui/frmBookmark.h"

#include <QLabel>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

// A desktop that has no program for any link.
class EmptyShell : public Shell {
public:
    bool open(const QString&) override { return false; }
};

// One bookmark editor, opened as the explorer opens it.
struct Editor : EditorFixture<frmBookmark> {
    explicit Editor(qint32 id = 0)
    {
        listener.category = 2;
        open(id);
    }
    void open(qint32 id) final
    {
        filter.EditingModeBookmarkID = id;
        show(std::make_unique<frmBookmark>(EditorContext{archive, desktop, filter, listener}, bookmark, nullptr));
    }
    qint32 insert(const QString& name, const QString& description)
    {
        cBookmark row(archive);
        row.CategoryID = 2;
        row.BookmarkName = name;
        row.BookmarkKeywords = u"k'"_s;
        row.BookmarkDescription = description;
        row.BookmarkLink = u"https://x/"_s;
        if (!row.Save())
            qFatal("the bookmark was not saved");
        return row.BookmarkID;
    }
    QString column(const char* name) { return value(u"SELECT %1 FROM tab_bookmark"_s.arg(QLatin1String(name))); }
    QString count() { return value(u"SELECT COUNT(bookmarkID) AS n FROM tab_bookmark"_s); }

    cBookmark bookmark{archive};
};

} // namespace

class tst_frmBookmark : public QObject {
    Q_OBJECT
private slots:
    void newBookmarkIsInsertedOnceThenUpdated();
    void existingBookmarkIsShownAndRewritten();
    void descriptionKeepsEveryCharacter();
    void nothingOfTheBookmarkBeforeStays();
    void keyboard();
    void nameIsRequired();
    void dirtyWindowAsks();
    void visiting();
    void failedSaveKeepsTheWindow();
    void unreadableBookmarkIsRefused();
};

void tst_frmBookmark::newBookmarkIsInsertedOnceThenUpdated()
{
    Editor e;
    QVERIFY(e.loaded);
    QCOMPARE(e.window->windowTitle(), u"Bookmark"_s);
    QVERIFY(!e.get<QLabel>("lblCreationDate").isVisible());
    QVERIFY(!e.get<QPushButton>("cmdApply").isEnabled());
    QTest::keyClicks(&e.box("txtName"), u" O'Brien "_s);
    QVERIFY(e.window->isDirty() && e.get<QPushButton>("cmdApply").isEnabled());
    e.click("cmdApply");
    QCOMPARE(e.filter.EditingModeBookmarkID, 1);
    QVERIFY(!e.window->isDirty() && !e.get<QPushButton>("cmdApply").isEnabled());
    e.get<QPlainTextEdit>("txtDescription").setPlainText(u"it's"_s);
    e.click("cmdApply");
    QTest::keyClicks(&e.box("txtKeywords"), u"k"_s);
    e.click("cmdOK");
    QVERIFY(!e.window->isVisible());
    QCOMPARE(e.value(u"SELECT COUNT(bookmarkID) AS n FROM tab_bookmark WHERE name = ' O''Brien ' AND "
                     "description = 'it''s' AND keywords = 'k' AND categoryID = 2"_s),
             u"1"_s);
    QCOMPARE(e.count(), u"1"_s);
    QCOMPARE(e.listener.saved, QStringList({u"1 B_ID"_s, u"1 B_ID"_s, u"1 B_ID"_s}));
}

void tst_frmBookmark::existingBookmarkIsShownAndRewritten()
{
    Editor e;
    e.clock.moment = QDateTime(QDate(2025, 1, 2), QTime(3, 4));
    e.insert(u"other"_s, QString());
    const qint32 id = e.insert(u"имя"_s, u"a\nb"_s);
    e.clock.moment = QDateTime(QDate(2026, 1, 2), QTime(3, 4));
    e.open(id);
    QVERIFY(e.loaded && !e.window->isDirty());
    QCOMPARE(e.box("txtName").text(), u"имя"_s);
    QCOMPARE(e.box("txtKeywords").text(), u"k'"_s);
    QCOMPARE(e.box("txtLink").text(), u"https://x/"_s);
    QCOMPARE(e.get<QPlainTextEdit>("txtDescription").toPlainText(), u"a\nb"_s);
    QCOMPARE(e.get<QLabel>("lblCreationDate").text(),
             QLocale().toString(QDateTime(QDate(2025, 1, 2), QTime(3, 4)), QLocale::ShortFormat));
    QVERIFY(e.get<QLabel>("lblCreationDate").isVisible());
    e.box("txtLink").setText(u"/home/it's/世界"_s);
    e.click("cmdOK");
    QCOMPARE(e.listener.saved, QStringList({u"2 B_ID"_s}));
    QCOMPARE(e.value(u"SELECT url FROM tab_bookmark WHERE bookmarkID = 2"_s), u"/home/it's/世界"_s);
    QCOMPARE(e.value(u"SELECT url FROM tab_bookmark WHERE bookmarkID = 1"_s), u"https://x/"_s);
    QCOMPARE(e.count(), u"2"_s);
    QCOMPARE(e.value(u"SELECT dateIn FROM tab_bookmark WHERE bookmarkID = 2"_s), u"2025-01-02 03:04:00"_s);
    QCOMPARE(e.value(u"SELECT dateLastMod FROM tab_bookmark WHERE bookmarkID = 2"_s), u"2026-01-02 03:04:00"_s);
}

void tst_frmBookmark::descriptionKeepsEveryCharacter()
{
    const QString stored = u"one\r\ntwo\u00A0words\r\n\tנמסטה \U0001F600"_s;
    Editor e;
    e.open(e.insert(u"n"_s, stored));
    e.box("txtName").setText(u"m"_s);
    e.click("cmdApply");
    QCOMPARE(e.column("description"), stored); // it was not edited
    auto& text = e.get<QPlainTextEdit>("txtDescription");
    text.moveCursor(QTextCursor::End);
    QTest::keyClick(&text, Qt::Key_Return, Qt::ShiftModifier);
    text.insertPlainText(u"tail\u00A0end"_s);
    e.click("cmdApply");
    QCOMPARE(e.column("description"), u"one\ntwo\u00A0words\n\tנמסטה \U0001F600\ntail\u00A0end"_s);
    text.clear();
    e.click("cmdApply");
    QCOMPARE(e.column("description"), QString());
}

void tst_frmBookmark::nothingOfTheBookmarkBeforeStays()
{
    Editor e;
    e.open(e.insert(u"first"_s, u"secret"_s));
    e.open(0);
    QVERIFY(e.loaded);
    QCOMPARE(e.box("txtName").text() + e.get<QPlainTextEdit>("txtDescription").toPlainText(), QString());
    e.box("txtName").setText(u"second"_s);
    e.click("cmdOK");
    QCOMPARE(e.value(u"SELECT COUNT(bookmarkID) AS n FROM tab_bookmark WHERE name = 'second' AND description = '' AND "
                     "keywords = '' AND url = ''"_s),
             u"1"_s);
    QCOMPARE(e.filter.EditingModeBookmarkID, 2);
}

void tst_frmBookmark::keyboard()
{
    Editor e;
    QVERIFY(QTest::qWaitForWindowActive(e.window.get()));
    QStringList order;
    for (int i = 0; i < 8; ++i) {
        order << QApplication::focusWidget()->objectName();
        if (order.last() == "txtName"_L1 || order.last() == "txtLink"_L1) // enables Apply and Visit Link
            QTest::keyClicks(QApplication::focusWidget(), u"x"_s);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(order.join(u' '), u"txtName txtKeywords txtDescription txtLink cmdGo cmdOK cmdApply cmdClose"_s);
    QTest::keyClick(&e.box("txtLink"), Qt::Key_Return); // only the name's box saves
    QVERIFY(e.window->isVisible());
    QCOMPARE(e.count(), u"0"_s);
    QTest::keyClick(e.window.get(), Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(e.count(), u"1"_s);
    QVERIFY(e.window->isVisible() && !e.window->isDirty());
    QTest::keyClick(&e.box("txtName"), Qt::Key_Return);
    QVERIFY(!e.window->isVisible());
    QCOMPARE(e.count(), u"1"_s);
    QCOMPARE(e.listener.saved.size(), 2);
}

void tst_frmBookmark::nameIsRequired()
{
    Editor e;
    for (const char* button : {"cmdOK", "cmdApply"}) {
        e.box("txtName").setText(u" \t "_s);
        e.box("txtKeywords").setText(u"precious"_s);
        e.questions.expect(u"Please choose a name!"_s);
        e.click(button);
        QCOMPARE(e.questions.asked.last().style, MessageStyle::Information);
        QVERIFY(e.window->isVisible() && e.window->isDirty());
        QCOMPARE(e.box("txtKeywords").text(), u"precious"_s);
    }
    QCOMPARE(e.count(), u"0"_s);
    QCOMPARE(e.filter.EditingModeBookmarkID, 0);
    QVERIFY(e.listener.saved.isEmpty());
}

void tst_frmBookmark::dirtyWindowAsks()
{
    Editor e;
    e.click("cmdClose"); // nothing unsaved: no question
    QVERIFY(!e.window->isVisible());
    for (const char* field : {"txtName", "txtKeywords", "txtLink", "txtDescription"}) {
        e.open(0);
        QTest::keyClicks(&e.get<QWidget>(field), u"x"_s);
        e.questions.expect(u"Close without saving changes?"_s, Answer::No);
        QTest::keyClick(e.window.get(), Qt::Key_Escape);
        QVERIFY2(e.window->isVisible(), field);
        QCOMPARE(e.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
        e.questions.expect(u"Close without saving changes?"_s, Answer::Yes);
        QTest::keyClick(e.window.get(), Qt::Key_Escape);
        QVERIFY(!e.window->isVisible());
    }
    e.open(0);
    e.box("txtName").setText(u"x"_s);
    e.questions.expect(u"Close without saving changes?"_s, Answer::No);
    QVERIFY(!e.window->close()); // the window's own close box
    e.click("cmdClose"); // Cancel means it
    QVERIFY(!e.window->isVisible());
    QCOMPARE(e.count(), u"0"_s);
}

void tst_frmBookmark::visiting()
{
    Editor e;
    QVERIFY(!e.get<QPushButton>("cmdGo").isEnabled());
    e.click("cmdGo");
    QVERIFY(e.shell.opened.isEmpty());
    e.box("txtLink").setText(u"https://example.org/?a=1&b='2'#世界"_s);
    e.click("cmdGo"); // the link as it stands in the box, saved or not
    QCOMPARE(e.shell.opened, QStringList({u"https://example.org/?a=1&b='2'#世界"_s}));
    e.box("txtLink").clear();
    QVERIFY(!e.get<QPushButton>("cmdGo").isEnabled());

    EmptyShell none;
    const Desktop desktop{e.questions, e.files, none, e.clock, e.sound, e.printing, e.clipboard};
    e.filter.EditingModeBookmarkID = e.insert(u"n"_s, QString());
    frmBookmark editor({e.archive, desktop, e.filter, e.listener}, e.bookmark, nullptr);
    QVERIFY(editor.Form_Load());
    e.questions.expect(u"Error in VisitBookmark: No program is set up to open this link."_s);
    editor.findChild<QPushButton*>(u"cmdGo"_s)->click();
}

void tst_frmBookmark::failedSaveKeepsTheWindow()
{
    Editor e;
    e.box("txtName").setText(u"precious"_s);
    e.okFails(u"Error in Save: "_s);
    QCOMPARE(e.filter.EditingModeBookmarkID, 0);
    e.click("cmdApply");
    QCOMPARE(e.column("name"), u"precious"_s);
    e.get<QPlainTextEdit>("txtDescription").setPlainText(u"more"_s);
    e.okFails(u"Error in Save: "_s);
    e.click("cmdApply");
    QCOMPARE(e.column("description"), u"more"_s);
    {
        ArchiveUnit unit(e.archive);
        unit.Execute(u"DELETE * FROM tab_bookmark"_s);
    }
    e.box("txtKeywords").setText(u"late"_s);
    e.questions.expect(u"Error in Save: The bookmark is no longer in the archive."_s);
    e.click("cmdOK");
    QVERIFY(e.window->isVisible() && e.window->isDirty());
    QCOMPARE(e.listener.saved.size(), 2); // only what was written
}

void tst_frmBookmark::unreadableBookmarkIsRefused()
{
    Editor().refusesWhatItCannotRead(u"The bookmark is no longer in the archive."_s);
}

SNIPVALE_TEST(tst_frmBookmark)
#include "tst_frmBookmark.moc"
