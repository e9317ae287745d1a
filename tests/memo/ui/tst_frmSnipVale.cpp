// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/EditorFixture.h"
#include "support/Registry.h"

#include "desktop/TextForms.h"
#include "memo/cMemo.h"
#include "memo/code/ui/ScintillaView.h"
#include "memo/ui/frmSnipVale.h"
#include "ui/richtext/RichTextBox.h"

#include <QComboBox>
#include <QLabel>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

// One memo editor, opened as the explorer opens it.
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
    // The style of the fifteenth letter.
    long style()
    {
        code().SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, long(-1));
        return code().SendScintilla(QsciScintillaBase::SCI_GETSTYLEAT, 15UL);
    }
    QString dates() { return get<QLabel>("lblDateIn").text() + get<QLabel>("lblLastModified").text(); }

    cMemo memo{archive};
};

} // namespace

// What only the memo editor does; the rest is in tst_Editors.
class tst_frmSnipVale : public QObject {
    Q_OBJECT
private slots:
    void everyFieldComesBack();
    void notesKeepTheirBytes();
    void linkButton();
    void languages();
    void codeBar();
    void files();
    void panes();
};

void tst_frmSnipVale::everyFieldComesBack()
{
    const QByteArray text = "Привет 世界 \U0001F600 é\r\nline\rline\n\ttab\n";
    Editor e;
    for (const char* name : {"txtMemoName", "txtMemoDescription", "txtMemoLink"})
        e.box(name).setText(QLatin1String(name));
    e.code().send(SCI.SETTEXT, 0, text);
    e.click("cmdOK");
    QVERIFY(!e.window->isVisible());
    ArchiveUnit(e.archive).Execute(u"INSERT INTO tab_memo (categoryID) VALUES (1)"_s);
    for (const qint32 undated : {0, 2}) {
        e.open(1);
        QCOMPARE(e.window->windowTitle(), u"Memo: txtMemoName"_s);
        for (const char* name : {"txtMemoName", "txtMemoDescription", "txtMemoLink"})
            QCOMPARE(e.box(name).text(), QLatin1String(name));
        QCOMPARE(e.code().text(), text);
        QCOMPARE(e.dates(), shortMoment(e.clock.now()).repeated(2));
        e.open(undated);
        QCOMPARE(e.dates(), QString()); // none of the memo before
    }
    e.open(1);
    e.code().setText(QByteArray());
    e.box("txtMemoName").setText(u"y"_s);
    e.click("cmdOK");
    QCOMPARE(e.value(u"SELECT snipVale FROM tab_memo"_s), QString());
}

void tst_frmSnipVale::notesKeepTheirBytes()
{
    Editor e;
    const QString rtf = u"{\\rtf1\\ansi\\deff0{\\fonttbl{\\f0 Arial;}}{\\*\\odd thing}\\b it's\\b0\\par}"_s;
    e.memo.CategoryID = 1;
    e.memo.MemoName = u"n"_s;
    e.memo.MemoNotes = rtf;
    QVERIFY(e.memo.Save());
    e.open(e.memo.MemoID);
    e.box("txtMemoName").setText(u"renamed"_s);
    e.click("cmdApply");
    QCOMPARE(e.value(u"SELECT memoNotes FROM tab_memo"_s), rtf);
    auto& notes = e.get<RichTextBox>("rtfMemoNotes");
    QCOMPARE(notes.toPlainText().trimmed(), u"it's"_s);
    notes.setPlainText(u"replaced"_s); // with the bar watching
    notes.undo();
    QTest::keyClicks(&notes, u"And "_s);
    QVERIFY(e.window->isDirty());
    e.click("cmdApply");
    QVERIFY(e.value(u"SELECT memoNotes FROM tab_memo"_s).contains(u"And"_s));
}

