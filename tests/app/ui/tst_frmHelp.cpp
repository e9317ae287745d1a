// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "app/modSnipVale.h"
#include "app/ui/HelpTopics.h"
#include "app/ui/frmHelp.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QToolBar>
#include <QTreeWidget>
#include <QtTest>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const QString manual = QStringLiteral(SHIPPED_DIR "/help");

QString pageText(const QString& page)
{
    return QString::fromUtf8(bytesOf(manual + u'/' + page));
}

QStringList capturedIn(const QString& page, const QString& pattern)
{
    QStringList found;
    const QString text = pageText(page);
    for (auto match = QRegularExpression(pattern).globalMatch(text); match.hasNext();)
        found.append(match.next().captured(1));
    return found;
}

// Whether the manual has that page, and the anchor on it.
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
    QString page() { return get<HelpPage>("txtPage").source().fileName(); }
    QString chosen() { return get<QTreeWidget>("tvwContents").currentItem()->text(0); }
    QAction& action(const char* name) { return get<QAction>(name); }
    frmHelp window{manual, desktop};
};

} // namespace

class tst_frmHelp : public QObject {
    Q_OBJECT
private slots:
    void chaptersAndLinks();
    void pageForWindow();
    void helpKey();
    void whereTheManualIs();
    void reading();
    void searching();
    void picturesFitThePage();
    void readBehindAModalWindow();
};

void tst_frmHelp::chaptersAndLinks()
{
    const QStringList chapters = QDir(manual).entryList({u"*.html"_s});
    QVERIFY(chapters.size() > 10);
    for (const QString& chapter : chapters) {
        QVERIFY2(chapter == "index.html"_L1 ||
                     pageText(u"index.html"_s).contains(u"<li><a href=\"%1\">"_s.arg(chapter)),
                 qPrintable(chapter));
        for (const QString& link : capturedIn(chapter, u"href=\"([^\"]+\\.html[^\"]*)\""_s))
            QVERIFY2(leadsSomewhere(link), qPrintable(chapter + u": "_s + link));
        for (const QString& picture : capturedIn(chapter, u"<img src=\"([^\"]+)\""_s)) // of tools/helppictures
            QVERIFY2(!QImage(manual + u'/' + picture).isNull(), qPrintable(picture));
    }
    for (const HelpTopic& topic : helpTopics())
        QVERIFY2(leadsSomewhere(QStringView(topic.page).toString()), qPrintable(QStringView(topic.name).toString()));
}

void tst_frmHelp::pageForWindow()
{
    QWidget frame;
    const auto make = [](const QString& name, QWidget& parent) {
        auto* widget = new QWidget(&parent);
        widget->setObjectName(name);
        return widget;
    };
    frame.setObjectName(u"frmMain"_s);
    QWidget* explorer = make(u"frmSnipValeS"_s, frame);
    QWidget* passwords = make(u"frmPasswordS"_s, frame);
    passwords->hide();
    QDialog editor(&frame);
    editor.setObjectName(u"frmBookmark"_s);
    QCOMPARE(helpPageFor(make(u"lvwMemo"_s, *explorer)), u"memos.html#list"_s); // the nearest that has a page
    QCOMPARE(helpPageFor(&frame), u"first-steps.html#window"_s);
    QCOMPARE(helpPageFor(make(u"any"_s, editor)), u"bookmarks.html#editor"_s);
    QCOMPARE(helpPageFor(make(u"lvwLanguage"_s, editor)), u"bookmarks.html#editor"_s); // that name is of the options
    explorer->hide();
    passwords->show();
    QCOMPARE(helpPageFor(&frame), u"passwords.html#list"_s);
    QCOMPARE(helpPageFor(nullptr), QString());
}

