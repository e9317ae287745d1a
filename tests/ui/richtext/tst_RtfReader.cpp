// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "ui/richtext/RtfReader.h"
#include "ui/richtext/RtfSamples.h"
#include "ui/richtext/RtfWriter.h"

#include <QElapsedTimer>
#include <QRandomGenerator>

using namespace Qt::StringLiterals;

class tst_RtfReader : public QObject {
    Q_OBJECT
private slots:
    void text_data();
    void text();
    void formats_data();
    void formats();
    void losses_data();
    void losses();
    void unicodeText();
    void links();
    void automaticColors();
    void refusesOtherFiles();
    void deepNesting();
    void truncation();
    void mutations();
};

namespace {

QByteArray boxNote()
{
    return "{\\rtf1\\ansi\\ansicpg1250\\deff0\\deflang1045{\\fonttbl{\\f0\\fswiss\\fcharset238{\\*\\fname Arial;}Arial "
           "CE;}"
           "{\\f1\\fnil\\fcharset2 Symbol;}}\r\n{\\colortbl "
           ";\\red255\\green0\\blue0;}\r\n\\viewkind4\\uc1\\pard\\f0\\fs20 "
           "Za\\'bf\\'f3\\'b3\\'e6 \\cf1\\b "
           "g\\'ea\\'9cl\\'b9\\cf0\\b0\\par\r\n\\pard{\\pntext\\f1\\'B7\\tab}{\\*\\pn\\pnlvlblt"
           "\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\fi-360\\li720 one\\par\r\n{\\pntext\\f1\\'B7\\tab}two\\par\r\n\\pard "
           "end\\par\r\n}"
           "\r\n\0"_ba;
}

QByteArray wordNote()
{
    return "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fcharset0 Times New Roman;}{\\f3\\fcharset2 Symbol;}}"
           "{\\*\\listtable{\\list\\listtemplateid1{\\listlevel\\levelnfc0\\levelnfcn0{\\leveltext\\'02\\'00.;}{"
           "\\levelnumbers"
           "\\'01;}\\fi-360\\li720}{\\listlevel\\levelnfc4\\levelnfcn4{\\leveltext\\'02\\'01.;}}{\\listname "
           ";}\\listid77}}"
           "{\\*\\listoverridetable{\\listoverride\\listid77\\listoverridecount0\\ls4}}{\\*\\generator "
           "X;}{\\info{\\author A}}"
           "\\pard\\plain{\\listtext\\pard\\plain 1.\\tab}\\ilvl0\\ls4\\li720\\fi-360 first\\par{\\listtext "
           "a.\\tab}\\ilvl1\\ls4 "
           "inner\\par{\\listtext 2.\\tab}\\ilvl0\\ls4 second\\par\\pard after\\par}";
}

QString textOf(const QByteArray& rtf)
{
    QTextDocument document;
    rtf::read(rtf, &document);
    QString text;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        text += (block == document.begin() ? u""_s : u"\n"_s) + block.text();
    return text.replace(QChar(QChar::LineSeparator), u'\n');
}

} // namespace