void tst_frmSnipVale::linkButton()
{
    Editor e;
    QLineEdit& link = e.box("txtMemoLink");
    auto& button = e.get<QToolButton>("cmdUrl");
    QVERIFY(!button.isEnabled());
    for (const QString& no : {u"HTTP://x"_s, u" http://x"_s, u"file:///etc/passwd"_s}) {
        link.setText(no);
        QVERIFY2(!button.isEnabled(), qPrintable(no));
    }
    link.setText(u"https://example.org/?a=1&b='2'"_s);
    QVERIFY(button.isEnabled());
    button.click();
    QCOMPARE(e.shell.opened, QStringList({u"https://example.org/?a=1&b='2'"_s}));
}

void tst_frmSnipVale::languages()
{
    Editor e;
    e.code().send(SCI.SETTEXT, 0, QByteArray("int x = 1; // words"));
    e.choose(u"C / C++"_s);
    QVERIFY(e.window->isDirty());
    const long asCpp = e.style();
    e.choose(u"Plain text"_s);
    QVERIFY(e.style() != asCpp);
    QCOMPARE(e.code().text(), QByteArray("int x = 1; // words"));
    e.choose(u"Python"_s);
    e.box("txtMemoName").setText(u"p"_s);
    e.click("cmdOK");
    QCOMPARE(e.value(u"SELECT memoTypeID FROM tab_memo"_s), u"2"_s);

    ArchiveUnit(e.archive).Execute(u"UPDATE tab_memoType SET visible = '0' WHERE memoTypeID = 2"_s);
    e.open(1); // its language is hidden by now: none is selected, and none is stored
    QCOMPARE(e.get<QComboBox>("cboMemoType").currentIndex(), -1);
    e.box("txtMemoName").setText(u"m"_s);
    e.click("cmdOK");
    QCOMPARE(e.value(u"SELECT memoTypeID FROM tab_memo"_s), u"0"_s);
}

void tst_frmSnipVale::codeBar()
{
    Editor e;
    QTest::keyClicks(&e.code(), u"ab"_s);
    QTest::keyClick(&e.code(), Qt::Key_Tab);
    const QByteArray text = "ab\t";
    for (const auto& [key, result] : {std::pair("Clear", ""_ba),
                                      {"Undo", text},
                                      {"Redo", ""_ba},
                                      {"Undo", text},
                                      {"Copy", text},
                                      {"Clear", ""_ba},
                                      {"Paste", text},
                                      {"Cut", ""_ba},
                                      {"Paste", text}}) {
        e.press(key);
        QCOMPARE(e.code().text(), result);
        e.code().send(SCI.SELECTALL);
    }
    for (const bool wraps : {true, false, true}) {
        QCOMPARE(e.code().send(SCI.GETWRAPMODE), wraps ? 1 : 0);
        QCOMPARE(e.action("WrapLine").isChecked(), wraps);
        e.press("WrapLine");
    }
    QVERIFY(QTest::qWaitForWindowActive(e.window.get()));
    e.code().setFocus();
    QTest::keyClick(&e.code(), Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(e.window->focusWidget()->objectName(), u"imgCodeEqual"_s);
}

void tst_frmSnipVale::files()
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

void tst_frmSnipVale::panes()
{
    Editor e;
    const auto sizes = [&e] { return e.get<QSplitter>("hSplitter").sizes(); };
    const int header = e.get<QWidget>("picNote").height();
    e.get<QToolButton>("imgCodePlus").click();
    QCOMPARE(e.memo.MemoOpeningState, qint16(1));
    QCOMPARE(sizes().last(), header);
    e.get<QToolButton>("imgNotePlus").click();
    QCOMPARE(e.memo.MemoOpeningState, qint16(2));
    e.box("txtMemoName").setText(u"m"_s);
    e.click("cmdOK");
    e.open(1);
    QCOMPARE(sizes().first(), header); // as it was left
    e.get<QToolButton>("imgNoteEqual").click();
    QVERIFY(std::abs(sizes().first() - sizes().last()) < 20);
}

SNIPVALE_TEST(tst_frmSnipVale)
#include "tst_frmSnipVale.moc"
