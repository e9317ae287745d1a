// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "ui/richtext/RichTextBar.h"
#include "ui/richtext/RichTextSupport.h"

#include <QComboBox>

using namespace Qt::StringLiterals;

namespace {

const QStringList allKeys =
    u"New,Open,Save,Print,|,Cut,Copy,Paste,|,Bold,Italic,Underline,Align Left,Center,Align Right,Color,Number,Bullets,"
    "Outdent,Indent,Nonsense"_s.split(u',');

struct Window : Shown {
    explicit Window(const QString& stored) : Shown(stored) { bar.show(); }
    QString pressed() const
    {
        QStringList names;
        for (QAction* action : bar.actions()) {
            if (action->isChecked())
                names.append(action->objectName());
        }
        return names.join(u", "_s);
    }
    void click(const QString& key) { QTest::mouseClick(bar.widgetForAction(bar.command(key)), Qt::LeftButton); }
    QString shown() const
    {
        QStringList texts{pressed()};
        for (const QComboBox* c : bar.findChildren<QComboBox*>())
            texts.append(c->currentIndex() < 0 ? u'?' + c->placeholderText() : c->currentText());
        return texts.join(u';');
    }

    RichTextBar bar{box, allKeys, &box};
};

} // namespace

class tst_RichTextBar : public QObject {
    Q_OBJECT
private slots:
    void followsSelection()
    {
        Window w(u"{\\rtf1{\\fonttbl{\\f0 DejaVu Sans;}{\\f1 Nowhere Font;}}\\f0\\fs20 a\\b b\\i c\\ul d\\par"
                 "\\pard\\plain\\f1\\fs21\\qc e\\par\\pard\\qr\\fs200{\\*\\pn\\pnlvlblt}f\\par}"_s);
        const std::tuple<int, int, QString> steps[] = {
            {0, 1, u"Align Left;DejaVu Sans;10"_s},
            {3, 4, u"Bold, Italic, Underline, Align Left;DejaVu Sans;10"_s},
            {1, 4, u"Bold, Align Left;DejaVu Sans;10"_s}, // what all of it has
            {2, 2, u"Bold, Align Left;DejaVu Sans;10"_s}, // a caret: what would be typed
            {5, 6, u"Center;?Nowhere Font;10"_s}, // whole points; a font that is not here
            {3, 6, u";?;?"_s},
            {7, 8, u"Align Right, Bullets;?Nowhere Font;?100"_s},
        };
        for (const auto& [from, to, look] : steps) {
            w.select(from, to);
            QCOMPARE(w.shown(), look);
        }
        QCOMPARE(w.edits.count(), 0); // looking changes nothing
    }

    void buttons()
    {
        Window w(u"{\\rtf1 ab{\\pict 00}}"_s);
        QSignalSpy open(&w.bar, &RichTextBar::openRequested);
        QSignalSpy print(&w.bar, &RichTextBar::printRequested);
        w.box.setConfirm([](const QString&) { return false; });
        w.select(0, 2);
        for (const QString& key : {u"New"_s, u"Save"_s, u"Number"_s, u"Open"_s, u"Print"_s, u"Bold"_s, u"Center"_s})
            w.bar.command(key)->trigger();
        w.bar.findChild<QComboBox*>(u"cmbFontSize"_s)->setCurrentText(u"30"_s);
        QVERIFY(w.pressed() == u"Align Left" && w.shown().endsWith(u";12")); // refused: the buttons tell the truth
        QVERIFY(open.count() == 1 && print.count() == 1 && w.edits.count() == 0);
        w.box.setRtf(u"abc\ndef"_s);
        w.select(0, 3);
        // What is clicked, what is pressed then, what the paragraph looks like. Pressed again an alignment stays.
        const std::tuple<QString, QString, QString> steps[] = {
            {u"Bold"_s, u"Bold, Align Left"_s, u" bold -/-|abc}"_s},
            {u"Italic"_s, u"Bold, Italic, Align Left"_s, u" bold italic -/-|abc}"_s},
            {u"Underline"_s, u"Bold, Italic, Underline, Align Left"_s, u" bold italic underline -/-|abc}"_s},
            {u"Bold"_s, u"Italic, Underline, Align Left"_s, u" italic underline -/-|abc}"_s},
            {u"Center"_s, u"Italic, Underline, Center"_s, u"[align4 -]"_s},
            {u"Align Right"_s, u"Italic, Underline, Align Right"_s, u"[align2 -]"_s},
            {u"Align Right"_s, u"Italic, Underline, Align Right"_s, u"[align2 -]"_s},
            {u"Align Left"_s, u"Italic, Underline, Align Left"_s, u"[align1 -]"_s},
            {u"Bullets"_s, u"Italic, Underline, Align Left, Bullets"_s, u" list1 level1"_s},
            {u"Cut"_s, u"Align Left, Bullets"_s, u"\n[align1 -]"_s},
            {u"Paste"_s, u"Italic, Underline, Align Left, Bullets"_s, u"|abc}"_s},
        };
        for (const auto& [key, pressed, look] : steps) {
            w.click(key);
            QCOMPARE(w.pressed(), pressed);
            QVERIFY2(w.looks().contains(look), qPrintable(key + u'\n' + w.looks()));
        }
        QVERIFY(w.box.hasFocus() && !w.bar.command(u"Cut"_s)->isEnabled() && !w.bar.command(u"Copy"_s)->isEnabled());
    }

    void colorAndCombos()
    {
        Window w(u"{\\rtf1\\fs21 abc}"_s);
        w.select(0, 2);
        std::optional<QColor> answer;
        w.bar.setPickColor([&](const QColor&) { return answer; });
        w.click(u"Color"_s);
        QCOMPARE(w.edits.count(), 0);
        answer = QColor(10, 20, 30);
        w.click(u"Color"_s);
        auto& sizes = *w.bar.findChild<QComboBox*>(u"cmbFontSize"_s);
        auto& names = *w.bar.findChild<QComboBox*>(u"cmbFontName"_s);
        const auto edits = w.edits.count();
        emit sizes.activated(sizes.currentIndex()); // the 10 that stands for 10.5
        QVERIFY2(w.looks().contains(u"{ 10 #0a141e/-|ab}"_s), qPrintable(w.looks()));
        emit sizes.activated(sizes.currentIndex()); // nothing to change now
        QCOMPARE(w.edits.count(), edits + 1);
        sizes.setCurrentText(u"11"_s);
        QCOMPARE(w.box.look().points, 11.0);
        names.setCurrentIndex(names.count() - 1);
        QCOMPARE(w.box.look().family, names.itemText(names.count() - 1));
    }

    // From the text the bar can be reached and used without a mouse, and left again.
    void keyboard()
    {
        Window w(u"ab"_s);
        w.select(0, 2);
        QTest::keyClick(&w.box, Qt::Key_Backtab);
        QVERIFY(!w.box.hasFocus());
        w.bar.widgetForAction(w.bar.command(u"Open"_s))->setFocus(Qt::TabFocusReason);
        for (int i = 0; i < 5; ++i)
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
        QCOMPARE(QApplication::focusWidget(), w.bar.widgetForAction(w.bar.command(u"Bold"_s)));
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        QVERIFY(w.box.look().bold);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
        QCOMPARE(QApplication::focusWidget(), w.bar.widgetForAction(w.bar.command(u"Paste"_s)));
    }
};

SNIPVALE_TEST(tst_RichTextBar)
#include "tst_RichTextBar.moc"