void tst_RtfReader::text_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("text");
    QTest::newRow("old box, cp1250") << boxNote() << u"Zażółć gęślą\none\ntwo\nend"_s;
    QTest::newRow("word list") << wordNote() << u"first\ninner\nsecond\nafter"_s;
    QTest::newRow("cp1251 by charset")
        << "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fcharset204 Arial;}}\\f0 \\'cf\\'f0\\'e8\\'e2\\'e5\\'f2}"_ba
        << u"Привет"_s;
    QTest::newRow("raw cp1251") << "{\\rtf1\\ansi\\ansicpg1251{\\fonttbl{\\f0 A;}}\\f0 \xcf\xf0\xe8\xe2\xe5\xf2}"_ba
                                << u"Привет"_s;
    QTest::newRow("shift-jis with ascii trail bytes")
        << "{\\rtf1\\ansi\\ansicpg932{\\fonttbl{\\f0\\fcharset128 M;}}\\f0 \\'93\\'fa\\'96\\'7b\\'8c\\'ea \\'83\\\\ \\'95\\'5c}"_ba
        << u"日本語 ソ 表"_s;
    QTest::newRow("gbk, big5, korean")
        << "{\\rtf1{\\fonttbl{\\f0\\fcharset134 A;}{\\f1\\fcharset136 B;}{\\f2\\fcharset129 C;}}"
           "\\f0\\'d6\\'d0\\f1\\'a4\\'a4\\f2\\'c7\\'d1}"_ba
        << u"中中한"_s;
    QTest::newRow("line feed inside a double byte") << "{\\rtf1\\ansi\\ansicpg932 \\'93\r\n\\'fa}"_ba << u"日"_s;
    QTest::newRow("greek, turkish, hebrew, arabic, baltic, thai")
        << "{\\rtf1{\\fonttbl{\\f0\\fcharset161 A;}{\\f1\\fcharset162 A;}{\\f2\\fcharset177 A;}{\\f3\\fcharset178 A;}"
           "{\\f4\\fcharset186 A;}{\\f5\\fcharset222 A;}}\\f0\\'e1\\f1\\'fd\\f2\\'e0\\f3\\'c7\\f4\\'e0\\f5\\'a1}"_ba
        << u"αıאاąก"_s;
    QTest::newRow("code page of a font") << "{\\rtf1{\\fonttbl{\\f0\\cpg1253 A;}}\\f0\\'e1}"_ba << u"α"_s;
    QTest::newRow("unknown code page is western") << "{\\rtf1\\ansicpg12345 \\'80\\'e9}"_ba << u"€é"_s;
    QTest::newRow("utf-8 code page") << "{\\rtf1\\ansi\\ansicpg65001 \xc5\xbc\\'c5\\'bc.}"_ba << u"żż."_s;
    QTest::newRow("mac, then pc") << "{\\rtf1\\mac \\'8e\\pc \\'e3}"_ba << u"éπ"_s;
    QTest::newRow("unicode, uc, surrogates")
        << "{\\rtf1\\ansi\\uc1 a\\u322?b{\\uc2\\u26085\\'93\\'fa c}\\u-10179?\\u-8704? \\uc0\\u8364 d\\uc1\\u8211-e}"_ba
        << u"ałb日 c😀 €d–e"_s;
    QTest::newRow("fallback is a word, a group ends it")
        << "{\\rtf1 \\u8226\\bullet x\\u8226{y}\\u8226\\b z}"_ba << u"•x•y•z"_s;
    QTest::newRow("wild numbers") << "{\\rtf1\\ansi\\fs99999999999 a\\li-99999999 b\\par\\fs-4 c\\uc-7\\uc99999 d}"_ba
                                  << u"ab\ncd"_s;
    QTest::newRow("symbols")
        << "{\\rtf1 a\\~b\\-c\\_d\\emdash e\\lquote f\\rquote\\ldblquote g\\rdblquote\\bullet\\tab h\\line "
           "i\\{\\}\\\\}"_ba
        << u"a\u00a0b\u00adc\u2011d\u2014e\u2018f\u2019\u201cg\u201d\u2022\th\ni{}\\"_s;
    QTest::newRow("backslash at the line end") << "{\\rtf1 a\\\nb\\\r\nc}"_ba << u"a\nb\nc"_s;
    QTest::newRow("bin with braces") << "{\\rtf1 a{\\pict\\bin5 {}}{\\x}b}"_ba << u"ab"_s;
    QTest::newRow("bin beyond the end") << "{\\rtf1 a\\bin99999999 bcd}"_ba << u"a"_s;
    QTest::newRow("negative bin") << "{\\rtf1 a\\bin-5 b}"_ba << u"ab"_s;
    QTest::newRow("unknown destination") << "{\\rtf1 a{\\*\\foo secret{\\b x}}b{\\*\\generator Foo;}c}"_ba << u"abc"_s;
    QTest::newRow("unknown word") << "{\\rtf1 a{\\foo7 shown}\\verylongwordthatnobodyknowsandthatneverends5 b}"_ba
                                  << u"ashownb"_s;
    QTest::newRow("table")
        << "{\\rtf1\\trowd\\cellx1000\\pard\\intbl a\\cell {\\b b}\\cell\\row c\\cell\\row\\pard after\\par}"_ba
        << u"a\tb\nc\nafter"_s;
    QTest::newRow("nested table")
        << "{\\rtf1\\trowd\\intbl\\itap2 x\\nestcell{\\*\\nesttableprops\\trowd\\nestrow}{\\nonesttables\\par}\\itap1 y\\cell\\row}"_ba
        << u"x\ny"_s;
    QTest::newRow("other field") << "{\\rtf1 {\\field{\\*\\fldinst DATE \\\\@ \"d\"}{\\fldrslt 1 May}} x}"_ba
                                 << u"1 May x"_s;
    QTest::newRow("header and footnote") << "{\\rtf1{\\header head\\par}a{\\footnote foot}b}"_ba << u"ab"_s;
    QTest::newRow("hidden text") << "{\\rtf1 a{\\v hid}b\\v h\\v0 c}"_ba << u"abc"_s;
    QTest::newRow("object result") << "{\\rtf1 a{\\object\\objemb{\\*\\objdata 0102}{\\result R}}b}"_ba << u"aRb"_s;
    QTest::newRow("no final brace") << "{\\rtf1 a\\b bc"_ba << u"abc"_s;
    QTest::newRow("brace too many, rubbish behind") << "{\\rtf1 a}} trailing {\\b x}"_ba << u"a"_s;
    QTest::newRow("byte order mark and blanks") << "\xef\xbb\xbf \r\n{\\rtf1 a}"_ba << u"a"_s;
    QTest::newRow("empty") << "{\\rtf1}"_ba << u""_s;
    QTest::newRow("empty paragraphs") << "{\\rtf1\\par\\par a\\par\\par}"_ba << u"\n\na\n"_s;
    QTest::newRow("list without a table")
        << "{\\rtf1\\pard{\\listtext\\'b7\\tab}\\ls3\\ilvl0 item\\par}"_ba << u"item"_s;
    QTest::newRow("characters a document keeps for itself")
        << "{\\rtf1 a\\u-4?\\u-560?\\u-559?\\u8233?\\u0?\\u1?b}"_ba << u"a\nb"_s;
    QTest::newRow("lone halves") << "{\\rtf1 a\\u-8704?b\\u-10179?c}"_ba
                                 << u"a"_s + QChar(0xDE00) + u"b"_s + QChar(0xD83D) + u"c"_s;
    QTest::newRow("ends in the middle of things") << "{\\rtf1 a\\'4"_ba << u"a"_s;
    QTest::newRow("bad hex") << "{\\rtf1 a\\'zzb}"_ba << u"azzb"_s;
}

