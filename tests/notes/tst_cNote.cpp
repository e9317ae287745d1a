// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"

#include "notes/cNote.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class tst_cNote : public QObject {
    Q_OBJECT
private slots:
    void statements();
    void everyTextSurvives();
    void failures();
};

void tst_cNote::statements()
{
    StartedArchive f;
    cNote note(f.archive);
    note.Content = u"it's"_s;
    note.Color = u"o'range"_s;
    note.NoteDate = f.clock.moment;
    QVERIFY(note.Save() && note.EditingMode && note.Update());
    note.NoteDate = QDateTime();
    QVERIFY(note.Update() && note.SetColor(1, u"red"_s) && note.Load(1) && note.Delete(u"1, 2"_s));
    readNoteRows(f.archive);
    const QString update = u"UPDATE tab_note SET tab_note.content = 'it''s' , tab_note.color = 'o''range' , "_s;
    const QString where = u"WHERE (tab_note.noteID = 1 ) "_s;
    QCOMPARE(
        f.statements,
        QStringList(
            {u"SELECT * FROM tab_note WHERE 1=2 "_s, update + u"tab_note.noteDate = '2026-3-4 9:5:0' "_s + where,
             update + u"tab_note.noteDate = Null "_s + where, u"UPDATE tab_note SET tab_note.color = 'red'  "_s + where,
             u" SELECT * FROM tab_note WHERE noteID = 1"_s,
             u"DELETE * FROM tab_note WHERE tab_note.noteID IN (1, 2) "_s, u"SELECT tab_note.* FROM tab_note "_s}));
}

void tst_cNote::everyTextSurvives()
{
    StartedArchive f;
    const QStringList texts = {u"one\r\ntwo"_s, u"it's\u00A0new"_s, u"世界\n"_s, QString(300'000, u'W')};
    for (const QString& text : texts) {
        cNote note(f.archive);
        note.Content = text;
        note.Color = u"pink"_s; // no colour of ours
        note.NoteDate = f.clock.moment;
        QVERIFY(note.Save());
        cNote again(f.archive);
        QVERIFY(again.Load(note.EditingID) && again.EditingMode);
        QCOMPARE(again.Content, text);
        QCOMPARE(again.Color, u"pink"_s);
        QCOMPARE(again.NoteDate, f.clock.moment);
        again.NoteDate = QDateTime();
        QVERIFY(again.Update() && again.Load(note.EditingID));
        QVERIFY(!again.NoteDate.isValid());
    }
    const std::vector<NoteRow> rows = readNoteRows(f.archive);
    QCOMPARE(qsizetype(rows.size()), texts.size());
    for (size_t i = 0; i < rows.size(); ++i)
        QCOMPARE(rows[i].content, texts[qsizetype(i)]);
    QCOMPARE(rows[1].id, 2);
    QCOMPARE(rows[1].color, u"pink"_s);
    QVERIFY(!rows[1].date.isValid());
}

void tst_cNote::failures()
{
    StartedArchive f;
    cNote note(f.archive);
    QVERIFY(note.Save());
    const auto fails = [&](bool done, const QString& message) {
        QVERIFY(!done);
        f.questions.expect(QString());
        note.reportFailure();
        QVERIFY2(f.questions.asked.last().text.startsWith(message), qPrintable(f.questions.asked.last().text));
    };
    const QString gone = u"The note is no longer in the archive."_s;
    fails(note.Load(4711), u"Error in Load: "_s + gone);
    QVERIFY(note.EditingMode && note.Delete(u"1"_s));
    fails(note.Update(), u"Error in Update: "_s + gone);
    QVERIFY(!note.EditingMode && note.Save()); // what was typed is not lost
    QCOMPARE(note.EditingID, 2);
    f.archive.setPath(f.scratch.path(u"gone.SVA"_s));
    fails(note.Save(), u"Error in Save: "_s);
    fails(note.Delete(u"2"_s), u"Error in Delete: "_s);
    fails(note.SetColor(2, u"blue"_s), u"Error in SetColor: "_s);
}

SNIPVALE_TEST(tst_cNote)
#include "tst_cNote.moc"
