// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "archive/Archive.h"
#include "memo/code/modScintilla.h"
#include "memo/languages/ui/frmOptionsLanguage.h"
#include "ui/widgets/ListView.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

template <typename Widget>
Widget& in(QWidget& window, const char* name)
{
    return *window.findChild<Widget*>(QString::fromLatin1(name));
}

// The window of one language, its second style changed to what a test needs.
struct Styles : UiFixture {
    explicit Styles(const QString& assignments = QString())
    {
        if (!assignments.isEmpty())
            ArchiveUnit(archive).Execute(u"UPDATE tab_style SET %1 WHERE %2"_s.arg(assignments, second));
        window = std::make_unique<frmOptionsLanguage>(archive, desktop, frame, nullptr);
        QVERIFY(window->Form_Load(3, u"C / C++"_s));
        window->show();
        list().setCurrentIndex(list().model()->index(1, 0));
        statements.clear();
    }
    QString cell(int row, int column) { return list().model()->index(row, column).data().toString(); }
    QString stored(const char* column)
    {
        return value(u"SELECT %1 FROM tab_style WHERE %2"_s.arg(QLatin1String(column), second));
    }
    ListView& list() { return in<ListView>(*window, "lvwLanguage"); }
    void click(const char* button) { in<QAbstractButton>(*window, button).click(); }
    void details(std::function<void(QWidget&)> step) // the step closes it
    {
        whenModal(std::move(step));
        window->OpenDetails();
    }
    void details() // and OK
    {
        details([](QWidget& w) { in<QAbstractButton>(w, "cmdOK").click(); });
    }
    static QString sample(QWidget& window) // what it shows
    {
        const auto& label = in<QLabel>(window, "lblSampleText");
        return u"%1 %2 %3 %4"_s.arg(label.text(), label.palette().color(QPalette::WindowText).name())
            .arg(label.font().pointSize())
            .arg(label.font().bold());
    }

    const QString second = u"lexerCode = 'SCLEX_CPP' AND styleNumber = 1"_s;
    std::unique_ptr<frmOptionsLanguage> window;
};

} // namespace

class tst_frmOptionsLanguage : public QObject {
    Q_OBJECT
private slots:
    void savedStyle()
    {
        Styles s(
            u"bold = '1', italic = '0', case = 1, enable = '0', foreColor = 255, backColor = -1, fontName = 'A'"_s);
        QStringList row;
        for (int column = 0; column < s.list().model()->columnCount(); ++column)
            row << s.cell(1, column);
        QCOMPARE(row.join(u'|'), u"1||Block comment|A||255|-1|YES|-|-|UPPER|-"_s);
        QCOMPARE(s.list().model()->index(1, 5).data(Qt::BackgroundRole).value<QBrush>().color(), QColor(Qt::red));
        const QString id = s.stored("styleID");
        whenModal([&](QWidget& w) {
            in<QAbstractButton>(w, "chkBold").click();
            in<QAbstractButton>(w, "chkItalic").click();
            in<QAbstractButton>(w, "optCase_2").click();
            in<QComboBox>(w, "cmbFontName").setEditText(u"O'Font"_s);
            auto& size = in<QComboBox>(w, "cmbFontSize");
            QVERIFY(QTest::qWaitForWindowActive(&w));
            QTest::keyClicks(&size, u"1"_s); // and not the 10 that begins so
            QTest::keyClick(&size, Qt::Key_Return);
            w.close();
        });
        QTest::keyClick(&s.list(), Qt::Key_Return); // opens the style and nothing else
        QVERIFY(s.window->isVisible());
        QVERIFY(s.statements.contains(
            u"UPDATE tab_style SET tab_style.foreColor = 255 , tab_style.backColor = -1 , tab_style.bold = '0' , "
            "tab_style.italic = '1' , tab_style.underline = '0' , tab_style.invisible = '0' , tab_style.case = '2' , "
            "tab_style.fontName = 'O''Font' , tab_style.fontSize = '1' , tab_style.enable = '0' WHERE "
            "(tab_style.styleID = %1 ) "_s.arg(id)));
        QCOMPARE(s.cell(1, 3) + s.cell(1, 4) + s.cell(1, 8) + s.cell(1, 10), u"O'Font1YESlower"_s);
        QCOMPARE(s.list().currentIndex().row(), 1); // still selected
        QVERIFY(s.frame.enabledCommands[u"miOptionsLanguageDetailsOpen"_s]);
        s.window.reset();
        QVERIFY(!s.frame.enabledCommands[u"miOptionsLanguageDetailsOpen"_s]);
    }