void tst_RtfReader::text()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, text);
    QCOMPARE(textOf(rtf), text);
}

void tst_RtfReader::formats_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QStringList>("parts"); // each must be in the description, in this order
    QTest::newRow("old box") << boxNote()
                             << QStringList{u"{Arial CE 10 -/-|Zażółć }"_s, u"bold #ff0000/-|gęślą"_s,
                                            u"list1 level1 item0]{Arial CE 10"_s, u"list1 level1 item1]"_s,
                                            u"[align1 -]{Arial CE"_s};
    QTest::newRow("word list") << wordNote()
                               << QStringList{u"list4 level1 item0]{Times New Roman 12 -/-|first"_s,
                                              u"list5 level2 item0]"_s, u"list4 level1 item1]"_s, u"[align1 -]"_s};
    QTest::newRow("flags off again") << "{\\rtf1\\b\\i\\ul\\strike a\\b0\\i0\\ulnone\\strike0 b\\ulw\\b c\\plain d}"_ba
                                     << QStringList{u"{ 12 bold italic underline strike -/-|a}"_s, u"{ 12 -/-|b}"_s,
                                                    u"{ 12 bold underline -/-|c}"_s, u"{ 12 -/-|d}"_s};
    QTest::newRow("scripts and caps") << "{\\rtf1{\\super a}{\\dn b}{\\up0 c}{\\caps d}{\\scaps e}}"_ba
                                      << QStringList{u"super -/-|a}"_s, u"sub -/-|b}"_s, u"{ 12 -/-|c}"_s,
                                                     u"caps -/-|d}"_s, u"smallcaps -/-|e}"_s};
    QTest::newRow("alignment without par") << "{\\rtf1\\pard\\qc centred}"_ba << QStringList{u"[align4 -]"_s};
    QTest::newRow("paragraph") << "{\\rtf1\\pard\\qj\\li720\\fi-360\\ri150\\sb120\\sa180\\sl360\\slmult1 a\\par"
                                  "\\pard\\qr\\sl-300 b\\par\\pard\\rtlpar\\sl300\\slmult0 c}"_ba
                               << QStringList{u"[align8 left48 first-24 right10 before8 after12 line150 lineType1 -]"_s,
                                              u"[align2 line20 lineType2 -]"_s, u"line20 lineType3 rtl -]"_s};
    QTest::newRow("colours")
        << "{\\rtf1{\\colortbl;\\red1\\green2\\blue3;\\red255\\green255;}\\cf1 a{\\highlight2 b}\\cf9 c}"_ba
        << QStringList{u"#010203/-|a}"_s, u"#010203/#ffff00|b}"_s, u"-/-|c}"_s};
    QTest::newRow("old numbers")
        << "{\\rtf1\\pard{\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pnstart1\\pnucrm{\\pntxta.}}\\li720 a\\par\\pard x\\par"
           "\\pard{\\*\\pn\\pnlvlbody\\pnucrm}b}"_ba
        << QStringList{u"list8 level1 item0"_s, u"|x}"_s, u"list8 level1 item0"_s};
    QTest::newRow("a group ends its format")
        << "{\\rtf1{\\b\\fs40 a{\\i b}c}d}"_ba
        << QStringList{u"{ 20 bold -/-|a}"_s, u"{ 20 bold italic -/-|b}"_s, u"{ 20 bold -/-|c}"_s, u"{ 12 -/-|d}"_s};
    QTest::newRow("limits") << "{\\rtf1\\fs99999999999 a\\pard\\li-99999999\\ls99999999\\ilvl-5 b}"_ba
                            << QStringList{u"left-2112"_s, u"{ 400 "_s};
}

