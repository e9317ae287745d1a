// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/EditorFixture.h"
#include "support/Registry.h"

#include "desktop/TextForms.h"
#include "memo/cBookmark.h"
#include "memo/cMemo.h"
#include "memo/code/ui/ScintillaView.h"
#include "memo/ui/frmBookmark.h"
#include "memo/ui/frmSnipVale.h"
#include "ui/richtext/RichTextBox.h"

#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

// One editor, opened as the explorer opens it: first of a new memo.
struct Editor : EditorFixture {
    Editor()
    {
        listener.category = 1;
        open(0);
    }
    void open(qint32 id)
    {
        filter.EditingModeMemoID = id;
        show(std::make_unique<frmSnipVale>(EditorContext{archive, desktop, filter, listener}, memo, nullptr));
    }
    void openBookmark(qint32 id)
    {
        filter.EditingModeBookmarkID = id;
        show(std::make_unique<frmBookmark>(EditorContext{archive, desktop, filter, listener}, bookmark, nullptr));
    }
    QString stored(const char* columns) // of the second bookmark
    {
        return value(u"SELECT %1 FROM tab_bookmark WHERE bookmarkID = 2"_s.arg(QLatin1String(columns)));
    }
    ScintillaView& code() { return get<ScintillaView>("codeEditor"); }
    void choose(const QString& language)
    {
        auto& combo = get<QComboBox>("cboMemoType");
        combo.setCurrentText(language);
        emit combo.activated(combo.currentIndex());
    }
    QAction& action(const char* key)
    {
        return *get<QToolBar>("tbToolBarMemo").findChild<QAction*>(QString::fromLatin1(key));
    }
    void press(const char* key) { action(key).trigger(); }
    QString dates() { return get<QLabel>("lblDateIn").text() + get<QLabel>("lblLastModified").text(); }

    cMemo memo{archive};
    cBookmark bookmark{archive};
};

} // namespace

// What only the editors of memos and bookmarks do; the rest is in tst_Editors.
class tst_MemoEditors : public QObject {
    Q_OBJECT
private slots:
    void everyFieldOfAMemo()
    {
        const QByteArray text = "Привет 世界 \U0001F600 é\r\nline\rline\n\ttab\n";
        const QString rtf = u"{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}{\\*\\odd thing}\\b it's\\b0\\par}"_s;
        const auto boxes = {"txtMemoName", "txtMemoDescription", "txtMemoLink"};
        Editor e;
        for (const char* name : boxes)
            e.box(name).setText(QLatin1String(name));
        e.code().send(SCI.SETTEXT, 0, text);
        e.get<RichTextBox>("rtfMemoNotes").setRtf(rtf);
        e.choose(u"Python"_s);
        e.click("cmdOK");
        QVERIFY(!e.window->isVisible());
        ArchiveUnit(e.archive).Execute(u"INSERT INTO tab_memo (categoryID) VALUES (1)"_s);
        for (const qint32 undated : {0, 2}) {
            e.open(1);
            QCOMPARE(e.window->windowTitle(), u"Memo: txtMemoName"_s);
            for (const char* name : boxes)
                QCOMPARE(e.box(name).text(), QLatin1String(name));
            QCOMPARE(e.code().text(), text);
            QCOMPARE(e.get<QComboBox>("cboMemoType").currentText(), u"Python"_s);
            QCOMPARE(e.dates(), shortMoment(e.clock.now()).repeated(2));
            e.open(undated);
            QCOMPARE(e.dates(), QString()); // none of the memo before
        }
        ArchiveUnit(e.archive).Execute(u"UPDATE tab_memoType SET visible = '0' WHERE memoTypeID = 2"_s);
        e.open(1); // its language is hidden by now: none is selected, and none is stored
        QCOMPARE(e.get<QComboBox>("cboMemoType").currentIndex(), -1);
        e.code().setText(QByteArray());
        e.box("txtMemoName").setText(u"y"_s);
        e.click("cmdApply");
        QCOMPARE(e.value(u"SELECT memoTypeID & snipVale & memoNotes FROM tab_memo"_s), u"0"_s + rtf);
        auto& notes = e.get<RichTextBox>("rtfMemoNotes");
        QCOMPARE(notes.toPlainText().trimmed(), u"it's"_s);
        QTest::keyClicks(&notes, u"And "_s);
        QVERIFY(e.window->isDirty());
        e.click("cmdApply");
        QVERIFY(e.value(u"SELECT memoNotes FROM tab_memo"_s).contains(u"And"_s));
    }

    void codeBar()
    {
        Editor e;
        QTest::keyClicks(&e.code(), u"ab"_s);
        QTest::keyClick(&e.code(), Qt::Key_Tab);
        QByteArrayList texts;
        for (const char* key : {"Clear", "Undo", "Redo", "Undo", "Copy", "Clear", "Paste", "Cut", "Paste"}) {
            e.press(key);
            texts.append(e.code().text());
            e.code().send(SCI.SELECTALL);
        }
        QCOMPARE(texts.join('|'), "|ab\t||ab\t|ab\t||ab\t||ab\t"_ba);
        for (const bool wraps : {true, false, true}) {
            QCOMPARE(e.code().send(SCI.GETWRAPMODE), wraps ? 1 : 0);
            QCOMPARE(e.action("WrapLine").isChecked(), wraps);
            e.press("WrapLine");
        }
    }

