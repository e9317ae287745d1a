// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The languages, styles and keywords of the shipped archive, in the editor that shows them.

#include "archive/Archive.h"
#include "memo/code/cScintilla.h"
#include "memo/code/ui/ScintillaView.h"
#include "support/CoreSupport.h"
#include "support/Registry.h"
#include "ui/widgets/Colors.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// The shipped archive and an editor.
struct Shipped : ArchiveFixture {
    Shipped() { editor.Init(); }
    // The style numbers of a text, byte by byte.
    QByteArray style(const QByteArray& text)
    {
        view.setText(text);
        view.SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, -1L);
        QByteArray result;
        for (qsizetype i = 0; i < text.size(); ++i)
            result += static_cast<char>(view.send(SCI.GETSTYLEAT, static_cast<std::uintptr_t>(i)));
        return result;
    }
    ScintillaView view;
    cScintilla editor{view, archive};
    ArchiveUnit unit{archive};
};

} // namespace

class tst_Languages : public QObject {
    Q_OBJECT
private slots:
    // Every style can be read. A sample has at least three of its language, all with a row, and words of its list, each
    // of which stands there once.
    void samples()
    {
        Shipped s;
        QSet<QString> known;
        for (jet::Recordset rows = s.unit.Open(u"SELECT * FROM tab_style"_s); !rows.eof(); rows.moveNext()) {
            const auto color = [&rows](const QString& column) {
                return *colorOfNumber(std::optional(rows.integer(column)));
            };
            const QString what = rows.text(u"lexerCode"_s) + u' ' + rows.text(u"styleNumber"_s);
            const bool isGuide = rows.integer(u"styleNumber"_s) == QsciScintillaBase::STYLE_INDENTGUIDE;
            QVERIFY2(isGuide || contrast(color(u"foreColor"_s), color(u"backColor"_s)) >= wellRead, qPrintable(what));
            QVERIFY2(rows.boolean(u"enable"_s) && !rows.boolean(u"invisible"_s), qPrintable(what));
            QVERIFY2(rows.isNull(u"fontName"_s) && rows.isNull(u"fontSize"_s), qPrintable(what));
            QVERIFY2(!known.contains(what), qPrintable(what));
            known.insert(what);
        }
        // Red stays in the low byte: strings are a dark red.
        QCOMPARE(s.value(u"SELECT foreColor FROM tab_style WHERE lexerCode = 'SCLEX_CPP' AND styleNumber = 6"_s),
                 QString::number(0x1515A3));

        const QString languages = u"SELECT * FROM tab_memoType WHERE enabled = true AND memoTypeID > 1"_s;
        int count = 0;
        for (jet::Recordset rows = s.unit.Open(languages); !rows.eof(); rows.moveNext(), ++count) {
            const QString code = rows.text(u"lexerCode"_s);
            const QString stem = QStringLiteral(SOURCE_DIR "/data/samples/") + code;
            const QByteArray own = bytesOf(stem + u'.' + rows.text(u"memoTypeID"_s) + u".txt"_s);
            const QByteArray text = own.isEmpty() ? bytesOf(stem + u".txt"_s) : own;
            const auto id = qint32(rows.integer(u"memoTypeID"_s));
            s.view.setText(text);
            s.editor.SetLexer(id);
            const QByteArray styled = s.style(text);
            QSet<long> looks;
            for (qsizetype i = 0; i < text.size(); ++i) {
                const auto style = static_cast<uchar>(styled[i]);
                const auto get = [&](unsigned message) { return s.view.SendScintilla(message, ulong{style}); };
                if (QChar::isSpace(static_cast<uchar>(text[i])))
                    continue;
                QVERIFY2(known.contains(code + u' ' + QString::number(style)), qPrintable(code));
                looks.insert(get(QsciScintillaBase::SCI_STYLEGETFORE) | get(QsciScintillaBase::SCI_STYLEGETBOLD) << 24 |
                             get(QsciScintillaBase::SCI_STYLEGETITALIC) << 25);
            }
            QVERIFY2(looks.size() >= 3, qPrintable(code));
            const QStringList words = rows.text(u"keywords"_s).split(u' ');
            QCOMPARE(QSet<QString>(words.begin(), words.end()).size(), words.size());
            for (std::uintptr_t set = 0; set <= 8; ++set)
                s.view.send(SCI.SETKEYWORDS, set, QByteArray());
            if (!words.first().isEmpty() && (id < 101 || id > 103)) // those have the words of another
                QVERIFY2(s.style(text) != styled, qPrintable(code));
        }
        QVERIFY(count > 50);
    }

    // What a new user finds: plain text, and two roots, whose elements go with them.
    void contents()
    {
        Shipped s;
        QCOMPARE(s.value(u"SELECT name FROM tab_memoType WHERE memoTypeID = 1"_s), u"Plain text"_s);
        QCOMPARE(s.value(u"SELECT enabled FROM tab_memoType WHERE memoTypeID = 0"_s), u"0"_s);
        QStringList roots;
        jet::Recordset rows = s.unit.Open(u"SELECT * FROM tab_category ORDER BY type"_s);
        for (; !rows.eof(); rows.moveNext())
            roots.append(rows.text(u"parentID"_s) + u' ' + rows.text(u"type"_s) + u' ' + rows.text(u"name"_s));
        QCOMPARE(roots.join(u','), u"0 0 Code,0 1 Bookmarks"_s);
        s.unit.Execute(u"INSERT INTO tab_memo (categoryID, memoTypeID, memoName) VALUES (1, 0, 'no language')"_s);
        s.unit.Execute(u"INSERT INTO tab_bookmark (categoryID, name) VALUES (2, 'here')"_s);
        s.unit.Execute(u"DELETE * FROM tab_category"_s);
        QVERIFY(s.unit.Open(u"SELECT * FROM tab_memo"_s).eof() && s.unit.Open(u"SELECT * FROM tab_bookmark"_s).eof());
    }
};

SNIPVALE_TEST(tst_Languages)
#include "tst_Languages.moc"
