// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "tasks/ui/ToDoEditor.h"

#include <QMenu>
#include <QToolBar>

using namespace Qt::StringLiterals;

class tst_frmToDoDescription : public QObject {
    Q_OBJECT
private slots:
    void barAndMenu();
    void bytesStayUntilEdited();
    void losingPicturesIsAsked();
    void files();
};

void tst_frmToDoDescription::barAndMenu()
{
    Editor e;
    auto& text = e.get<RichTextBox>("rtfDescription");
    QStringList keys;
    for (const QAction* action : e.get<QToolBar>("tbToolBarNote").actions())
        if (!action->isSeparator() && !action->objectName().isEmpty())
            keys << action->objectName();
    QCOMPARE(keys.join(u'|'),
             u"New|Open|Save|Print|Cut|Copy|Paste|Bold|Italic|Underline|Align Left|Center|Align Right|Color|Numbers|"
             "Bullets|Outdent|Indent"_s);
    QCOMPARE(e.combo("cmbFontSize").itemText(0) + e.combo("cmbFontSize").itemText(67), u"572"_s);
    QVERIFY(e.combo("cmbFontName").count() > 0);
    QTest::keyClicks(&text, u"word"_s);
    text.selectAll();
    const auto item = [&](const char* key) -> QAction& {
        for (QAction* action : text.menu()->actions())
            if (action->text() == QLatin1String(key))
                return *action;
        qFatal("the menu has no %s", key);
    };
    for (const char* key : {"Bold", "Italic", "Underline", "Center", "Align Right", "Align Left"}) {
        item(key).trigger();
        QVERIFY2(item(key).isChecked(), key);
    }
    QVERIFY(!item("Center").isChecked());
    e.files.colors = {0x0000FF, std::nullopt}; // red, as the dialog's numbers have it; then cancelled
    for (int i = 0; i < 2; ++i)
        e.get<QToolBar>("tbToolBarNote").findChild<QAction*>(u"Color"_s)->trigger();
    QCOMPARE(text.look().color, QColor(255, 0, 0));
    e.box("txtName").setText(u"n"_s);
    e.click("cmdOK");
    const QString stored = e.row(u"description"_s);
    for (const QString& word : {u"\\b"_s, u"\\i"_s, u"\\ul"_s, u"\\red255\\green0\\blue0"_s, u"word"_s})
        QVERIFY2(stored.contains(word), qPrintable(word));
}

void tst_frmToDoDescription::bytesStayUntilEdited()
{
    Editor e;
    cToDo todo = e.sample();
    QVERIFY(todo.Save());
    e.open(todo.ToDoID);
    auto& text = e.get<RichTextBox>("rtfDescription");
    QCOMPARE(text.toPlainText().trimmed(), u"bold"_s);
    e.box("txtName").setText(u"renamed"_s);
    e.saveAndStay();
    QCOMPARE(e.row(u"description"_s), todo.ToDoDescription);
    QTest::keyClicks(&text, u"it's "_s);
    e.saveAndStay();
    QVERIFY(e.row(u"description"_s).contains("it's "_L1));
    text.selectAll();
    QTest::keyClick(&text, Qt::Key_Delete);
    e.click("cmdOK");
    QCOMPARE(e.row(u"description"_s), QString());
}

void tst_frmToDoDescription::losingPicturesIsAsked()
{
    Editor e;
    cToDo todo = e.sample();
    todo.ToDoDescription = u"{\\rtf1 {\\pict\\pngblip 8950}x\\par}"_s;
    QVERIFY(todo.Save());
    e.open(todo.ToDoID);
    e.questions.expect(QString(), Answer::No);
    QTest::keyClicks(&e.get<RichTextBox>("rtfDescription"), u"y"_s);
    QCOMPARE(e.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
    QVERIFY(!e.window->isDirty());
    e.click("cmdOK");
    QCOMPARE(e.row(u"description"_s), todo.ToDoDescription);
}

void tst_frmToDoDescription::files()
{
    Editor e;
    const QString name = e.scratch.path(u"x.txt"_s);
    writeBytes(name, "caf\xE9\r\nb\r\n");
    QAction& open = *e.get<QToolBar>("tbToolBarNote").findChild<QAction*>(u"Open"_s);
    e.files.answers = {std::nullopt, name, e.scratch.path(u"missing"_s)};
    open.trigger(); // cancelled
    QVERIFY(!e.window->isDirty());
    open.trigger();
    QCOMPARE(e.get<RichTextBox>("rtfDescription").toPlainText(), u"café\nb"_s);
    QVERIFY(e.window->isDirty());
    e.questions.expect(QString());
    open.trigger(); // cannot be read: said, and the text stays
    QVERIFY(e.questions.asked.last().text.startsWith("Error in OpenFile: "_L1));
    QCOMPARE(e.get<RichTextBox>("rtfDescription").toPlainText(), u"café\nb"_s);
    QCOMPARE(e.files.asked.first(), u"Apri |All Files (*.*) |*.*"_s);
    emit e.get<RichTextBox>("rtfDescription").linkActivated(u"https://example.org/"_s);
    emit e.get<RichTextBox>("rtfDescription").linkActivated(u"file:///etc/passwd"_s);
    QCOMPARE(e.shell.opened, QStringList({u"https://example.org/"_s}));
}

SNIPVALE_TEST(tst_frmToDoDescription)
#include "tst_frmToDoDescription.moc"