void tst_frmHelp::helpKey()
{
    int asked = 0;
    HelpKey key([&] { ++asked; }, nullptr);
    QDialog dialog;
    auto* box = new QLineEdit(&dialog);
    whenModal([&](QWidget& window) {
        QTest::keyClick(box, Qt::Key_F1);
        QCOMPARE(asked, 1); // once, however many widgets it passes
        QTest::keyClick(box, Qt::Key_F1, Qt::ControlModifier);
        QTest::keyClick(box, Qt::Key_F2);
        window.close();
    });
    dialog.exec();
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
    r.window.showPage(u"memos.html#find"_s);
    auto& page = r.get<HelpPage>("txtPage");
    QVERIFY(page.verticalScrollBar()->value() > 0);
    QCOMPARE(r.chosen(), u"Find and replace"_s);
    QCOMPARE(r.window.windowTitle(), u"Memos - SnipVale Manual"_s);
    page.verticalScrollBar()->setValue(0);
    r.window.showPage(u"memos.html#find"_s); // asked for again after reading elsewhere
    QVERIFY(page.verticalScrollBar()->value() > 0);
    emit page.anchorClicked(QUrl(u"search.html"_s));
    QCOMPARE(r.chosen(), u"Search"_s);
    r.action("Back").trigger();
    QCOMPARE(r.page(), u"memos.html"_s);
    r.action("Home").trigger();
    emit page.anchorClicked(QUrl(u"https://example.org/a?b=c"_s));
    QCOMPARE(r.shell.opened, QStringList({u"https://example.org/a?b=c"_s}));
    QCOMPARE(r.page(), u"index.html"_s);
    auto& contents = r.get<QTreeWidget>("tvwContents");
    contents.setCurrentItem(contents.topLevelItem(1)->child(0));
    QCOMPARE(r.page(), u"archive.html"_s);
    QTest::keyClick(&r.window, Qt::Key_Escape);
    QVERIFY(r.window.isHidden());
}

void tst_frmHelp::searching()
{
    Reader r;
    auto& box = r.get<QLineEdit>("txtSearch");
    auto& contents = r.get<QTreeWidget>("tvwContents");
    const int chapters = contents.topLevelItemCount();
    QTest::keyClicks(&box, u"CLIPBOARD 30"_s);
    QCOMPARE(contents.topLevelItem(0)->text(0), u"Using a password"_s);
    QVERIFY(contents.topLevelItem(0)->toolTip(0).contains("clipboard"_L1));
    QTest::keyClick(&box, Qt::Key_Return);
    QCOMPARE(r.page(), u"passwords.html"_s);
    QCOMPARE(r.get<HelpPage>("txtPage").textCursor().selectedText(), u"clipboard"_s);
    box.setText(u"compacting"_s); // a title that has it comes before a text
    QCOMPARE(contents.topLevelItem(0)->text(0), u"Compacting and repairing"_s);
    box.setText(u"xyzzy"_s);
    QCOMPARE(contents.topLevelItem(0)->text(0), u"Nothing found"_s);
    box.clear();
    QCOMPARE(contents.topLevelItemCount(), chapters);

    r.window.showPage(u"keyboard.html"_s); // in the page
    r.action("Find").trigger();
    auto& find = r.get<QLineEdit>("txtFind");
    const auto place = [&] { return r.get<HelpPage>("txtPage").textCursor().selectionStart(); };
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

void tst_frmHelp::picturesFitThePage()
{
    Reader r;
    auto& page = r.get<HelpPage>("txtPage");
    for (const int width : {400, 900}) {
        page.setFixedWidth(width);
        r.window.showPage(u"first-steps.html"_s);
        QCOMPARE(page.horizontalScrollBar()->maximum(), 0);
    }
    const QImage natural(manual + u"/pictures/welcome.png"_s);
    const auto shown =
        page.document()
            ->resource(QTextDocument::ImageResource, QUrl::fromLocalFile(manual + u"/pictures/welcome.png"_s))
            .value<QPixmap>();
    QVERIFY(shown.width() > 700 && shown.width() < natural.width());
}

void tst_frmHelp::readBehindAModalWindow()
{
    Reader r;
    auto& contents = r.get<QTreeWidget>("tvwContents");
    const auto click = [&](int chapter) {
        const QPoint at = contents.visualItemRect(contents.topLevelItem(chapter)).center();
        QTest::mouseClick(r.window.windowHandle(), Qt::LeftButton, {}, contents.viewport()->mapTo(&r.window, at));
        return r.page();
    };
    QDialog editor;
    whenModal([&](QWidget&) {
        QCOMPARE(click(2), u"categories.html"_s);
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
    QVERIFY(r.window.isVisible()); // it outlives them
    QCOMPARE(click(0), u"first-steps.html"_s);
}

SNIPVALE_TEST(tst_frmHelp)
#include "tst_frmHelp.moc"
