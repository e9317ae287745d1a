// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Error.h"
#include "jet/LikePattern.h"
#include "jet/TextRules.h"
#include "support/Registry.h"

#include <QtTest>
#include <random>

using namespace Qt::StringLiterals;

class tst_Text : public QObject {
    Q_OBJECT

private slots:
    void patterns()
    {
        struct Row {
            const char* pattern;
            const char* text;
            bool matches;
        };
        // One letter stands for one; no # for a digit; the Kelvin sign is no k.
        constexpr Row rows[] = {{"%größe%", "Die GRÖSSE", false},
                                {"a*", "abc", false},
                                {"100[%]", "1000", false},
                                {"a[[]b", "a[b", true},
                                {"a[]b", "ab", true},
                                {"[a-]", "-", true},
                                {"[!]", "!", true},
                                {"%k%", "\u212A", false},
                                {"_%", "", false},
                                {"_", "文", true},
                                {"%ab_d%f", "abxabcdxef", true},
                                {"%a%b%", "b a", false},
                                {"[xä-я]_", "Öя", true},
                                {"x[!B-D]", "xc", false},
                                {"x[^ak]", "xc", true}};
        for (const Row& row : rows)
            QVERIFY2(jet::LikePattern(row.pattern).matches(row.text) == row.matches, row.pattern);
        for (const char* pattern : {"[", "a[b", "%[", "[z-a]"})
            QVERIFY_THROWS_EXCEPTION(jet::Error, jet::LikePattern{pattern});
    }

    // The search for a piece of text takes many bytes at once: it must find it at each place, and nothing like it.
    void everyPlace()
    {
        for (const QString& piece : {u"x"_s, u"return;"_s, u"aza zb"_s, u"grün"_s, u"привет"_s, u"a文"_s, u"𐐨b"_s}) {
            const jet::LikePattern pattern((u'%' + piece + u'%').toStdString());
            for (int before = 0; before < 40; ++before)
                for (int after = 0; after < 40; ++after) {
                    const QString text = QString(before, u'ö') + piece.toUpper() + QString(after, u' ');
                    QVERIFY2(pattern.matches(text.toStdString()), qPrintable(text));
                    QVERIFY(!pattern.matches(text.mid(before + 1).toStdString()));
                    QVERIFY(!pattern.matches(text.left(before + piece.size() - 1).toStdString()));
                    for (qsizetype i = 0; i < piece.size(); ++i)
                        QVERIFY2(!pattern.matches(QString(text).replace(before + i, 1, u"~"_s).toStdString()),
                                 qPrintable(text));
                }
        }
    }

    void order()
    {
        const QStringList sorted = u"|_x|–|0|10|9|a|ab|äb|ac|b|é|éa|z|я|文"_s.split(u'|');
        for (qsizetype i = 0; i < sorted.size(); ++i)
            for (qsizetype k = 0; k < sorted.size(); ++k) {
                const int found = jet::compareText(sorted[i].toUpper().toStdString(), sorted[k].toStdString());
                QVERIFY2((found < 0) == (i < k) && (found > 0) == (i > k),
                         qPrintable(sorted[i] + u" and "_s + sorted[k]));
            }
    }
};

SNIPVALE_TEST(tst_Text)
#include "tst_Text.moc"
