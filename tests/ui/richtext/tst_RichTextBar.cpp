// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "ui/richtext/RichTextBar.h"
#include "ui/richtext/ShownBox.h"

#include <QComboBox>
#include <QFontDatabase>
#include <QMainWindow>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

const QStringList allKeys =
    u"New,Open,Save,Print,|,Cut,Copy,Paste,|,Bold,Italic,Underline,Align Left,Center,Align Right,Color,Number,Bullets,"
    "Outdent,Indent,Nonsense"_s.split(u',');

struct Window : Shown {
    explicit Window(const QString& stored = {}) : Shown(stored)
    {
        window.setCentralWidget(&box);
        window.addToolBar(&bar);
        window.resize(900, 300);
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        box.setFocus();
    }
    ~Window()
    {
        window.takeCentralWidget()->setParent(nullptr);
        window.removeToolBar(&bar);
        bar.setParent(nullptr);
    }
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
    QComboBox& combo(const QString& name) const { return *bar.findChild<QComboBox*>(name); }
    QString shown(const QString& name) const
    {
        const QComboBox& c = combo(name);
        return c.currentIndex() < 0 ? u'?' + c.placeholderText() : c.currentText();
    }

    QMainWindow window;
    RichTextBar bar{box, allKeys};
};

} // namespace

class tst_RichTextBar : public QObject {
    Q_OBJECT
private slots:
    void followsSelection();
    void buttons();
    void refusedEdit();
    void ownersButtons();
    void color();
    void combos();
    void keyboard();
};

void tst_RichTextBar::followsSelection()
{
    Window w(u"{\\rtf1{\\fonttbl{\\f0 DejaVu Sans;}{\\f1 Nowhere Font;}}\\f0\\fs20 a\\b b\\i c\\ul d\\par"
             "\\pard\\plain\\f1\\fs21\\qc e\\par\\pard\\qr\\fs200{\\*\\pn\\pnlvlblt}f\\par}"_s);
    const std::tuple<int, int, QString> steps[] = {
        {0, 1, u"Align Left;DejaVu Sans;10"_s},
        {3, 4, u"Bold, Italic, Underline, Align Left;DejaVu Sans;10"_s},
        {1, 4, u"Bold, Align Left;DejaVu Sans;10"_s}, // what all of it has
        {0, 4, u"Align Left;DejaVu Sans;10"_s},
        {2, 2, u"Bold, Align Left;DejaVu Sans;10"_s}, // a caret: what would be typed
        {5, 6, u"Center;?Nowhere Font;10"_s}, // whole points; a font that is not here
        {3, 6, u";?;?"_s},
        {7, 8, u"Align Right, Bullets;?Nowhere Font;?100"_s},
    };
    if (!QFontDatabase::families().contains(u"DejaVu Sans"_s))
        QSKIP("needs the DejaVu fonts");
    for (const auto& [from, to, look] : steps) {
        w.select(from, to);
        QCOMPARE(QStringList({w.pressed(), w.shown(u"cmbFontName"_s), w.shown(u"cmbFontSize"_s)}).join(u';'), look);
    }
    QCOMPARE(w.edits.count(), 0); // looking changes nothing
}