    void oddValuesSurvive()
    {
        Styles s(
            u"foreColor = -7, backColor = 2000000000, fontSize = 32767, case = 1, fontName = 'No '' such \" font'"_s);
        s.details();
        QCOMPARE(s.stored("foreColor & '|' & backColor & '|' & fontSize & '|' & fontName"),
                 u"-7|2000000000|32767|No ' such \" font"_s);
        s.questions.expect(QString()); // the archive takes no such size; what was chosen stays to be corrected
        s.details([&](QWidget& w) {
            QCOMPARE(s.sample(w), u"SAMPLE TEXT #ffffff 72 0"_s);
            in<QComboBox>(w, "cmbFontSize").setEditText(u"99999"_s);
            in<QAbstractButton>(w, "cmdOK").click();
            QVERIFY(w.isVisible());
            w.close();
        });
        QVERIFY(s.questions.asked.last().text.startsWith("Error in cmdOK: "_L1));
        ArchiveUnit(s.archive).Execute(
            u"UPDATE tab_style SET foreColor = null, fontName = null, fontSize = null WHERE "_s + s.second);
        s.details();
        QCOMPARE(s.stored("foreColor"), u"16777215"_s);
        QVERIFY(s.statements.filter(u"tab_style.fontName = null , tab_style.fontSize = null , "_s).size() == 1);
    }

    void colorBoxes()
    {
        Styles s(u"foreColor = 1, backColor = 2, bold = '0', fontSize = null"_s);
        s.files.colors = {0x00FF00, 0x0000FF, std::nullopt, 0x123456};
        s.details([&](QWidget& w) {
            auto& fore = in<QLineEdit>(w, "txtForeColor");
            QTest::mouseClick(&fore, Qt::LeftButton);
            QCOMPARE(fore.text(), u"65280"_s);
            QCOMPARE(fore.palette().color(QPalette::Base), QColor(Qt::green));
            QTest::keyClick(&fore, Qt::Key_Space);
            QCOMPARE(s.sample(w), u"Sample Text #ff0000 10 0"_s);
            QTest::keyClick(&fore, Qt::Key_Return); // cancelled
            QCOMPARE(fore.text(), u"255"_s);
            QTest::keyClick(&in<QLineEdit>(w, "txtBackColor"), Qt::Key_Return);
            QVERIFY(w.isVisible()); // OK was not pressed by it
            in<QAbstractButton>(w, "cmdOK").click();
        });
        QCOMPARE(s.stored("foreColor") + u' ' + s.stored("backColor"), u"255 1193046"_s);
    }

    void keywordsAndWhatIsGone()
    {
        Styles s;
        const QString odd = u"it's \"odd\"\r\nend "_s;
        updateKeywords(s.archive, u"SCLEX_CPP"_s, odd);
        QVERIFY(s.window->Form_Load(3, u"C"_s));
        s.click("cmdOK"); // not edited: not a character changes
        QCOMPARE(keywordsOf(s.archive, u"SCLEX_CPP"_s), odd);
        s.window->show();
        in<QPlainTextEdit>(*s.window, "txtKeywords").appendPlainText(u"o'n"_s);
        s.questions.expect(u"Close without saving changes?"_s, Answer::No);
        s.click("cmdClose");
        QVERIFY(s.window->isVisible());
        s.click("cmdOK");
        QVERIFY(!s.window->isVisible());
        QCOMPARE(keywordsOf(s.archive, u"SCLEX_CPP"_s), u"it's \"odd\"\nend \no'n"_s);
        s.window->show();
        s.list().setCurrentIndex(s.list().model()->index(1, 0));
        s.questions.expect(u"Error in cmdOK: The style is no longer in the archive."_s);
        s.details([&](QWidget& w) {
            ArchiveUnit(s.archive).Execute(u"DELETE * FROM tab_style WHERE "_s + s.second);
            in<QAbstractButton>(w, "cmdOK").click();
            w.close();
        });
        s.questions.expect(u"Error in Form_Load: The style is no longer in the archive."_s);
        s.window->OpenDetails(); // the list still shows it
        ArchiveUnit(s.archive).Execute(u"DELETE * FROM tab_memoType WHERE memoTypeID = 3"_s);
        s.questions.expect(u"Error in cmdOK: The language is no longer in the archive."_s);
        s.click("cmdOK");
        QVERIFY(s.window->isVisible());
        s.archive.setPath(s.scratch.path(u"gone.SVA"_s));
        s.questions.expect(QString());
        QVERIFY(!s.window->MakelvwLanguageContents() && s.list().model()->rowCount() > 0);
    }
};

SNIPVALE_TEST(tst_frmOptionsLanguage)
#include "tst_frmOptionsLanguage.moc"
