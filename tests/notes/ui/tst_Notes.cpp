// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "notes/cNote.h"
#include "notes/ui/NoteColors.h"
#include "notes/ui/NoteWindows.h"
#include "notes/ui/frmNote.h"
#include "notes/ui/frmNoteList.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

const QString deleteQuestion = u"Are you sure you want to delete selected notes? "_s;

// The list as the frame shows it, and the note windows that are open.
struct Notes : UiFixture {
    explicit Notes(const QStringList& contents = {})
    {
        for (const QString& content : contents)
            add(content);
        list.MakeLvwContents();
        list.show();
        list.setInFront(true);
    }
    void add(const QString& content, const QString& color = u"red"_s)
    {
        cNote note(archive);
        note.Content = content;
        note.Color = color;
        note.NoteDate = clock.moment.addYears(-1);
        if (!note.Save())
            qFatal("the note was not saved");
    }
    static QList<frmNote*> open()
    {
        QList<frmNote*> found;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* note = qobject_cast<frmNote*>(window); note && note->isVisible())
                found.append(note);
        std::sort(found.begin(), found.end(), [](auto* a, auto* b) { return a->noteID() < b->noteID(); });
        return found;
    }
    static bool press(frmNote* note, Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        if (!note || !QTest::qWaitForWindowActive(note))
            return false;
        QTest::keyClick(&box(note), key, modifiers);
        return true;
    }
    static QPlainTextEdit& box(const frmNote* note) { return *note->findChild<QPlainTextEdit*>(u"txtContent"_s); }
    static QPalette paper(const frmNote* note) { return box(note).palette(); }
    void select(const QList<int>& rows)
    {
        view.clearSelection();
        for (const int row : rows)
            view.selectionModel()->setCurrentIndex(view.model()->index(row, 0),
                                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    QModelIndex row(int number) { return view.model()->index(number, 0); }
    QString column(const char* name, qint32 id)
    {
        return value(u"SELECT %1 FROM tab_note WHERE noteID = %2"_s.arg(QLatin1String(name)).arg(id));
    }
    QString count(const QString& where = u"1=1"_s)
    {
        return value(u"SELECT COUNT(noteID) AS n FROM tab_note WHERE "_s + where);
    }
    QString path = archive.ArchivePath();
    void breakArchive() { archive.setPath(scratch.path(u"gone.SVA"_s)); }
    void mendArchive() { archive.setPath(path); }
    void mustSay(const QString& beginning) // the first of what was said
    {
        QVERIFY2(questions.asked.value(0).text.startsWith(beginning), qPrintable(questions.asked.value(0).text));
        questions.asked.removeFirst();
    }

    cNote record{archive};
    NoteWindows windows{archive};
    frmNoteList list{{archive, desktop, frame, record, windows}, nullptr};
    QTreeView& view = *list.findChild<QTreeView*>(u"lvwNote"_s);
};

} // namespace

class tst_Notes : public QObject {
    Q_OBJECT
private slots:
    void writing();
    void listShowsEveryText();
    void commandsFollowTheSelection();
    void deleting();
    void coloring();
    void deletedByOthers();
    void failedWriteKeepsTheWindow();
    void leaving();
    void readableUnderEveryPalette();
    void manyWindowsStayOnTheScreen();
};

