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
    qint32 add(const QString& content, const QString& color = u"red"_s)
    {
        cNote note(archive);
        note.Content = content;
        note.Color = color;
        note.NoteDate = clock.moment.addYears(-1);
        if (!note.Save())
            qFatal("the note was not saved");
        return note.EditingID;
    }
    void addAndShow(const QStringList& contents)
    {
        for (const QString& content : contents)
            add(content);
        list.MakeLvwContents();
        list.show();
        list.setInFront(true);
        statements.clear();
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
    static QColor paper(const frmNote* note) { return box(note).palette().color(QPalette::Base); }
    void select(const QList<int>& rows)
    {
        view.clearSelection();
        for (const int row : rows)
            view.selectionModel()->setCurrentIndex(view.model()->index(row, 0),
                                                   QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    QStringList changes() // the statements since the last call that wrote
    {
        QStringList found;
        for (const QString& sql : std::exchange(statements, {}))
            if (!sql.startsWith("SELECT tab_note.*"_L1) && !sql.startsWith(u' '))
                found.append(sql);
        return found;
    }
    QString column(const char* name, qint32 id)
    {
        return value(u"SELECT %1 FROM tab_note WHERE noteID = %2"_s.arg(QLatin1String(name)).arg(id));
    }
    QString count() { return value(u"SELECT COUNT(noteID) AS n FROM tab_note"_s); }
    QString shown(int row) { return view.model()->index(row, 0).data().toString(); }

    QString path = archive.ArchivePath();
    void breakArchive() { archive.setPath(scratch.path(u"gone.SVA"_s)); }
    void mendArchive() { archive.setPath(path); }

    cNote record{archive};
    NoteWindows windows{archive};
    frmNoteList list{{archive, desktop, frame, record, windows}, nullptr};
    QTreeView& view = *list.findChild<QTreeView*>(u"lvwNote"_s);
};

} // namespace

class tst_Notes : public QObject {
    Q_OBJECT
private slots:
    void newNoteIsSavedThenUpdated();
    void existingNoteIsRewritten();
    void blankNotesStoreNothing();
    void listShowsEveryText();
    void commandsFollowTheSelection();
    void openingTwice();
    void deleting();
    void coloring();
    void deletedByOthers();
    void failedWriteKeepsTheWindow();
    void leaving();
    void errorsOfTheList();
    void readableUnderEveryPalette();
    void manyWindowsStayOnTheScreen();
};

void tst_Notes::newNoteIsSavedThenUpdated()
{
    Notes f;
    f.addAndShow({u"first"_s});
    QTest::keyClick(&f.view, Qt::Key_Insert);
    frmNote* note = f.open().value(0);
    QVERIFY(note && note->objectName() == "frmNote"_L1 && !note->parent());
    QTest::keyClicks(&f.box(note), u"it's\u00A0new"_s);
    QCOMPARE(note->windowTitle(), u"it's new"_s);
    QVERIFY(f.press(note, Qt::Key_S, Qt::ControlModifier));
    QCOMPARE(f.changes(), QStringList({u"SELECT * FROM tab_note WHERE 1=2 "_s}));
    QCOMPARE(f.view.selectionModel()->selectedIndexes().value(0).data(Qt::UserRole).toString(), u"2 ItemID"_s);
    f.clock.moment = QDateTime(QDate(2027, 1, 2), QTime(3, 4, 5));
    QVERIFY(f.press(note, Qt::Key_Escape));
    QVERIFY(f.open().isEmpty());
    QCOMPARE(f.changes(),
             QStringList({u"UPDATE tab_note SET tab_note.content = 'it''s\u00A0new' , tab_note.color = 'yellow' , "
                          "tab_note.noteDate = '2027-1-2 3:4:5' WHERE (tab_note.noteID = 2 ) "_s}));
    QCOMPARE(f.column("content", 2), u"it's\u00A0new"_s);
    QCOMPARE(f.frame.status, u"Note -  items: 2"_s);
    cNote undated(f.archive);
    QVERIFY(undated.Load(2));
    undated.NoteDate = QDateTime();
    QVERIFY(undated.Update());
    QVERIFY(f.changes().value(0).contains("tab_note.noteDate = Null WHERE"_L1));
}

void tst_Notes::existingNoteIsRewritten()
{
    Notes f;
    f.addAndShow({u"one\r\ntwo"_s, u"[*] three"_s});
    f.select({0});
    QTest::keyClick(&f.view, Qt::Key_Return);
    f.windows.open(2);
    QCOMPARE(
        f.statements,
        QStringList({u" SELECT * FROM tab_note WHERE noteID = 1"_s, u" SELECT * FROM tab_note WHERE noteID = 2"_s}));
    const QList<frmNote*> notes = f.open();
    QCOMPARE(notes.size(), 2);
    QCOMPARE(notes[1]->windowTitle(), u"[*][*] three"_s);
    QCOMPARE(f.paper(notes[0]), QColor(255, 128, 128));
    QVERIFY(notes[0]->close()); // only read: its line ends stay
    f.box(notes[1]).setPlainText(u"世界\n"_s);
    QVERIFY(notes[1]->close());
    QCOMPARE(f.column("content", 1), u"one\r\ntwo"_s);
    QCOMPARE(f.column("content", 2), u"世界\n"_s);
    QCOMPARE(f.column("color", 1), u"red"_s);
    QCOMPARE(f.column("noteDate", 1), u"2026-03-04 09:05:00"_s);
    QCOMPARE(f.shown(1), u"世界\n"_s);
}

void tst_Notes::blankNotesStoreNothing()
{
    Notes f;
    f.addAndShow({u"kept"_s});
    f.windows.openNew();
    f.windows.open(1);
    for (frmNote* note : f.open()) {
        f.box(note).setPlainText(u"  \n "_s);
        QVERIFY(note->close());
    }
    QVERIFY(f.changes().isEmpty());
    QCOMPARE(f.count(), u"1"_s);
    QCOMPARE(f.column("content", 1), u"kept"_s);
}

void tst_Notes::listShowsEveryText()
{
    Notes f;
    const QString longText = u"no blank "_s + QString(300'000, u'W');
    f.addAndShow({longText, u"\n\n one \n\r\n two\a\u202E"_s, u"<b>&</b>"_s});
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
    QCOMPARE(f.shown(0), longText);
    const QModelIndex two = f.view.model()->index(1, 0);
    QCOMPARE(static_cast<QStyledItemDelegate*>(f.view.itemDelegate())->displayText(two.data(), {}), u"one - two"_s);
    QVERIFY(f.view.model()->index(2, 0).data(Qt::ToolTipRole).toString().contains("&lt;b&gt;&amp;"_L1));
    const auto picture = [&](int row) {
        return f.view.model()->index(row, 0).data(Qt::DecorationRole).value<QIcon>().pixmap(16).toImage();
    };
    QCOMPARE(picture(3), noteIcon(u"yellow"_s).pixmap(16).toImage());
    QVERIFY(picture(3) != picture(0));
    QCOMPARE(f.frame.status, u"Note -  items: 34"_s);
}

void tst_Notes::commandsFollowTheSelection()
{
    Notes f;
    const auto enabled = [&] {
        const auto& e = f.frame.enabledCommands;
        return e[u"miNoteModify"_s] && e[u"miNoteDelete"_s] && e[u"miNoteColorYellow"_s] && e[u"miNoteColorRed"_s] &&
            e[u"miNoteColorGreen"_s] && e[u"miNoteColorBlue"_s] && e[u"miNoteColorWhite"_s];
    };
    f.addAndShow({u"one"_s, u"two"_s});
    QVERIFY(!enabled());
    f.questions.expect(u"Please select the note you want to modifie!"_s);
    QTest::keyClick(&f.view, Qt::Key_Return);
    QTest::keyClick(&f.view, Qt::Key_Delete); // nothing to ask about
    QTest::mouseClick(f.view.viewport(), Qt::RightButton, {}, f.view.visualRect(f.view.model()->index(1, 0)).center());
    QCOMPARE(f.frame.menus, QStringList({u"mnuNote"_s}));
    QVERIFY(enabled());
    f.list.setInFront(false); // another view comes to the front
    QVERIFY(!enabled() && f.frame.enabledCommands[u"miNoteNew"_s]);
    f.frame.status = u"theirs"_s;
    f.list.MakeLvwContents();
    QCOMPARE(f.frame.status, u"theirs"_s);
    f.list.setInFront(true);
    QVERIFY(enabled());
    QCOMPARE(f.frame.status, u"Note -  items: 2"_s);
    f.view.clearSelection();
    QVERIFY(!enabled());
}

void tst_Notes::openingTwice()
{
    Notes f;
    f.addAndShow({u"one"_s, u"two"_s});
    f.select({1});
    f.list.ModifyNote();
    f.box(f.open().value(0)).setPlainText(u"being typed"_s);
    f.open().value(0)->showMinimized();
    QTest::mouseDClick(f.view.viewport(), Qt::LeftButton, {}, f.view.visualRect(f.view.model()->index(1, 0)).center());
    QCOMPARE(f.open().size(), 1);
    QVERIFY(!f.open().value(0)->isMinimized());
    QCOMPARE(f.box(f.open().value(0)).toPlainText(), u"being typed"_s);
}

void tst_Notes::deleting()
{
    Notes f;
    f.addAndShow({u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s});
    f.windows.open(2);
    f.windows.open(5);
    f.box(f.open().value(0)).setPlainText(u"must not come back"_s);
    f.changes();
    f.select({0, 1, 3});
    f.questions.expect(deleteQuestion, Answer::No);
    QTest::keyClick(&f.view, Qt::Key_Delete);
    QVERIFY(f.changes().isEmpty());
    f.questions.expect(deleteQuestion, Answer::Yes);
    QTest::keyClick(&f.view, Qt::Key_Delete);
    QCOMPARE(f.questions.asked.last().title, u"Deleting"_s);
    QCOMPARE(f.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
    QCOMPARE(f.changes(), QStringList({u"DELETE * FROM tab_note WHERE tab_note.noteID IN (1, 2, 4) "_s}));
    QCOMPARE(f.shown(0) + f.shown(1), u"35"_s);
    QCOMPARE(f.frame.status, u"Note -  items: 2"_s);
    QCOMPARE(f.open().size(), 1);
    f.questions.expect(u"Are you sure you want to delete this note? "_s, Answer::Yes); // from the window itself
    QVERIFY(f.press(f.open().value(0), Qt::Key_D, Qt::ControlModifier));
    QCOMPARE(f.changes(), QStringList({u"DELETE * FROM tab_note WHERE tab_note.noteID IN (5) "_s}));
    QVERIFY(f.open().isEmpty() && f.view.model()->rowCount() == 1);
}

void tst_Notes::coloring()
{
    Notes f;
    f.addAndShow({u"1"_s, u"2"_s, u"3"_s});
    f.windows.open(3);
    f.changes();
    f.select({0, 2});
    f.list.SetColor(u"green"_s);
    QCOMPARE(f.changes(),
             QStringList({u"UPDATE tab_note SET tab_note.color = 'green'  WHERE (tab_note.noteID = 1 ) "_s,
                          u"UPDATE tab_note SET tab_note.color = 'green'  WHERE (tab_note.noteID = 3 ) "_s}));
    QCOMPARE(f.view.selectionModel()->selectedIndexes().size(), 2);
    frmNote* note = f.open().value(0);
    QCOMPARE(f.paper(note), QColor(128, 255, 128));
    QVERIFY(note->findChild<QToolButton*>(u"optColor_2"_s)->isChecked());
    QVERIFY(note->close());
    QCOMPARE(f.column("color", 1) + f.column("color", 2) + f.column("color", 3), u"greenredgreen"_s);
    f.windows.open(3);
    QVERIFY(f.press(f.open().value(0), Qt::Key_4, Qt::ControlModifier));
    QCOMPARE(f.box(f.open().value(0)).palette().color(QPalette::Text), QColor(Qt::white));
    QVERIFY(f.open().value(0)->close());
    QCOMPARE(f.column("color", 3), u"blue"_s);
}

void tst_Notes::deletedByOthers()
{
    Notes f;
    f.addAndShow({u"1"_s, u"2"_s});
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
    Notes f;
    f.addAndShow({u"old"_s});
    f.windows.open(1);
    f.windows.openNew(); // sorted before the other: it has no key
    for (frmNote* note : f.open()) {
        f.box(note).setPlainText(u"precious"_s);
        f.breakArchive();
        f.questions.expect(QString());
        QVERIFY(!note->close());
        const QString routine = note->noteID() == 0 ? u"Error in Save: "_s : u"Error in Update: "_s;
        QVERIFY(f.questions.asked.last().text.startsWith(routine));
        QCOMPARE(f.questions.asked.last().style, MessageStyle::Critical);
        QVERIFY(note->isVisible());
        f.mendArchive();
        QVERIFY(note->close());
    }
    QCOMPARE(f.column("content", 1) + f.column("content", 2), u"preciousprecious"_s);
}

void tst_Notes::leaving()
{
    Notes f;
    f.addAndShow({u"1"_s, u"2"_s});
    f.windows.open(1);
    f.windows.open(2);
    f.changes();
    f.box(f.open().first()).setPlainText(u"early"_s);
    f.windows.saveEdited(); // the other one keeps its date
    QCOMPARE(f.changes().size(), 1);
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
    QVERIFY(f.windows.closeNotes());
    QVERIFY(f.open().isEmpty());
    QCOMPARE(f.value(u"SELECT COUNT(noteID) AS n FROM tab_note WHERE content = 'typed'"_s), u"3"_s);

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

void tst_Notes::errorsOfTheList()
{
    Notes f;
    f.addAndShow({u"1"_s, u"2"_s});
    f.select({0, 1});
    f.breakArchive();
    const auto fails = [&](const char* message) {
        return f.questions.asked.takeFirst().text.startsWith(QLatin1StringView(message));
    };
    f.questions.expect(deleteQuestion, Answer::Yes);
    f.questions.expect(QString());
    f.list.DeleteNote();
    f.questions.asked.removeFirst();
    QVERIFY(fails("Error in Delete: "));
    f.questions.expect(QString()); // one message for both, and one for the list
    f.questions.expect(QString());
    f.list.SetColor(u"blue"_s);
    QVERIFY(fails("Error in SetColor: ") && fails("Error in MakeLvwContents: "));
    QCOMPARE(f.view.model()->rowCount(), 2); // what was read stays
    f.mendArchive();
    QCOMPARE(f.column("color", 1) + f.count(), u"red2"_s);
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