void tst_RtfReader::formats()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QStringList, parts);
    QTextDocument document;
    rtf::read(rtf, &document);
    const QString got = describe(document);
    qsizetype at = 0;
    for (const QString& part : parts) {
        const qsizetype found = got.indexOf(part, at);
        QVERIFY2(found >= 0, qPrintable(u"\nmissing: "_s + part + u"\nin: "_s + got));
        at = found + part.size();
    }
}

void tst_RtfReader::losses_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QList<int>>("counts"); // pictures, tables, objects, unknown
    using Counts = QList<int>;
    QTest::newRow("none") << boxNote() << Counts{0, 0, 0, 0};
    QTest::newRow("one picture written twice")
        << "{\\rtf1 a{\\*\\shppict{\\pict\\pngblip 89504e47}}{\\nonshppict{\\pict\\wmetafile8 0100}}b}"_ba
        << Counts{1, 0, 0, 0};
    QTest::newRow("rows of one table, then another")
        << "{\\rtf1\\trowd\\intbl a\\cell\\row\\trowd\\intbl b\\cell\\row\\pard x\\par\\trowd\\intbl c\\cell\\row}"_ba
        << Counts{0, 2, 0, 0};
    QTest::newRow("object with a picture")
        << "{\\rtf1{\\object{\\*\\objdata 00}{\\result{\\pict 00}}}}"_ba << Counts{1, 0, 1, 0};
    QTest::newRow("drawing") << "{\\rtf1{\\shp{\\*\\shpinst{\\sp{\\sn x}{\\sv 1}}{\\shptxt t}}}}"_ba
                             << Counts{0, 0, 1, 0};
    QTest::newRow("unknown") << "{\\rtf1{\\*\\foo x}{\\*\\bar y}}"_ba << Counts{0, 0, 0, 2};
}

void tst_RtfReader::losses()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QList<int>, counts);
    QTextDocument document;
    const rtf::ReadInfo info = rtf::read(rtf, &document);
    QVERIFY(info.ok);
    QCOMPARE((QList<int>{info.pictures, info.tables, info.objects, info.unknownDestinations}), counts);
    QCOMPARE(info.losesContent(), counts[0] + counts[1] + counts[2] > 0);
}

// A QString has characters already: they are not to be taken for bytes of the file's code page.
void tst_RtfReader::unicodeText()
{
    QTextDocument document;
    rtf::read(u"{\\rtf1\\ansi\\ansicpg1251{\\fonttbl{\\f0\\fcharset204 Żółw;}}\\f0 é日😀\\'cf\\u322ły}"_s, &document);
    QCOMPARE(document.toPlainText(), u"é日😀Пły"_s);
    QCOMPARE(document.begin().begin().fragment().charFormat().fontFamilies().toStringList(), QStringList(u"Żółw"_s));
}

