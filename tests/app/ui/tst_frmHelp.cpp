// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "app/modSnipVale.h"
#include "app/ui/HelpTopics.h"
#include "app/ui/frmHelp.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

const QString manual = QStringLiteral(SHIPPED_DIR "/help");

QString pageText(const QString& page)
{
    return QString::fromUtf8(bytesOf(manual + u'/' + page));
}

// Whether the manual has that page or picture, and the anchor on it.
bool leadsSomewhere(const QString& page)
{
    const QString anchor = page.section(u'#', 1);
    const QString html = pageText(page.section(u'#', 0, 0));
    return !html.isEmpty() && (anchor.isEmpty() || html.contains(u"<a name=\"%1\">"_s.arg(anchor)));
}

// The manual of the program, shown.
struct Reader : UiFixture {
    Reader()
    {
        window.showPage(QString());
        if (!QTest::qWaitForWindowExposed(&window))
            qFatal("the manual is not shown");
    }
    template <typename Widget>
    Widget& get(const char* name)
    {
        return *window.findChild<Widget*>(QString::fromLatin1(name));
    }
    HelpPage& text() { return get<HelpPage>("txtPage"); }
    QTreeWidget& contents() { return get<QTreeWidget>("tvwContents"); }
    QString page() { return text().source().fileName(); }
    QString chosen() { return contents().currentItem()->text(0); }
    QAction& action(const char* name) { return get<QAction>(name); }
    frmHelp window{manual, desktop};
};

} // namespace

class tst_frmHelp : public QObject {
    Q_OBJECT
private slots:
    void linksAndTopics();
    void pageForWindow();
    void helpKey();
    void whereTheManualIs();
    void reading();
    void searching();
    void findingInAPage();
    void readBehindAModalWindow();
};

void tst_frmHelp::linksAndTopics()
{
    static const QRegularExpression links(u"(?:href|src)=\"([^\":]+)\""_s);
    const QStringList chapters = QDir(manual).entryList({u"*.html"_s});
    QVERIFY(chapters.size() > 10);
    for (const QString& chapter : chapters) {
        const QString text = pageText(chapter);
        for (auto match = links.globalMatch(text); match.hasNext();) {
            const QString link = match.next().captured(1);
            QVERIFY2(leadsSomewhere(link), qPrintable(chapter + u": "_s + link));
        }
    }
    for (const HelpTopic& topic : helpTopics())
        QVERIFY2(leadsSomewhere(QStringView(topic.page).toString()), qPrintable(QStringView(topic.name).toString()));
}

void tst_frmHelp::pageForWindow()
{
    QWidget frame;
    QWidget explorer(&frame), list(&explorer), passwords(&frame);
    QDialog editor(&frame);
    QWidget box(&editor);
    const std::pair<QWidget*, QString> names[] = {{&frame, u"frmMain"_s},      {&explorer, u"frmSnipValeS"_s},
                                                  {&list, u"lvwMemo"_s},       {&passwords, u"frmPasswordS"_s},
                                                  {&editor, u"frmBookmark"_s}, {&box, u"lvwLanguage"_s}};
    for (const auto& [widget, name] : names)
        widget->setObjectName(name);
    passwords.hide();
    QCOMPARE(helpPageFor(&list), u"memos.html#list"_s); // the nearest that has a page
    QCOMPARE(helpPageFor(&frame), u"first-steps.html#window"_s);
    QCOMPARE(helpPageFor(&box), u"bookmarks.html#editor"_s); // that name is of the options
    explorer.hide();
    passwords.show();
    QCOMPARE(helpPageFor(&frame), u"passwords.html#list"_s);
    QCOMPARE(helpPageFor(nullptr), QString());
}

void tst_frmHelp::helpKey()
{
    int asked = 0;
    HelpKey key([&] { ++asked; }, nullptr);
    QDialog dialog;
    auto* box = new QLineEdit(&dialog);
    QTest::keyClick(box, Qt::Key_F1);
    QCOMPARE(asked, 1); // once, however many widgets it passes
    QTest::keyClick(box, Qt::Key_F1, Qt::ControlModifier);
    QTest::keyClick(box, Qt::Key_F2);
    QCOMPARE(asked, 1);
}

void tst_frmHelp::whereTheManualIs()
{
    UiFixture outside;
    modSnipVale program(outside.questions, outside.clock, outside.shell);
    program.AppPath = outside.scratch.folder();
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, program.helpFolder());
    program.ShippedPath = QStringLiteral(SHIPPED_DIR);
    const QString own = program.AppPath + u"/help"_s;
    QVERIFY(QDir().mkpath(own)); // without a page in it
    QCOMPARE(program.helpFolder(), manual);
    QVERIFY(QFile::copy(manual + u"/index.html"_s, own + u"/index.html"_s));
    QCOMPARE(program.helpFolder(), own);
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, frmHelp(own, outside.desktop)); // its chapters are missing
}