    void files()
    {
        Editor e;
        const QString name = e.scratch.path(u"x.txt"_s);
        const QString out = e.scratch.path(u"out.txt"_s);
        writeFile(name, "caf\xE9\r\nb\r\n");
        e.files.answers = {name, e.scratch.path(u"missing"_s), std::nullopt, out};
        e.press("Open");
        QCOMPARE(e.code().text(), QByteArray("café\nb"));
        QVERIFY(e.window->isDirty());
        e.questions.expect(QString());
        e.press("Open"); // cannot be read: said, and the pane keeps its text
        QVERIFY(e.questions.asked.last().text.startsWith("Error in OpenFile: "_L1));
        e.press("Save"); // cancelled
        e.press("Save");
        QCOMPARE(bytesOf(out), QByteArray("café\nb"));
        QCOMPARE(e.files.asked.first(), u"Open|All Files (*.*) |*.*"_s);
        QCOMPARE(e.files.asked.last(), u"Save Memo to File...|All Files (*.*) |*.*"_s);
    }

    void panes()
    {
        Editor e;
        const auto sizes = [&e] { return e.get<QSplitter>("hSplitter").sizes(); };
        const int header = e.get<QWidget>("picNote").height();
        e.get<QToolButton>("imgCodePlus").click();
        QCOMPARE(sizes().last(), header);
        e.get<QToolButton>("imgNotePlus").click();
        e.box("txtMemoName").setText(u"m"_s);
        e.click("cmdOK");
        e.open(1);
        QCOMPARE(sizes().first(), header); // as it was left
        e.get<QToolButton>("imgNoteEqual").click();
        QVERIFY(std::abs(sizes().first() - sizes().last()) < 20);
    }

    void everyFieldOfABookmark()
    {
        const QString stored = u"one\r\ntwo\u00A0words\r\n\tנמסטה \U0001F600"_s;
        Editor e;
        e.openBookmark(0);
        QVERIFY(!e.get<QLabel>("lblCreationDate").isVisible());
        cBookmark row(e.archive);
        row.CategoryID = 2;
        row.BookmarkName = u"имя"_s;
        row.BookmarkKeywords = u"k'"_s;
        row.BookmarkDescription = stored;
        row.BookmarkLink = u"https://x/"_s;
        QVERIFY(row.Save() && row.Save());
        e.openBookmark(row.BookmarkID);
        QCOMPARE(e.box("txtName").text() + e.box("txtKeywords").text() + e.box("txtLink").text(), u"имяk'https://x/"_s);
        QVERIFY(e.get<QLabel>("lblCreationDate").isVisible());
        e.box("txtName").setText(u" O'Brien "_s);
        e.box("txtKeywords").setText(u"k2"_s);
        e.box("txtLink").setText(u"/home/it's/世界"_s);
        e.click("cmdApply");
        QCOMPARE(e.stored("name & keywords & url"), u" O'Brien k2/home/it's/世界"_s);
        QCOMPARE(e.value(u"SELECT url FROM tab_bookmark"_s), u"https://x/"_s); // of the other one
        QCOMPARE(e.stored("description"), stored); // it was not edited
        auto& text = e.get<QPlainTextEdit>("txtDescription");
        text.moveCursor(QTextCursor::End);
        QTest::keyClick(&text, Qt::Key_Return, Qt::ShiftModifier);
        text.insertPlainText(u"tail\u00A0end"_s);
        e.click("cmdApply");
        QCOMPARE(e.stored("description"), u"one\ntwo\u00A0words\n\tנמסטה \U0001F600\ntail\u00A0end"_s);
        text.clear();
        QTest::keyClick(&e.box("txtLink"), Qt::Key_Return);
        QVERIFY(e.window->isVisible() && e.window->isDirty()); // only the name saves with Return
        QTest::keyClick(&e.box("txtName"), Qt::Key_Return);
        QVERIFY(!e.window->isVisible());
        QCOMPARE(e.stored("description"), QString());
    }

    void links()
    {
        Editor e;
        const QString link = u"https://example.org/?a=1&b='2'#世界"_s;
        for (const QString& no : {QString(), u"HTTP://x"_s, u" http://x"_s, u"file:///etc/passwd"_s, link}) {
            e.box("txtMemoLink").setText(no);
            QCOMPARE(e.get<QToolButton>("cmdUrl").isEnabled(), no == link);
        }
        e.get<QToolButton>("cmdUrl").click();
        e.openBookmark(0); // which may link to anything
        QVERIFY(!e.get<QPushButton>("cmdGo").isEnabled());
        e.box("txtLink").setText(u"/home/it's"_s);
        e.click("cmdGo"); // as it stands in the box, saved or not
        QCOMPARE(e.shell.opened, QStringList({link, u"/home/it's"_s}));
        e.shell.hasPrograms = false;
        e.questions.expect(u"Error in VisitBookmark: No program is set up to open this link."_s);
        e.click("cmdGo");
        e.box("txtLink").clear();
        QVERIFY(!e.get<QPushButton>("cmdGo").isEnabled());
    }
};

SNIPVALE_TEST(tst_MemoEditors)
#include "tst_MemoEditors.moc"