void tst_RichTextBar::buttons()
{
    Window w(u"abc\ndef"_s);
    w.select(0, 3);
    // What is clicked, what is pressed then, what the paragraph looks like. Pressed again an alignment stays.
    const std::tuple<QString, QString, QString> steps[] = {
        {u"Bold"_s, u"Bold, Align Left"_s, u" bold -/-|abc}"_s},
        {u"Italic"_s, u"Bold, Italic, Align Left"_s, u" bold italic -/-|abc}"_s},
        {u"Underline"_s, u"Bold, Italic, Underline, Align Left"_s, u" bold italic underline -/-|abc}"_s},
        {u"Bold"_s, u"Italic, Underline, Align Left"_s, u" italic underline -/-|abc}"_s},
        {u"Center"_s, u"Italic, Underline, Center"_s, u"[align4 -]"_s},
        {u"Center"_s, u"Italic, Underline, Center"_s, u"[align4 -]"_s},
        {u"Align Right"_s, u"Italic, Underline, Align Right"_s, u"[align2 -]"_s},
        {u"Align Left"_s, u"Italic, Underline, Align Left"_s, u"[align1 -]"_s},
        {u"Bullets"_s, u"Italic, Underline, Align Left, Bullets"_s, u" list1 level1"_s},
        {u"Indent"_s, u"Italic, Underline, Align Left, Bullets"_s, u" level2"_s},
        {u"Outdent"_s, u"Italic, Underline, Align Left, Bullets"_s, u" level1"_s},
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

void tst_RichTextBar::refusedEdit()
{
    Window w(u"{\\rtf1 ab{\\pict 00}}"_s);
    w.box.setConfirm([](const QString&) { return false; });
    w.select(0, 2);
    w.click(u"Bold"_s);
    w.click(u"Center"_s);
    w.combo(u"cmbFontSize"_s).setCurrentText(u"30"_s);
    QCOMPARE(w.pressed(), u"Align Left"_s); // the buttons tell the truth
    QCOMPARE(w.shown(u"cmbFontSize"_s), u"12"_s);
    QCOMPARE(w.edits.count(), 0);
}

void tst_RichTextBar::ownersButtons()
{
    Window w(u"a"_s);
    QSignalSpy open(&w.bar, &RichTextBar::openRequested);
    QSignalSpy print(&w.bar, &RichTextBar::printRequested);
    for (const QString& key : {u"New"_s, u"Save"_s, u"Number"_s, u"Open"_s, u"Print"_s})
        w.bar.command(key)->trigger();
    QCOMPARE(open.count(), 1);
    QCOMPARE(print.count(), 1);
    QCOMPARE(w.edits.count(), 0);
    QVERIFY(!w.bar.command(u"New"_s)->isVisible() && !w.bar.command(u"Nonsense"_s));
    QCOMPARE(w.bar.command(u"Bold"_s)->toolTip(), u"Bold (Ctrl+B)"_s);
}

void tst_RichTextBar::color()
{
    Window w(u"ab"_s);
    w.select(0, 2);
    w.click(u"Color"_s); // nobody to ask
    QList<QColor> initial;
    std::optional<QColor> answer;
    w.bar.setPickColor([&](const QColor& color) {
        initial.append(color);
        return answer;
    });
    w.click(u"Color"_s);
    QCOMPARE(w.edits.count(), 0);
    answer = QColor(10, 20, 30);
    w.click(u"Color"_s);
    w.click(u"Color"_s);
    QCOMPARE(initial,
             (QList<QColor>{w.box.palette().color(QPalette::Text), w.box.palette().color(QPalette::Text), *answer}));
    QVERIFY(w.looks().contains(u" #0a141e/-|ab}"_s));
}

void tst_RichTextBar::combos()
{
    Window w(u"{\\rtf1\\fs21 abc}"_s);
    QComboBox& sizes = w.combo(u"cmbFontSize"_s);
    QComboBox& names = w.combo(u"cmbFontName"_s);
    QCOMPARE(sizes.itemText(0) + u'-' + sizes.itemText(sizes.count() - 1), u"5-72"_s);
    QVERIFY(names.count() > 0 && names.findText(u"["_s, Qt::MatchContains) < 0);
    w.select(0, 2);
    emit sizes.activated(sizes.currentIndex()); // the 10 that stands for 10.5
    QVERIFY2(w.looks().contains(u"{ 10 -/-|ab}"_s), qPrintable(w.looks()));
    QCOMPARE(w.edits.count(), 1);
    emit sizes.activated(sizes.currentIndex()); // nothing to change now
    QCOMPARE(w.edits.count(), 1);
    sizes.setFocus();
    QTest::keyClick(&sizes, Qt::Key_Down);
    QCOMPARE(w.box.look().points, 11.0);
    names.setCurrentIndex(names.count() - 1);
    QCOMPARE(w.box.look().family, names.itemText(names.count() - 1));
}

// From the text the bar can be reached and used without a mouse, and left again.
void tst_RichTextBar::keyboard()
{
    Window w(u"ab"_s);
    w.select(0, 2);
    QTest::keyClick(&w.box, Qt::Key_Backtab);
    QVERIFY(!w.box.hasFocus());
    QWidget* first = w.bar.widgetForAction(w.bar.command(u"Open"_s));
    first->setFocus(Qt::TabFocusReason);
    const auto name = [] {
        auto* button = qobject_cast<QToolButton*>(QApplication::focusWidget());
        return button && button->defaultAction() ? button->defaultAction()->objectName() : QString();
    };
    for (int i = 0; i < 5; ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
    QCOMPARE(name(), u"Bold"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    QVERIFY(w.box.look().bold);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
    QCOMPARE(name(), u"Paste"_s);
    QCOMPARE(first->focusPolicy(), Qt::TabFocus);
}

SNIPVALE_TEST(tst_RichTextBar)
#include "tst_RichTextBar.moc"
