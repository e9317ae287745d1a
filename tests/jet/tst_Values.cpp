// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/JetFixture.h"
#include "support/Registry.h"

#include "jet/Dates.h"
#include "jet/Types.h"

class tst_Values : public QObject {
    Q_OBJECT

private slots:
    void dates_data();
    void dates();
    void regionalOrder();
    void everyRegion();
    void noDates();
    void serials();
    void readsForeignForms();
    void coercion_data();
    void coercion();
};

void tst_Values::dates_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("stored");
    const auto row = [](const char* text, const char* stored) {
        QTest::newRow(text) << QString::fromUtf8(text) << QString::fromUtf8(stored);
    };
    row("2005-3-4 9:5:0", "2005-03-04 09:05:00");
    row("2024-3-7", "2024-03-07 00:00:00");
    row("3/7/2024 9:05:00 AM", "2024-03-07 09:05:00");
    row("3/7/24 9:05 PM", "2024-03-07 21:05:00");
    row("3/7/24, 9:05\u202FPM", "2024-03-07 21:05:00");
    row("13/7/2024", "2024-07-13 00:00:00");
    row("7.3.2024 9:05", "2024-03-07 09:05:00");
    row("07. 03. 2024. 9:05", "2024-03-07 09:05:00");
    row("2024. 03. 07. 9:05", "2024-03-07 09:05:00");
    row(" 2024/12/31  23:59:59 ", "2024-12-31 23:59:59");
    row("2024-03-07T09:05:00.250", "2024-03-07 09:05:00");
    row("7 Mar 2024 09:05:00", "2024-03-07 09:05:00");
    row("1/1/29", "2029-01-01 00:00:00");
    row("1/1/30", "1930-01-01 00:00:00");
    row("12:00:00 AM", "1899-12-30 00:00:00");
    row("7-3-2024 PM 9.05", "2024-07-03 21:05:00");
    row("24-3-7", "2007-03-24 00:00:00");
    row("12:30 p.m.", "1899-12-30 12:30:00");
    row("9:05", "1899-12-30 09:05:00");
    row("0100-01-01", "0100-01-01 00:00:00");
    row("9999-12-31 23:59:59", "9999-12-31 23:59:59");
}

void tst_Values::dates()
{
    QFETCH(QString, text);
    QFETCH(QString, stored);
    QCOMPARE(QString::fromStdString(jet::parseDate(text.toStdString())), stored);
}

void tst_Values::regionalOrder()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedKingdom));
    const std::string regional = jet::parseDate("3/7/2024"),
                      sharp = jet::parseDate("3/7/2024", jet::DateOrder::MonthFirst);
    QLocale::setDefault(QLocale(QLocale::Basque));
    const std::string yearFirst = jet::parseDate("24/3/7");
    QLocale::setDefault(before);
    QCOMPARE(regional, std::string("2024-07-03 00:00:00"));
    QCOMPARE(yearFirst, std::string("2024-03-07 00:00:00"));
    QCOMPARE(sharp, std::string("2024-03-07 00:00:00"));
}

// The short date and time of each region come back as the same minute.
void tst_Values::everyRegion()
{
    const QLocale before;
    const QDateTime moment(QDate(2024, 3, 7), QTime(21, 5));
    QStringList wrong;
    int count = 0;
    for (const QLocale& locale :
         QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyCountry)) {
        QLocale::setDefault(locale);
        const QString text = locale.toString(moment, QLocale::ShortFormat);
        QString stored;
        const QString error = errorOf([&] { stored = QString::fromStdString(jet::parseDate(text.toStdString())); });
        ++count;
        if (stored != u"2024-03-07 21:05:00"_s)
            wrong.append(locale.name() + u": "_s + text + u" -> "_s + stored + error);
    }
    QLocale::setDefault(before);
    QVERIFY(count > 300);
    QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u'\n')));
}

void tst_Values::noDates()
{
    for (const char* text : {"",
                             " ",
                             "tomorrow",
                             "2024-13-1",
                             "2023-2-29",
                             "2024-3-7x",
                             "2024-3",
                             "25:00",
                             "1.2",
                             "24:00:00",
                             "2024-3-7 9:5:60",
                             "2024-3-7 9",
                             "2024-3-7 13:00 PM",
                             "-1-2-3",
                             "2024-3/7",
                             "99-3-7 9",
                             "0099-1-1",
                             "10000-1-1",
                             "2024-3-7 9:5:0 9:5:0",
                             "12:"})
        QVERIFY2(errorOf([&] { jet::parseDate(text); }).contains(u"date"_s), text);
    QVERIFY(!errorOf([] { jet::parseDate(std::string(1'000'000, '1')); }).isEmpty());
}

