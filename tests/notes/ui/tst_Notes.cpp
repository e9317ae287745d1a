// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "notes/ui/NoteColors.h"
#include "notes/ui/NoteWindows.h"
#include "notes/ui/frmNote.h"
#include "notes/ui/frmNoteList.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

// The list as the frame shows it, and the note windows that are open.
struct Notes : UiFixture {
    explicit Notes(const QStringList& contents = {})
    {
        for (const QString& content : contents) {
            record.Content = content;
            record.Color = u"red"_s;
            record.NoteDate = clock.moment.addYears(-1);
            record.Save();
        }
        list.MakeLvwContents();
        list.show();
        list.setInFront(true);
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
        const bool isActive = note && QTest::qWaitForWindowActive(note);
        QTest::keyClick(&box(note), key, modifiers);
        return isActive;
    }
    static QPlainTextEdit& box(const frmNote* note) { return *note->findChild<QPlainTextEdit*>(u"txtContent"_s); }
    static void type(const QString& text) // in all that are open
    {
        for (const frmNote* note : open())
            box(note).setPlainText(text);
    }
    static bool closeAll()
    {
        for (frmNote* note : open())
            note->close();
        return open().isEmpty();
    }
    void select(const QList<int>& rows)
    {
        view.clearSelection();
        for (const int each : rows)
            view.selectionModel()->setCurrentIndex(row(each), QItemSelectionModel::Select | QItemSelectionModel::Rows);
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

    cNote record{archive};
    NoteWindows windows{archive};
    frmNoteList list{{archive, desktop, frame, record, windows}, nullptr};
    QTreeView& view = *list.findChild<QTreeView*>(u"lvwNote"_s);
};

} // namespace

class tst_Notes : public QObject {
    Q_OBJECT
private slots:
    void writing()
    {
        Notes f({u"one\r\ntwo"_s, u"three"_s});
        QTest::keyClick(&f.view, Qt::Key_Insert);
        frmNote* made = f.open().value(0);
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
        QVERIFY(f.open().value(0)->noteID() == 1 && f.closeAll());
        QCOMPARE(f.column("content", 1), u"one\r\ntwo"_s); // only read: its line ends stay
        f.windows.open(2);
        frmNote* note = f.open().value(0);
        f.type(u"世界\n"_s);
        note->showMinimized();
        QTest::mouseDClick(f.view.viewport(), Qt::LeftButton, {}, f.view.visualRect(f.row(1)).center());
        QVERIFY(f.open() == QList<frmNote*>{note} && !note->isMinimized()); // one window for each note
        QVERIFY(f.closeAll());
        QCOMPARE(f.row(1).data().toString(), u"世界\n"_s);

        f.windows.openNew();
        f.windows.open(2);
        f.type(u"  \n "_s); // blanks are no text
        QVERIFY(f.closeAll());
        QCOMPARE(f.count() + f.column("content", 2), u"3世界\n"_s);
    }

