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
    void statements()
    {
        StartedArchive f;
        cNote note(f.archive);
        note.Content = u"it's"_s;
        note.Color = u"o'range"_s;
        note.NoteDate = f.clock.moment;
        QVERIFY(note.Save() && note.EditingMode && note.Update());
        note.NoteDate = QDateTime();
        QVERIFY(note.Update() && note.SetColor(1, u"red"_s) && note.Load(1));
        QVERIFY(note.Content == "it's"_L1 && note.Color == "red"_L1 && !note.NoteDate.isValid());
        QVERIFY(note.Delete(u"1, 2"_s) && readNoteRows(f.archive).empty());
        const QString update = u"UPDATE tab_note SET tab_note.content = 'it''s' , tab_note.color = 'o''range' , "_s;
        const QString where = u"WHERE (tab_note.noteID = 1 ) "_s;
        QCOMPARE(f.statements,
                 QStringList({u"SELECT * FROM tab_note WHERE 1=2 "_s,
                              update + u"tab_note.noteDate = '2026-3-4 9:5:0' "_s + where,
                              update + u"tab_note.noteDate = Null "_s + where,
                              u"UPDATE tab_note SET tab_note.color = 'red'  "_s + where,
                              u" SELECT * FROM tab_note WHERE noteID = 1"_s,
                              u"DELETE * FROM tab_note WHERE tab_note.noteID IN (1, 2) "_s,
                              u"SELECT tab_note.* FROM tab_note "_s}));
    }
};

SNIPVALE_TEST(tst_cNote)
#include "tst_cNote.moc"