void tst_frmHelp::reading()
{
    Reader r;
    QCOMPARE(r.page(), u"index.html"_s);
    QVERIFY(!r.action("Back").isEnabled());
    for (int time = 0; time < 2; ++time) { // asked for again after reading elsewhere
        r.text().verticalScrollBar()->setValue(0);
        r.window.showPage(u"memos.html#find"_s);
        QVERIFY(r.text().verticalScrollBar()->value() > 0);
    }
    QCOMPARE(r.chosen(), u"Find and replace"_s);
    QCOMPARE(r.window.windowTitle(), u"Memos - SnipVale Manual"_s);
    emit r.text().anchorClicked(QUrl(u"search.html"_s));
    QCOMPARE(r.chosen(), u"Search"_s);
    r.action("Back").trigger();
    QCOMPARE(r.page(), u"memos.html"_s);
    r.action("Home").trigger();
    emit r.text().anchorClicked(QUrl(u"https://example.org/a?b=c"_s));
    QCOMPARE(r.shell.opened, QStringList({u"https://example.org/a?b=c"_s}));
    QCOMPARE(r.page(), u"index.html"_s);
    r.contents().setCurrentItem(r.contents().topLevelItem(1)->child(0));
    QCOMPARE(r.page(), u"archive.html"_s);
    r.text().setFixedWidth(400);
    r.window.showPage(u"first-steps.html"_s);
    QCOMPARE(r.text().horizontalScrollBar()->maximum(), 0); // its pictures fit
    QTest::keyClick(&r.window, Qt::Key_Escape);
    QVERIFY(r.window.isHidden());
}

void tst_frmHelp::searching()
{
    Reader r;
    auto& box = r.get<QLineEdit>("txtSearch");
    const auto first = [&] { return r.contents().topLevelItem(0)->text(0); };
    const int chapters = r.contents().topLevelItemCount();
    QTest::keyClicks(&box, u"CLIPBOARD 30"_s);
    QCOMPARE(first(), u"Using a password"_s);
    QTest::keyClick(&box, Qt::Key_Return);
    QCOMPARE(r.page(), u"passwords.html"_s);
    QCOMPARE(r.text().textCursor().selectedText(), u"clipboard"_s);
    box.setText(u"compacting"_s); // a title that has it comes before a text
    QCOMPARE(first(), u"Compacting and repairing"_s);
    box.setText(u"xyzzy"_s);
    QCOMPARE(first(), u"Nothing found"_s);
    box.clear();
    QCOMPARE(r.contents().topLevelItemCount(), chapters);
}

void tst_frmHelp::findingInAPage()
{
    Reader r;
    r.window.showPage(u"keyboard.html"_s);
    r.action("Find").trigger();
    auto& find = r.get<QLineEdit>("txtFind");
    const auto place = [&] { return r.text().textCursor().selectionStart(); };
    QTest::keyClicks(&find, u"sticky"_s);
    const int first = place();
    QTest::keyClick(&find, Qt::Key_Return);
    QVERIFY(place() > first);
    QTest::keyClick(&find, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(place(), first);
    QTest::keyClick(&find, Qt::Key_Return, Qt::ShiftModifier); // round to the last one
    QVERIFY(place() > first && r.get<QLabel>("lblFound").text().isEmpty());
    QTest::keyClicks(&find, u"xyzzy"_s);
    QCOMPARE(r.get<QLabel>("lblFound").text(), u"Not found"_s);
    QTest::keyClick(&find, Qt::Key_Escape); // the bar first
    QVERIFY(r.window.isVisible() && !find.isVisible());
}

void tst_frmHelp::readBehindAModalWindow()
{
    Reader r;
    const auto click = [&](int chapter) {
        const QPoint at = r.contents().visualItemRect(r.contents().topLevelItem(chapter)).center();
        QTest::mouseClick(r.window.windowHandle(), Qt::LeftButton, {}, r.contents().viewport()->mapTo(&r.window, at));
        return r.page();
    };
    QDialog editor;
    whenModal([&](QWidget&) {
        QDialog message(&editor);
        whenModal([&](QWidget& box) {
            QCOMPARE(click(1), u"archive.html"_s);
            box.close();
        });
        message.exec();
        QCOMPARE(click(2), u"categories.html"_s); // the message is gone, the editor still waits
        editor.close();
    });
    editor.exec();
    QCOMPARE(click(0), u"first-steps.html"_s); // it outlives them
}

SNIPVALE_TEST(tst_frmHelp)
#include "tst_frmHelp.moc"
