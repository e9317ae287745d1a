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

// One bookmark editor, opened as the explorer opens it.
struct Editor : EditorFixture {
    Editor()
    {
        listener.category = 2;
        open(0);
    }
    void open(qint32 id)
    {
        filter.EditingModeBookmarkID = id;
        show(std::make_unique<frmBookmark>(EditorContext{archive, desktop, filter, listener}, bookmark, nullptr));
    }
    QString column(const char* name, qint32 id = 1)
    {
        return value(u"SELECT %1 FROM tab_bookmark WHERE bookmarkID = %2"_s.arg(QLatin1String(name)).arg(id));
    }

    cBookmark bookmark{archive};
};

} // namespace

// What only the bookmark editor does; the rest is in tst_Editors.
class tst_frmBookmark : public QObject {
    Q_OBJECT
private slots:
    void everyFieldIsShownAndRewritten();
    void visiting();
};

void tst_frmBookmark::everyFieldIsShownAndRewritten()
{
    const QString stored = u"one\r\ntwo\u00A0words\r\n\tנמסטה \U0001F600"_s;
    Editor e;
    QVERIFY(!e.get<QLabel>("lblCreationDate").isVisible());
    cBookmark row(e.archive);
    row.CategoryID = 2;
    row.BookmarkName = u"имя"_s;
    row.BookmarkKeywords = u"k'"_s;
    row.BookmarkDescription = stored;
    row.BookmarkLink = u"https://x/"_s;
    QVERIFY(row.Save() && row.Save());
    e.open(row.BookmarkID);
    QCOMPARE(e.box("txtName").text() + e.box("txtKeywords").text() + e.box("txtLink").text(), u"имяk'https://x/"_s);
    QVERIFY(e.get<QLabel>("lblCreationDate").isVisible());
    e.box("txtName").setText(u" O'Brien "_s);
    e.box("txtKeywords").setText(u"k2"_s);
    e.box("txtLink").setText(u"/home/it's/世界"_s);
    e.click("cmdApply");
    QCOMPARE(e.column("name", 2) + e.column("keywords", 2) + e.column("url", 2), u" O'Brien k2/home/it's/世界"_s);
    QCOMPARE(e.column("url"), u"https://x/"_s); // of the other one
    QCOMPARE(e.column("description", 2), stored); // it was not edited
    auto& text = e.get<QPlainTextEdit>("txtDescription");
    text.moveCursor(QTextCursor::End);
    QTest::keyClick(&text, Qt::Key_Return, Qt::ShiftModifier);
    text.insertPlainText(u"tail\u00A0end"_s);
    e.click("cmdApply");
    QCOMPARE(e.column("description", 2), u"one\ntwo\u00A0words\n\tנמסטה \U0001F600\ntail\u00A0end"_s);
    text.clear();
    QTest::keyClick(&e.box("txtLink"), Qt::Key_Return);
    QVERIFY(e.window->isVisible() && e.window->isDirty()); // only the name saves with Return
    QTest::keyClick(&e.box("txtName"), Qt::Key_Return);
    QVERIFY(!e.window->isVisible());
    QCOMPARE(e.column("description", 2), QString());
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
    e.shell.hasPrograms = false;
    e.questions.expect(u"Error in VisitBookmark: No program is set up to open this link."_s);
    e.click("cmdGo");
    e.box("txtLink").clear();
    QVERIFY(!e.get<QPushButton>("cmdGo").isEnabled());
}

SNIPVALE_TEST(tst_frmBookmark)
#include "tst_frmBookmark.moc"
