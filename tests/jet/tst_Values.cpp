// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/JetFixture.h"
#include "support/Registry.h"

#include "jet/Dates.h"

class tst_Values : public QObject {
    Q_OBJECT

private slots:
    void dates()
    {
        constexpr std::pair<const char*, const char*> rows[] = {{"2005-3-4 9:5:0", "2005-03-04 09:05:00"},
                                                                {"3/7/24, 9:05\u202FPM", "2024-03-07 21:05:00"},
                                                                {"13/7/2024", "2024-07-13 00:00:00"},
                                                                {"07. 03. 2024. 9:05", "2024-03-07 09:05:00"},
                                                                {" 2024/12/31  23:59:59 ", "2024-12-31 23:59:59"},
                                                                {"2024-03-07T09:05:00.250", "2024-03-07 09:05:00"},
                                                                {"7 Mar 2024 09:05:00", "2024-03-07 09:05:00"},
                                                                {"1/1/29", "2029-01-01 00:00:00"},
                                                                {"1/1/30", "1930-01-01 00:00:00"},
                                                                {"12:00:00 AM", "1899-12-30 00:00:00"},
                                                                {"7-3-2024 PM 9.05", "2024-07-03 21:05:00"},
                                                                {"24-3-7", "2007-03-24 00:00:00"},
                                                                {"12:30 p.m.", "1899-12-30 12:30:00"},
                                                                {"9999-12-31 23:59:59", "9999-12-31 23:59:59"}};
        for (const auto& [given, expected] : rows)
            QCOMPARE(jet::parseDate(given), std::string(expected));
    }

    // The short date and time of each region come back as the same minute.
    void everyRegion()
    {
        const auto restore = qScopeGuard([before = QLocale()] { QLocale::setDefault(before); });
        const QDateTime moment(QDate(2024, 3, 7), QTime(21, 5));
        for (const QLocale& locale :
             QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
            QLocale::setDefault(locale);
            const QString text = locale.toString(moment, QLocale::ShortFormat);
            std::string stored;
            const QString error = errorOf([&] { stored = jet::parseDate(text.toStdString()); });
            QVERIFY2(stored == "2024-03-07 21:05:00", qPrintable(locale.name() + u": "_s + text + error));
        }
        QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
        QCOMPARE(jet::parseDate("3/7/2024"), std::string("2024-07-03 00:00:00"));
        QCOMPARE(jet::parseDate("3/7/2024", jet::DateOrder::MonthFirst), std::string("2024-03-07 00:00:00"));
    }

    void noDates()
    {
        const QString texts = u"| |tomorrow|2024-13-1|2023-2-29|2024-3-7x|2024-3|25:00|1.2|2024-3-7 9:5:60|2024-3-7 9|"
                              "2024-3-7 13:00 PM|-1-2-3|2024-3/7|0099-1-1|10000-1-1|2024-3-7 9:5:0 9:5:0|12:"_s;
        for (const QString& text : texts.split(u'|'))
            QVERIFY2(errorOf([&] { jet::parseDate(text.toStdString()); }).contains(u"date"_s), qPrintable(text));
        QVERIFY(!errorOf([] { jet::parseDate(std::string(1'000'000, '1')); }).isEmpty());
    }

    void serials()
    {
        QCOMPARE(jet::dateFromSerial(-1.25), std::string("1899-12-29 06:00:00")); // the fraction counts forwards
        QCOMPARE(jet::dateFromSerial(2958465.999988426), std::string("9999-12-31 23:59:59"));
        QCOMPARE(jet::dateFromSerial(1.9999999), std::string("1900-01-01 00:00:00"));
        for (const double bad : {1e300, -1e300, 2958466.0, -657435.0, qQNaN()})
            QVERIFY(!errorOf([&] { jet::dateFromSerial(bad); }).isEmpty());
    }

    void readsForeignForms()
    {
        const QDateTime moment(QDate(2024, 3, 7), QTime(9, 5));
        for (const char* text : {"2024-03-07 09:05:00", "2024-3-7 9:5", "3/7/2024 9:05 AM"})
            QVERIFY2(jet::readDate(text) == moment, text);
        QCOMPARE(jet::readDate("2024-03-07T09:05:00Z").toUTC(), QDateTime(QDate(2024, 3, 7), QTime(9, 5), Qt::UTC));
        for (const char* text : {"", "2024-02-30 00:00:00", "2024-03-07 09:05:6x", "45358.5", "nonsense"})
            QVERIFY2(!jet::readDate(text).isValid() && !jet::readMoment(text).isValid(), text);
    }

    // A value becomes the same, or is refused in the same words, whether a record or a statement brings it.
    void coercion()
    {
        struct Row {
            const char* type;
            const char* given;
            const char* expected; // as it is stored, or "!" and words of the error
        };
        // Halves go to the even neighbour, texts count in UTF-16 units.
        constexpr Row rows[] = {{"YESNO", "-7.5", "-1"},
                                {"YESNO", "off", "0"},
                                {"YESNO", "maybe", "!conversion"},
                                {"LONG", " +12 ", "12"},
                                {"LONG", "2.5", "2"},
                                {"LONG", "3.5", "4"},
                                {"LONG", "2147483648", "!Overflow"},
                                {"LONG", "nan", "!conversion"},
                                {"BYTE", "256", "!Overflow"},
                                {"SHORT", "-32769", "!Overflow"},
                                {"TEXT(3)", "a😀", "a😀"},
                                {"TEXT(3)", "ab😀", "!too small"}};
        for (const Row& row : rows) {
            const QString value = QString::fromUtf8(row.given), expected = QString::fromUtf8(row.expected);
            JetFixture fixture;
            fixture.connection.Execute(u"CREATE TABLE t (v %1)"_s.arg(QString::fromUtf8(row.type)));
            jet::Recordset set = fixture.connection.OpenRecordset(u"SELECT * FROM t WHERE 1=2"_s);
            const QString byRecord = errorOf([&] {
                set.AddNew({u"v"_s}, {value});
                set.Update();
            });
            QCOMPARE(errorOf([&] { fixture.connection.Execute(u"INSERT INTO t (v) VALUES ('%1')"_s.arg(value)); }),
                     byRecord);
            const bool isRefused = expected.startsWith(u'!');
            QVERIFY2(isRefused ? byRecord.contains(expected.mid(1)) : byRecord.isEmpty(), qPrintable(byRecord));
            QCOMPARE(fixture.rows(u"SELECT v FROM t"_s), isRefused ? QString() : expected + u';' + expected);
        }
    }
};

SNIPVALE_TEST(tst_Values)
#include "tst_Values.moc"