void tst_Values::serials()
{
    QCOMPARE(jet::dateFromSerial(-1.25), std::string("1899-12-29 06:00:00")); // the fraction counts forwards
    QCOMPARE(jet::dateFromSerial(45358.378472222), std::string("2024-03-07 09:05:00"));
    QCOMPARE(jet::dateFromSerial(2958465.999988426), std::string("9999-12-31 23:59:59"));
    QCOMPARE(jet::dateFromSerial(1.9999999), std::string("1900-01-01 00:00:00"));
    for (const double bad : {1e300, -1e300, 2958466.0, -657435.0, qQNaN(), qInf()})
        QVERIFY(!errorOf([&] { jet::dateFromSerial(bad); }).isEmpty());
}

void tst_Values::readsForeignForms()
{
    const QDateTime moment(QDate(2024, 3, 7), QTime(9, 5));
    for (const char* text : {"2024-03-07 09:05:00", "2024-03-07T09:05:00", "2024-3-7 9:5", "3/7/2024 9:05 AM"})
        QVERIFY2(jet::readDate(text) == moment, text);
    QCOMPARE(jet::readDate("2024-03-07T09:05:00Z").toUTC(), QDateTime(QDate(2024, 3, 7), QTime(9, 5), Qt::UTC));
    for (const char* text : {"", "2024-02-30 00:00:00", "2024-03-07 09:05:6x", "45358.5", "nonsense"})
        QVERIFY2(!jet::readDate(text).isValid() && !jet::readMoment(text).isValid(), text);
}

void tst_Values::coercion_data()
{
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("value"); // an AddNew of this text
    QTest::addColumn<QString>("stored"); // or "!" and words of the error
    const auto row = [](const char* type, const QString& value, const char* stored) {
        QTest::addRow("%s %s", type, qPrintable(value.left(20)))
            << QString::fromUtf8(type) << value << QString::fromUtf8(stored);
    };
    row("YESNO", u"1"_s, "-1");
    row("YESNO", u"0"_s, "0");
    row("YESNO", u"-7.5"_s, "-1");
    row("YESNO", u"True"_s, "-1");
    row("YESNO", u"off"_s, "0");
    row("YESNO", u"maybe"_s, "!conversion");
    row("LONG", u" +12 "_s, "12");
    row("LONG", u"2.5"_s, "2"); // half to even
    row("LONG", u"3.5"_s, "4");
    row("LONG", u"2147483648"_s, "!Overflow");
    row("LONG", u"-2147483648"_s, "-2147483648");
    row("LONG", u"nan"_s, "!conversion");
    row("LONG", u"1e400"_s, "!conversion");
    row("LONG", u""_s, "!conversion");
    row("BYTE", u"256"_s, "!Overflow");
    row("SHORT", u"-32768"_s, "-32768");
    row("DOUBLE", u"1.25"_s, "1.25");
    row("DATETIME", u"2024-3-7"_s, "2024-03-07 00:00:00");
    row("TEXT(5)", u"größe"_s, "größe");
    row("TEXT(5)", u"größen"_s, "!too small");
    row("TEXT(3)", u"a😀"_s, "a😀"); // UTF-16 units count
    row("TEXT(3)", u"ab😀"_s, "!too small");
    row("LONGTEXT", QString(300, u'x'), qPrintable(QString(300, u'x')));
}

void tst_Values::coercion()
{
    QFETCH(QString, type);
    QFETCH(QString, value);
    QFETCH(QString, stored);
    JetFixture fixture;
    fixture.connection.Execute(u"CREATE TABLE t (id COUNTER, v "_s + type + u", CONSTRAINT pk PRIMARY KEY (id))"_s);
    jet::Recordset set = fixture.connection.OpenRecordset(u"SELECT * FROM t WHERE 1=2"_s);
    const QString byRecord = errorOf([&] {
        set.AddNew({u"v"_s}, {value});
        set.Update();
    });
    const QString byText =
        errorOf([&] { fixture.connection.Execute(u"INSERT INTO t (v) VALUES ('"_s + value + u"')"_s); });
    QCOMPARE(byRecord, byText);
    if (stored.startsWith(u'!')) {
        QVERIFY2(byRecord.contains(stored.mid(1)), qPrintable(byRecord));
        QCOMPARE(fixture.rows(u"SELECT COUNT(id) FROM t"_s), u"0"_s);
    } else {
        QCOMPARE(byRecord, QString());
        QCOMPARE(set.text(u"v"_s), stored);
        QCOMPARE(fixture.rows(u"SELECT v FROM t"_s), stored + u';' + stored);
    }
}

SNIPVALE_TEST(tst_Values)
#include "tst_Values.moc"
