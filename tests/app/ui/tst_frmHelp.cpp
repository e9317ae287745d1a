// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "app/ui/HelpTopics.h"
#include "app/ui/frmHelp.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

const QString manual = QStringLiteral(SHIPPED_DIR "/help");

// The manual of the program, shown.
struct Reader : UiFixture {
    Reader()
    {
        window.showPage(QString());
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }
    template <typename Widget>
    Widget& get(const char* name)
    {
        return *window.findChild<Widget*>(QString::fromLatin1(name));
    }
    HelpPage& text() { return get<HelpPage>("txtPage"); }
    QTreeWidget& contents() { return get<QTreeWidget>("tvwContents"); }
    QString page() { return text().source().fileName(); }
    frmHelp window{manual, desktop};
};

} // namespace

class tst_frmHelp : public QObject {
    Q_OBJECT
private slots:
    void linksAndTopics()
    {
        static const QRegularExpression links(u"(?:href|src)=\"([^\":]+)\""_s);
        QStringList targets;
        for (const HelpTopic& topic : helpTopics())
            targets.append(QStringView(topic.page).toString());
        for (const QString& chapter : QDir(manual).entryList({u"*.html"_s}))
            for (const auto& match : links.globalMatch(QString::fromUtf8(bytesOf(manual + u'/' + chapter))))
                targets.append(match.captured(1));
        for (const QString& target : targets) {
            const QByteArray page = bytesOf(manual + u'/' + target.section(u'#', 0, 0));
            const QByteArray anchor = "<a name=\"" + target.section(u'#', 1).toUtf8();
            QVERIFY2(!page.isEmpty() && (!target.contains(u'#') || page.contains(anchor + "\">")), qPrintable(target));
        }
    }

    void pageForWindow()
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
    }

    void reading()
    {
        Reader r;
        QCOMPARE(r.page(), u"index.html"_s);
        for (int time = 0; time < 2; ++time) { // asked for again after reading elsewhere
            r.text().verticalScrollBar()->setValue(0);
            r.window.showPage(u"memos.html#find"_s);
            QVERIFY(r.text().verticalScrollBar()->value() > 0);
        }
        QCOMPARE(r.contents().currentItem()->text(0), u"Find and replace"_s);
        emit r.text().anchorClicked(QUrl(u"search.html"_s));
        QCOMPARE(r.contents().currentItem()->text(0), u"Search"_s);
        r.get<QAction>("Back").trigger();
        QCOMPARE(r.page(), u"memos.html"_s);
        emit r.text().anchorClicked(QUrl(u"https://example.org/a?b=c"_s));
        QCOMPARE(r.shell.opened, QStringList({u"https://example.org/a?b=c"_s}));
        r.contents().setCurrentItem(r.contents().topLevelItem(1)->child(0));
        QCOMPARE(r.page(), u"archive.html"_s);
        QTest::keyClick(&r.window, Qt::Key_Escape);
        QVERIFY(r.window.isHidden());
    }

    void searching()
    {
        Reader r;
        auto& box = r.get<QLineEdit>("txtSearch");
        const auto hit = [&] { return r.contents().topLevelItem(0)->text(0); };
        QTest::keyClicks(&box, u"CLIPBOARD 30"_s);
        QCOMPARE(hit(), u"Using a password"_s);
        QTest::keyClick(&box, Qt::Key_Return);
        QCOMPARE(r.page() + r.text().textCursor().selectedText(), u"passwords.htmlclipboard"_s);
        box.setText(u"compacting"_s); // a title that has it comes before a text
        QCOMPARE(hit(), u"Compacting and repairing"_s);
    }

    void readBehindAModalWindow()
    {
        Reader r;
        const auto click = [&](int chapter) {
            const QPoint at = r.contents().visualItemRect(r.contents().topLevelItem(chapter)).center();
            QTest::mouseClick(r.window.windowHandle(), Qt::LeftButton, {},
                              r.contents().viewport()->mapTo(&r.window, at));
            return r.page();
        };
        int asked = 0;
        HelpKey key([&] { ++asked; }, nullptr);
        QDialog editor;
        whenModal([&](QWidget&) {
            QDialog message(&editor);
            whenModal([&](QWidget& box) {
                QCOMPARE(click(1), u"archive.html"_s);
                QTest::keyClick(new QLineEdit(&box), Qt::Key_F1);
                QCOMPARE(asked, 1); // once, however many widgets it passes
                box.close();
            });
            message.exec();
            QCOMPARE(click(2), u"categories.html"_s); // the message is gone, the editor still waits
            editor.close();
        });
        editor.exec();
        QCOMPARE(click(0), u"first-steps.html"_s); // it outlives them
    }
};

SNIPVALE_TEST(tst_frmHelp)
#include "tst_frmHelp.moc"
