// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/EditorFixture.h"
#include "support/Registry.h"

#include "memo/cMemo.h"
#include "memo/code/ScintillaMessages.h"
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
    QAction& button(const char* key)
    {
        return *get<QToolBar>("tbToolBarMemo").findChild<QAction*>(QString::fromLatin1(key));
    }

    cMemo memo{archive};
};

} // namespace

// What only the memo editor does; the rest is in tst_Editors.
class tst_frmSnipVale : public QObject {
    Q_OBJECT
private slots:
    void everyScriptComesBackByteForByte();
    void notesKeepTheirBytes();
    void linkButton();
    void languages();
    void codeBar();
    void files();
    void panes();
};

void tst_frmSnipVale::everyScriptComesBackByteForByte()
{
    const QByteArray text = "Привет 世界 \U0001F600 é\r\nline\rline\n\ttab\n";
    Editor e;
    e.box("txtMemoName").setText(u"x"_s);
    e.code().send(SCI.SETTEXT, 0, text);
    e.click("cmdOK");
    QVERIFY(!e.window->isVisible());
    e.open(1);
    QVERIFY(e.loaded);
    QCOMPARE(e.window->windowTitle(), u"Memo: x"_s);
    QCOMPARE(e.code().text(), text);
    QVERIFY(!e.get<QLabel>("lblDateIn").text().isEmpty());
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
    auto& link = e.get<QLineEdit>("txtMemoLink");
    auto& button = e.get<QToolButton>("cmdUrl");
    QVERIFY(!button.isEnabled());
    for (const QString& no : {u"HTTP://x"_s, u"ftp://x"_s, u" http://x"_s, u"file:///etc/passwd"_s}) {
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
    e.code().SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, long(-1));
    const long asCpp = e.code().SendScintilla(QsciScintillaBase::SCI_GETSTYLEAT, 15UL);
    e.choose(u"Plain text"_s);
    e.code().SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, long(-1));
    QVERIFY(e.code().SendScintilla(QsciScintillaBase::SCI_GETSTYLEAT, 15UL) != asCpp);
    QCOMPARE(e.code().text(), QByteArray("int x = 1; // words"));
    e.choose(u"Python"_s);
    e.box("txtMemoName").setText(u"p"_s);
    e.click("cmdOK");
    QCOMPARE(e.value(u"SELECT memoTypeID FROM tab_memo"_s), u"2"_s);

    ArchiveUnit(e.archive).Execute(u"UPDATE tab_memoType SET visible = '0' WHERE memoTypeID = 2"_s);
    e.open(1); // its language is hidden by now: none is selected, and none is stored
    QCOMPARE(e.get<QComboBox>("cboMemoType").currentIndex(), -1);
    QCOMPARE(e.get<QComboBox>("cboMemoType").findText(u"Python"_s), -1);
    e.box("txtMemoName").setText(u"m"_s);
    e.click("cmdOK");
    QCOMPARE(e.value(u"SELECT memoTypeID FROM tab_memo"_s), u"0"_s);
}

void tst_frmSnipVale::codeBar()
{
    Editor e;
    QVERIFY(e.button("WrapLine").isChecked());
    QTest::keyClicks(&e.code(), u"abc"_s);
    e.button("Clear").trigger();
    QCOMPARE(e.code().text(), QByteArray());
    e.button("Undo").trigger();
    QCOMPARE(e.code().text(), QByteArray("abc"));
    e.button("Redo").trigger();
    QCOMPARE(e.code().text(), QByteArray());
    e.button("WrapLine").trigger();
    QCOMPARE(e.code().send(SCI.GETWRAPMODE), 0);
    QVERIFY(!e.button("WrapLine").isChecked());
    e.button("WrapLine").trigger();
    QCOMPARE(e.code().send(SCI.GETWRAPMODE), 1);
}

void tst_frmSnipVale::files()
{
    Editor e;
    QTemporaryDir folder;
    const QString name = folder.filePath(u"x.txt"_s);
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("caf\xE9\r\nb\r\n");
    file.close();
    e.files.answers = {name, folder.filePath(u"missing"_s), std::nullopt, folder.filePath(u"out.txt"_s)};
    e.button("Open").trigger();
    QCOMPARE(e.code().text(), QByteArray("café\nb"));
    QVERIFY(e.window->isDirty());
    e.questions.expect(QString());
    e.button("Open").trigger(); // cannot be read: said, and the pane keeps its text
    QVERIFY(e.questions.asked.last().text.startsWith("Error in OpenFile: "_L1));
    e.button("Save").trigger(); // cancelled
    e.button("Save").trigger();
    QFile out(folder.filePath(u"out.txt"_s));
    QVERIFY(out.open(QIODevice::ReadOnly));
    QCOMPARE(out.readAll(), QByteArray("café\nb"));
    QCOMPARE(e.files.asked.first(), u"Open|All Files (*.*) |*.*"_s);
    QCOMPARE(e.files.asked.last(), u"Save Memo to File...|All Files (*.*) |*.*"_s);
}

void tst_frmSnipVale::panes()
{
    Editor e;
    auto& splitter = e.get<QSplitter>("hSplitter");
    const int header = e.get<QWidget>("picNote").height();
    e.get<QToolButton>("imgCodePlus").click();
    QCOMPARE(e.memo.MemoOpeningState, qint16(1));
    QCOMPARE(splitter.sizes().last(), header);
    e.get<QToolButton>("imgNotePlus").click();
    QCOMPARE(e.memo.MemoOpeningState, qint16(2));
    QCOMPARE(splitter.sizes().first(), header);
    e.box("txtMemoName").setText(u"m"_s);
    e.click("cmdOK");
    e.open(1);
    QCOMPARE(e.get<QSplitter>("hSplitter").sizes().first(), header); // as it was left
    e.get<QToolButton>("imgNoteEqual").click();
    const QList<int> sizes = e.get<QSplitter>("hSplitter").sizes();
    QVERIFY(std::abs(sizes.first() - sizes.last()) < 20);
}

SNIPVALE_TEST(tst_frmSnipVale)
#include "tst_frmSnipVale.moc"