void tst_Notes::writing()
{
    Notes f({u"one\r\ntwo"_s, u"[*] three"_s});
    QTest::keyClick(&f.view, Qt::Key_Insert);
    frmNote* made = f.open().value(0);
    QVERIFY(made && made->objectName() == "frmNote"_L1 && !made->parent());
    QTest::keyClicks(&f.box(made), u"it's\u00A0new"_s);
    QVERIFY(f.press(made, Qt::Key_S, Qt::ControlModifier));
    QCOMPARE(made->windowTitle(), u"it's new"_s);
    QCOMPARE(f.view.selectionModel()->selectedIndexes().value(0).data(Qt::UserRole).toString(), u"3 ItemID"_s);
    f.clock.moment = f.clock.moment.addYears(1);
    QVERIFY(f.press(made, Qt::Key_Escape) && f.open().isEmpty());
    QCOMPARE(f.column("content", 3) + f.column("color", 3) + f.column("noteDate", 3),
             u"it's\u00A0newyellow2027-03-04 09:05:00"_s);

    f.select({0});
    QTest::keyClick(&f.view, Qt::Key_Return);
    f.windows.open(2);
    const QList<frmNote*> notes = f.open();
    QCOMPARE(notes.size(), 2);
    QCOMPARE(notes[1]->windowTitle(), u"[*][*] three"_s);
    QVERIFY(notes[0]->close()); // only read: its line ends stay
    f.box(notes[1]).setPlainText(u"being typed"_s);
    notes[1]->showMinimized();
    QTest::mouseDClick(f.view.viewport(), Qt::LeftButton, {}, f.view.visualRect(f.row(1)).center());
    QVERIFY(f.open() == QList<frmNote*>{notes[1]} && !notes[1]->isMinimized()); // one window for each note
    f.box(notes[1]).setPlainText(u"世界\n"_s);
    QVERIFY(notes[1]->close());
    QCOMPARE(f.column("content", 1), u"one\r\ntwo"_s);
    QCOMPARE(f.column("content", 2), u"世界\n"_s);
    QCOMPARE(f.row(1).data().toString(), u"世界\n"_s);

    f.windows.openNew();
    f.windows.open(2);
    for (frmNote* note : f.open()) { // blanks are no text
        f.box(note).setPlainText(u"  \n "_s);
        QVERIFY(note->close());
    }
    QCOMPARE(f.count() + f.column("content", 2), u"3世界\n"_s);
    QCOMPARE(f.frame.status, u"Note -  items: 3"_s);
}