void tst_RtfReader::links()
{
    QTextDocument document;
    rtf::read(
        "{\\rtf1 {\\field{\\*\\fldinst{HYPERLINK \"https://a.b/?x=1\" \\\\l \"top\"}}{\\fldrslt{\\b one}}} "
        "{\\field{\\*\\fldinst HYPERLINK http://c.d}{\\fldrslt two}}{\\field{\\*\\fldinst{ hyperlink \\\\l \"here\"}}"
        "{\\fldrslt three}}four}"_ba,
        &document);
    const QString link = QGuiApplication::palette().color(QPalette::Link).name();
    QCOMPARE(describe(document),
             u"[align1 -]{ 12 bold underline "_s + link + u"/- https://a.b/?x=1#top|one}{ 12 -/-| }{ 12 underline "_s +
                 link + u"/- http://c.d|two}{ 12 underline "_s + link + u"/- #here|three}{ 12 -/-|four}\n"_s);
}

// Black is what other programs write for "no colour". It must not stay black on a dark page, yet a text with a
// background of its own must not take the page's colour.
void tst_RtfReader::automaticColors()
{
    QTextDocument document;
    rtf::read("{\\rtf1{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue0;\\red0\\green0\\blue128;}"
              "\\cf1 a\\highlight2 b\\cf0 c\\highlight3 d}"_ba,
              &document);
    QCOMPARE(describe(document), u"[align1 -]{ 12 -/-|a}{ 12 #000000/#ffff00|bc}{ 12 #ffffff/#000080|d}\n"_s);
}

void tst_RtfReader::refusesOtherFiles()
{
    QTextDocument document;
    document.setPlainText(u"old"_s);
    for (const QByteArray& other : {"hello"_ba, ""_ba, "{\\rt"_ba, "<html>{\\rtf1}"_ba}) {
        QVERIFY(!rtf::read(other, &document).ok);
        QVERIFY(document.isEmpty());
        QVERIFY(!rtf::looksLikeRtf(other));
    }
    QVERIFY(rtf::looksLikeRtf(u"\uFEFF {\\rtf1 x}"_s));
    QVERIFY(!document.isUndoAvailable());
}

void tst_RtfReader::deepNesting()
{
    const QByteArray deep =
        "{\\rtf1\\b0 " + QByteArray("{\\b").repeated(300'000) + " x" + QByteArray(300'000, '}') + "y}";
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(textOf(deep), u"xy"_s);
    QCOMPARE(textOf("{\\rtf1 " + QByteArray(300'000, '{')), QString());
    QCOMPARE(textOf("{\\rtf1 a" + QByteArray(300'000, '}')), u"a"_s);
    QVERIFY2(timer.elapsed() < 5000, "groups must not cost more the deeper they are");
}

void tst_RtfReader::truncation()
{
    for (const QByteArray& whole : {boxNote(), wordNote()}) {
        for (qsizetype length = 5; length < whole.size(); ++length) {
            QTextDocument document;
            QVERIFY(rtf::read(whole.left(length), &document).ok);
        }
    }
}

// Any file must be read, and what was read must be written as a file that reads the same.
void tst_RtfReader::mutations()
{
    static constexpr char marks[] = "{}\\*'-u0";
    const QByteArray seeds[] = {boxNote(), wordNote(),
                                "{\\rtf1{\\field{\\*\\fldinst{HYPERLINK \"x\"}}{\\fldrslt y}}\\u9731?}"_ba};
    QRandomGenerator random(42);
    const auto at = [&random](const QByteArray& b) { return qsizetype(random.bounded(int(b.size()) + 1)); };
    for (int round = 0; round < 600; ++round) {
        QByteArray bytes = seeds[round % 3];
        for (int change = random.bounded(1, 12); change > 0; --change) {
            const qsizetype place = at(bytes);
            switch (random.bounded(5)) {
            case 0:
                bytes.insert(place, char(random.bounded(256)));
                break;
            case 1:
                bytes.remove(place, random.bounded(1, 20));
                break;
            case 2:
                bytes.insert(place, marks[random.bounded(8)]);
                break;
            case 3:
                bytes.insert(place, bytes.mid(at(bytes), random.bounded(60)));
                break;
            default:
                bytes.insert(place, "\\bin9 ");
                break;
            }
        }
        QTextDocument first, second;
        if (!rtf::read(bytes, &first).ok)
            continue; // the signature was hit
        const QByteArray written = rtf::write(first);
        QVERIFY2(rtf::read(written, &second).ok, bytes.constData());
        QCOMPARE(second.toPlainText(), first.toPlainText());
        QCOMPARE(rtf::write(second), written);
    }
}

SNIPVALE_TEST(tst_RtfReader)
#include "tst_RtfReader.moc"
