// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include "memo/code/cScintilla.h"
#include "memo/code/ui/ScintillaView.h"
#include "memo/code/ui/frmScintillaFind.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

const QString endReached = u"Search reached end of document"_s;

using Range = std::pair<qsizetype, qsizetype>;

struct Desk : ArchiveFixture {
    Desk()
    {
        code.Init();
        dialog.show();
    }
    template <typename Widget = QLineEdit>
    Widget& in(const char* name)
    {
        return *dialog.findChild<Widget*>(QString::fromLatin1(name));
    }
    void press(const char* button) { in<QPushButton>(button).click(); }
    Range selection() { return {view.send(SCI.GETSELECTIONSTART), view.send(SCI.GETSELECTIONEND)}; }
    ScintillaView view;
    cScintilla code{view, archive};
    frmScintillaFind dialog{code, questions};
};

} // namespace

class tst_frmScintillaFind : public QObject {
    Q_OBJECT
private slots:
    void findsOneAfterAnother();
    void flags();
    void replaces();
};

void tst_frmScintillaFind::findsOneAfterAnother()
{
    Desk desk;
    for (const auto& [button, message] :
         {std::pair("cmkFind", u"Enter text to find"_s), {"cmdReplace", u"Enter text to replace"_s}}) {
        desk.questions.expect(message);
        desk.press(button);
        QCOMPARE(desk.questions.asked.last().style, MessageStyle::Exclamation);
    }
    desk.view.setText("żab zab żab"); // ż is two bytes
    desk.code.setCurPosition(7); // does not matter: a dialog's first search begins at the top
    desk.in("txtFind").setText(u"ab"_s);
    desk.press("cmkFind");
    QCOMPARE(desk.selection(), Range(2, 4));
    QTest::keyClick(&desk.in("txtFind"), Qt::Key_Return);
    QCOMPARE(desk.selection(), Range(6, 8));
    desk.in("txtFind").setText(u"ŻAB"_s); // letter case of any script
    desk.press("cmkFind");
    QCOMPARE(desk.selection(), Range(9, 13));
    desk.questions.expect(endReached);
    desk.press("cmkFind");
    QCOMPARE(desk.selection(), Range(9, 13));
    QCOMPARE(desk.questions.asked.last().style, MessageStyle::Information);
    desk.press("cmkFind"); // and from the top again
    QCOMPARE(desk.selection(), Range(0, 4));
    desk.dialog.close();
    desk.dialog.show();
    desk.press("cmkFind"); // a dialog that opens begins at the top
    QCOMPARE(desk.selection(), Range(0, 4));
    desk.view.setText("ŻAB"); // the last match is now far behind the end
    desk.questions.expect(endReached);
    desk.press("cmkFind");
    desk.press("cmkFind");
    QCOMPARE(desk.selection(), Range(0, 4));
    desk.press("cmdClose");
    QVERIFY(!desk.dialog.isVisible());
    for (const auto& [text, result] : {std::pair(u"ŻAB"_s, 0), {u"nowhere"_s, -1}}) {
        desk.questions.expect(u"nresult: %1"_s.arg(result));
        desk.code.FindNext(text, 0);
    }
}

void tst_frmScintillaFind::flags()
{
    const std::tuple<bool, bool, Range> rows[] = {
        {false, false, {0, 2}}, {true, false, {4, 6}}, {false, true, {8, 10}}, {true, true, {11, 13}}};
    for (const auto& [matchCase, wholeWord, found] : rows) {
        Desk desk;
        desk.view.setText("Ifs if_ IF if");
        desk.in("txtFind").setText(u"if"_s);
        desk.in<QCheckBox>("chkMatchCase").setChecked(matchCase);
        desk.in<QCheckBox>("chkWholeWord").setChecked(wholeWord);
        desk.press("cmkFind");
        QCOMPARE(desk.selection(), found);
    }
}

void tst_frmScintillaFind::replaces()
{
    // Text, what to find, what to put there, result.
    const std::tuple<QString, QString, QString, QString> rows[] = {
        {u"a.a"_s, u"a"_s, u"aa"_s, u"aa.aa"_s}, // holds the searched text
        {u"aab"_s, u"ab"_s, u"b"_s, u"ab"_s}, // neighbours join to a new match
        {u"\U0001F642日 日\U0001F642"_s, u"日"_s, u"ждж"_s, u"\U0001F642ждж ждж\U0001F642"_s},
        {{}, u"a"_s, u"b"_s, {}}};
    for (const auto& [text, find, replacement, result] : rows) {
        Desk desk;
        desk.view.setText(text.toUtf8());
        desk.in("txtFind").setText(find);
        desk.in("txtReplace").setText(replacement);
        desk.questions.expect(endReached);
        for (int presses = 0; desk.questions.asked.isEmpty() && presses < 10; ++presses)
            desk.press("cmdReplace");
        QCOMPARE(QString::fromUtf8(desk.view.text()), result);
    }
}

SNIPVALE_TEST(tst_frmScintillaFind)
#include "tst_frmScintillaFind.moc"