void tst_Notes::listShowsEveryText()
{
    const QString longText = u"no blank "_s + QString(300'000, u'W');
    Notes f({longText, u"\n\n one \n\r\n two\a\u202E"_s, u"<b>&</b>"_s});
    f.add(u"unknown"_s, u"pink"_s);
    for (int i = 0; i < 30; ++i)
        f.add(longText.left(5000));
    QElapsedTimer timer;
    timer.start();
    f.list.MakeLvwContents();
    f.list.grab();
    f.windows.open(1);
    f.open().value(0)->grab();
    QVERIFY(f.open().value(0)->close());
    f.windows.openNew();
    QGuiApplication::clipboard()->setText(longText);
    f.box(f.open().value(0)).paste();
    QVERIFY(timer.elapsed() < 10000); // far more, if all of it were wrapped
    f.windows.discard(0);
    const auto* cells = static_cast<QStyledItemDelegate*>(f.view.itemDelegate());
    QCOMPARE(cells->displayText(f.row(1).data(), {}), u"one - two"_s);
    QVERIFY(f.row(2).data(Qt::ToolTipRole).toString().contains("&lt;b&gt;&amp;"_L1));
    const auto picture = [&](int row) {
        return f.row(row).data(Qt::DecorationRole).value<QIcon>().pixmap(16).toImage();
    };
    QCOMPARE(picture(3), noteIcon(u"yellow"_s).pixmap(16).toImage());
    QVERIFY(picture(3) != picture(0));
}

void tst_Notes::commandsFollowTheSelection()
{
    Notes f({u"one"_s, u"two"_s});
    const auto enabled = [&] {
        QStringList names;
        for (auto i = f.frame.enabledCommands.cbegin(); i != f.frame.enabledCommands.cend(); ++i)
            if (i.value())
                names.append(i.key().mid(6));
        names.sort();
        return names.join(u' ');
    };
    QCOMPARE(enabled(), u"New"_s);
    f.questions.expect(u"Please select the note you want to modifie!"_s);
    f.list.ModifyNote();
    f.list.DeleteNote(); // nothing to ask about
    QTest::mouseClick(f.view.viewport(), Qt::RightButton, {}, f.view.visualRect(f.row(1)).center());
    QCOMPARE(f.frame.menus, QStringList({u"mnuNote"_s}));
    QCOMPARE(enabled(), u"ColorBlue ColorGreen ColorRed ColorWhite ColorYellow Delete Modify New"_s);
    f.list.setInFront(false);
    QCOMPARE(enabled(), u"New"_s);
    f.frame.status = u"theirs"_s;
    f.list.MakeLvwContents();
    QCOMPARE(f.frame.status, u"theirs"_s);
    f.list.setInFront(true);
    QVERIFY(enabled() != u"New"_s);
    QCOMPARE(f.frame.status, u"Note -  items: 2"_s);
    f.view.clearSelection();
    QCOMPARE(enabled(), u"New"_s);
}

void tst_Notes::deleting()
{
    Notes f({u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s});
    f.windows.open(2);
    f.windows.open(5);
    f.box(f.open().value(0)).setPlainText(u"must not come back"_s);
    f.select({0, 1, 3});
    f.questions.expect(deleteQuestion, Answer::No);
    QTest::keyClick(&f.view, Qt::Key_Delete);
    QCOMPARE(f.count(), u"5"_s);
    f.questions.expect(deleteQuestion, Answer::Yes);
    QTest::keyClick(&f.view, Qt::Key_Delete);
    QCOMPARE(f.questions.asked.last().title, u"Deleting"_s);
    QCOMPARE(f.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
    QVERIFY(f.count() == "2"_L1 && f.count(u"noteID IN (3, 5)"_s) == "2"_L1);
    QVERIFY(f.view.selectionModel()->isSelected(f.row(1))); // the one after them
    QCOMPARE(f.frame.status, u"Note -  items: 2"_s);
    QCOMPARE(f.open().size(), 1);
    f.questions.expect(u"Are you sure you want to delete this note? "_s, Answer::Yes); // from the window itself
    QVERIFY(f.press(f.open().value(0), Qt::Key_D, Qt::ControlModifier));
    QVERIFY(f.open().isEmpty() && f.view.model()->rowCount() == 1 && f.count(u"noteID = 5"_s) == "0"_L1);
}

void tst_Notes::coloring()
{
    Notes f({u"1"_s, u"2"_s, u"3"_s});
    f.windows.open(3);
    frmNote* note = f.open().value(0);
    QCOMPARE(f.paper(note).color(QPalette::Base), QColor(255, 128, 128));
    f.select({0, 2});
    f.list.SetColor(u"green"_s);
    QCOMPARE(f.view.selectionModel()->selectedIndexes().size(), 2);
    QCOMPARE(f.paper(note).color(QPalette::Base), QColor(128, 255, 128));
    QVERIFY(note->findChild<QToolButton*>(u"optColor_2"_s)->isChecked() && note->close());
    QCOMPARE(f.column("color", 1) + f.column("color", 2) + f.column("color", 3), u"greenredgreen"_s);
    f.windows.open(3);
    QVERIFY(f.press(f.open().value(0), Qt::Key_4, Qt::ControlModifier));
    QCOMPARE(f.paper(f.open().value(0)).color(QPalette::Text), QColor(Qt::white));
    QVERIFY(f.open().value(0)->close());
    QCOMPARE(f.column("color", 3), u"blue"_s);
}

void tst_Notes::deletedByOthers()
{
    Notes f({u"1"_s, u"2"_s});
    f.windows.open(1);
    QVERIFY(f.record.Delete(u"1, 2"_s));
    f.box(f.open().value(0)).setPlainText(u"typed since"_s);
    QVERIFY(f.open().value(0)->close());
    QCOMPARE(f.column("content", 3), u"typed since"_s);
    f.add(u"4"_s);
    f.list.MakeLvwContents();
    f.select({1});
    QVERIFY(f.record.Delete(u"4"_s));
    f.questions.expect(u"Error in Load: The note is no longer in the archive."_s);
    f.list.ModifyNote();
    QVERIFY(f.open().isEmpty());
    QCOMPARE(f.view.model()->rowCount(), 1);
}

void tst_Notes::failedWriteKeepsTheWindow()
{
    Notes f({u"old"_s});
    f.windows.open(1);
    f.windows.openNew(); // sorted before the other: it has no key
    for (frmNote* note : f.open()) {
        f.box(note).setPlainText(u"precious"_s);
        f.breakArchive();
        f.questions.expect(QString());
        QVERIFY(!note->close() && note->isVisible());
        QCOMPARE(f.questions.asked.last().style, MessageStyle::Critical);
        f.mustSay(note->noteID() == 0 ? u"Error in Save: "_s : u"Error in Update: "_s);
        f.mendArchive();
        QVERIFY(note->close());
    }
    QCOMPARE(f.column("content", 1) + f.column("content", 2), u"preciousprecious"_s);
    f.select({0, 1});
    f.breakArchive();
    f.questions.expect(deleteQuestion, Answer::Yes);
    for (int i = 0; i < 3; ++i) // one message for both notes, and one for the list
        f.questions.expect(QString());
    f.list.DeleteNote();
    f.list.SetColor(u"blue"_s);
    for (const QString& message :
         {deleteQuestion, u"Error in Delete: "_s, u"Error in SetColor: "_s, u"Error in MakeLvwContents: "_s})
        f.mustSay(message);
    QCOMPARE(f.view.model()->rowCount(), 2); // what was read stays
}

void tst_Notes::leaving()
{
    Notes f({u"1"_s, u"2"_s});
    f.windows.open(1);
    f.windows.open(2);
    f.box(f.open().first()).setPlainText(u"early"_s);
    f.windows.saveEdited(); // the other one keeps its date
    QCOMPARE(f.count(u"content = 'early'"_s) + f.column("noteDate", 2), u"12025-03-04 09:05:00"_s);
    f.windows.openNew();
    for (frmNote* note : f.open())
        f.box(note).setPlainText(u"typed"_s);
    f.breakArchive();
    QVERIFY(!f.windows.saveNotes()); // the end of the session: nobody to ask
    f.questions.expect(QString());
    f.questions.expect(u"3 notes could not be saved, and their texts would be lost.\r\nClose anyway?"_s, Answer::No);
    QVERIFY(!f.windows.closeNotes());
    QCOMPARE(f.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
    QCOMPARE(f.open().size(), 3);
    f.mendArchive();
    QVERIFY(f.windows.closeNotes() && f.open().isEmpty());
    QCOMPARE(f.count(u"content = 'typed'"_s), u"3"_s);

    f.windows.openNew();
    f.box(f.open().value(0)).setPlainText(u"given up"_s);
    f.breakArchive();
    f.questions.expect(QString());
    f.questions.expect(u"A note could not be saved, and its text would be lost.\r\nClose anyway?"_s, Answer::Yes);
    QVERIFY(f.windows.closeNotes() && f.open().isEmpty());
    f.mendArchive();
    {
        NoteWindows last(f.archive); // no one asked the notes: they save all the same
        last.openNew();
        f.box(f.open().value(0)).setPlainText(u"last"_s);
    }
    QCOMPARE(f.count(), u"4"_s);
}

void tst_Notes::readableUnderEveryPalette()
{
    QPalette dark(QColor(0x31, 0x36, 0x3B));
    for (const QPalette& palette : {QPalette(QColor(0xEF, 0xEF, 0xEF)), dark})
        for (const QString& name : noteColorNames() + QStringList(u"pink"_s))
            for (const QPalette& note : {paperPalette(name, palette), barPalette(name)}) {
                const int paper = qGray(note.color(QPalette::Base).rgb());
                QVERIFY2(std::abs(paper - qGray(note.color(QPalette::Text).rgb())) > 100, qPrintable(name));
            }
    QCOMPARE(noteColors(u"yellow"_s, dark).paper, QToolTip::palette().color(QPalette::ToolTipBase));
    QCOMPARE(noteColors(u"pink"_s, dark).paper, QToolTip::palette().color(QPalette::ToolTipBase));
    QCOMPARE(noteColors(u"white"_s, dark).paper, dark.color(QPalette::Light));
}

void tst_Notes::manyWindowsStayOnTheScreen()
{
    Notes f;
    for (int i = 0; i < 40; ++i)
        f.windows.openNew();
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QList<QPoint> corners;
    for (const frmNote* note : f.open()) {
        QVERIFY(screen.contains(note->geometry()));
        for (const QPoint& other : std::as_const(corners))
            QVERIFY((note->pos() - other).manhattanLength() >= note->fontMetrics().lineSpacing());
        corners.append(note->pos());
    }
    QCOMPARE(corners.size(), 40);
    QVERIFY(f.windows.closeNotes());
}

SNIPVALE_TEST(tst_Notes)
#include "tst_Notes.moc"