    void longTextsAndManyWindows()
    {
        const QString longText(300'000, u'W');
        Notes f({longText});
        QElapsedTimer timer;
        timer.start();
        f.list.grab();
        f.windows.open(1);
        f.open().value(0)->grab();
        f.closeAll();
        f.windows.openNew();
        QGuiApplication::clipboard()->setText(longText);
        f.box(f.open().value(0)).paste();
        QVERIFY(timer.elapsed() < 10000); // far more, if all of it were wrapped
        f.windows.discard(0);

        for (int i = 0; i < 40; ++i)
            f.windows.openNew();
        QSet<QPoint> corners;
        for (const frmNote* note : f.open()) {
            QVERIFY(QGuiApplication::primaryScreen()->availableGeometry().contains(note->geometry()));
            corners.insert(note->pos());
        }
        QCOMPARE(corners.size(), 40);
    }

    void commandsFollowTheSelection()
    {
        Notes f({u"one"_s, u"two"_s});
        QCOMPARE(f.frame.enabledCommands.keys(true), QStringList(u"miNoteNew"_s));
        f.questions.expect(u"Please select the note you want to modifie!"_s);
        f.list.ModifyNote();
        f.list.DeleteNote(); // nothing to ask about
        QTest::mouseClick(f.view.viewport(), Qt::RightButton, {}, f.view.visualRect(f.row(1)).center());
        QCOMPARE(f.frame.menus, QStringList({u"mnuNote"_s}));
        QCOMPARE(f.frame.enabledCommands.keys(true).size(), 8);
        f.list.setInFront(false);
        QCOMPARE(f.frame.enabledCommands.keys(true).size(), 1);
        f.list.setInFront(true);
        QCOMPARE(f.frame.status, u"Note -  items: 2"_s);
        f.view.clearSelection();
        QCOMPARE(f.frame.enabledCommands.keys(true).size(), 1);
    }

    void deletingAndColoring()
    {
        for (const QString& name : noteColorNames()) { // under a dark palette
            const NoteColors colors = noteColors(name, QPalette(QColor(0x31, 0x36, 0x3B)));
            QVERIFY(std::abs(qGray(colors.paper.rgb()) - qGray(colors.ink.rgb())) > 100);
        }
        Notes f({u"1"_s, u"2"_s, u"3"_s, u"4"_s, u"5"_s});
        f.windows.open(2);
        f.type(u"must not come back"_s);
        f.windows.open(5);
        f.select({2, 4});
        f.list.SetColor(u"green"_s);
        QCOMPARE(f.view.selectionModel()->selectedIndexes().size(), 2);
        QCOMPARE(f.box(f.open()[1]).palette().color(QPalette::Base), QColor(128, 255, 128));
        f.windows.open(3);
        QVERIFY(f.press(f.open()[1], Qt::Key_4, Qt::ControlModifier) && f.open()[1]->close() && f.open()[1]->close());
        QCOMPARE(f.column("color", 3) + f.column("color", 4) + f.column("color", 5), u"blueredgreen"_s);

        f.windows.open(5);
        f.select({0, 1, 3});
        f.questions.expect(u"Are you sure you want to delete selected notes? "_s, Answer::No);
        QTest::keyClick(&f.view, Qt::Key_Delete);
        QCOMPARE(f.count(), u"5"_s);
        f.questions.expect(QString(), Answer::Yes);
        QTest::keyClick(&f.view, Qt::Key_Delete);
        QCOMPARE(f.count() + f.count(u"noteID IN (3, 5)"_s), u"22"_s);
        QVERIFY(f.view.selectionModel()->isSelected(f.row(1))); // the one after them
        f.questions.expect(u"Are you sure you want to delete this note? "_s, Answer::Yes); // from the window itself
        QVERIFY(f.open().size() == 1 && f.press(f.open()[0], Qt::Key_D, Qt::ControlModifier));
        QVERIFY(f.open().isEmpty() && f.view.model()->rowCount() == 1 && f.count(u"noteID = 5"_s) == "0"_L1);

        f.windows.open(3);
        f.record.Delete(u"3"_s); // by others
        f.type(u"typed since"_s);
        QVERIFY(f.closeAll());
        QCOMPARE(f.row(0).data().toString(), u"typed since"_s);
        f.select({0});
        f.record.Delete(u"6"_s);
        f.questions.expect(u"Error in Load: The note is no longer in the archive."_s);
        f.list.ModifyNote();
        QVERIFY(f.open().isEmpty() && f.view.model()->rowCount() == 0);
    }

    void failuresAndLeaving()
    {
        Notes f({u"1"_s, u"2"_s});
        f.windows.open(1);
        f.windows.openNew();
        f.type(u"precious"_s);
        f.breakArchive();
        for (int i = 0; i < 2; ++i)
            f.questions.expect(QString());
        QVERIFY(!f.closeAll() && f.open().size() == 2);
        QVERIFY(f.questions.asked[0].text.startsWith("Error in Save: "_L1)); // the one without a key is the first
        f.select({0, 1});
        f.questions.expect(QString(), Answer::Yes);
        for (int i = 0; i < 3; ++i) // one message for both notes, and one for the list
            f.questions.expect(QString());
        f.list.DeleteNote();
        f.list.SetColor(u"blue"_s);
        QCOMPARE(f.view.model()->rowCount(), 2); // what was read stays
        f.mendArchive();
        QVERIFY(f.closeAll());
        QCOMPARE(f.count(u"content = 'precious'"_s), u"2"_s);

        f.windows.open(1);
        f.type(u"early"_s);
        f.windows.open(2);
        f.windows.saveEdited(); // the other one keeps its date
        QCOMPARE(f.column("content", 1) + f.column("noteDate", 2), u"early2025-03-04 09:05:00"_s);
        f.type(u"typed"_s);
        f.breakArchive();
        QVERIFY(!f.windows.saveNotes()); // the end of the session: nobody to ask
        f.questions.expect(QString());
        f.questions.expect(u"2 notes could not be saved, and their texts would be lost.\r\nClose anyway?"_s,
                           Answer::No);
        QVERIFY(!f.windows.closeNotes() && f.open().size() == 2);
        QCOMPARE(f.questions.asked.last().style, MessageStyle::YesNoDefaultNo);
        f.mendArchive();
        QVERIFY(f.windows.closeNotes() && f.open().isEmpty());
        QCOMPARE(f.count(u"content = 'typed'"_s), u"2"_s);

        f.windows.openNew();
        f.type(u"given up"_s);
        f.breakArchive();
        f.questions.expect(QString());
        f.questions.expect(u"A note could not be saved, and its text would be lost.\r\nClose anyway?"_s, Answer::Yes);
        QVERIFY(f.windows.closeNotes() && f.open().isEmpty());
        f.mendArchive();
        std::optional<NoteWindows> last(std::in_place, f.archive);
        last->openNew();
        f.type(u"last"_s);
        last.reset(); // no one asked the notes: they save all the same
        QCOMPARE(f.count() + f.column("content", 4), u"4last"_s);
    }
};

SNIPVALE_TEST(tst_Notes)
#include "tst_Notes.moc"
