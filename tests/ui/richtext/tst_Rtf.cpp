// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "ui/richtext/Rtf.h"
#include "ui/richtext/RtfSamples.h"

#include <QElapsedTimer>
#include <QImage>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

class tst_Rtf : public QObject {
    Q_OBJECT
private slots:
    void reads_data();
    void reads();
    void formats_data();
    void formats();
    void losses();
    void unicodeText();
    void refusesOtherFiles();
    void hostileSizes();
    void truncationAndMutations();
    void roundTrip();
    void written();
    void tablesAndPictures();
    void otherReader();
};

namespace {

const QByteArray boxNote =
    "{\\rtf1\\ansi\\ansicpg1250\\deff0\\deflang1045{\\fonttbl{\\f0\\fswiss\\fcharset238{\\*\\fname Arial;}Arial CE;}"
    "{\\f1\\fnil\\fcharset2 Symbol;}}\r\n{\\colortbl ;\\red255\\green0\\blue0;}\r\n\\viewkind4\\uc1\\pard\\f0\\fs20 "
    "Za\\'bf\\'f3\\'b3\\'e6 \\cf1\\b g\\'ea\\'9cl\\'b9\\cf0\\b0\\par\r\n\\pard{\\pntext\\f1\\'B7\\tab}"
    "{\\*\\pn\\pnlvlblt\\pnf1\\pnindent0{\\pntxtb\\'B7}}\\fi-360\\li720 "
    "one\\par\r\n{\\pntext\\f1\\'B7\\tab}two\\par\r\n"
    "\\pard end\\par\r\n}\r\n\0"_ba;

const QByteArray wordNote =
    "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fcharset0 Times New Roman;}{\\f3\\fcharset2 Symbol;}}"
    "{\\*\\listtable{\\list\\listtemplateid1{\\listlevel\\levelnfc0\\levelnfcn0{\\leveltext\\'02\\'00.;}{\\levelnumbers"
    "\\'01;}\\fi-360\\li720}{\\listlevel\\levelnfc4\\levelnfcn4{\\leveltext\\'02\\'01.;}}{\\listname ;}\\listid77}}"
    "{\\*\\listoverridetable{\\listoverride\\listid77\\listoverridecount0\\ls4}}{\\*\\generator X;}{\\info{\\author A}}"
    "\\pard\\plain{\\listtext\\pard\\plain 1.\\tab}\\ilvl0\\ls4\\li720\\fi-360 first\\par{\\listtext a.\\tab}\\ilvl1"
    "\\ls4 inner\\par{\\listtext 2.\\tab}\\ilvl0\\ls4 second\\par\\pard after\\par}"_ba;

QString textOf(const QByteArray& rtf)
{
    QTextDocument document;
    rtf::read(rtf, &document);
    return document.toRawText().replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

void addRow(const char* name, const QByteArray& rtf, const QString& text)
{
    QTest::newRow(name) << rtf << text;
}

} // namespace

void tst_Rtf::reads_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("text");
    addRow("old box, cp1250", boxNote, u"Zażółć gęślą\none\ntwo\nend"_s);
    addRow("word list", wordNote, u"first\ninner\nsecond\nafter"_s);
    addRow("cp1251 by charset and raw",
           "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fcharset204 A;}{\\f1 B;}}\\f0 "
           "\\'cf\\'f0\\f1\\ansicpg1251 \xe8\xe2}"_ba,
           u"Прив"_s);
    addRow("shift-jis with ascii trail bytes",
           "{\\rtf1\\ansi\\ansicpg932 \\'93\\'fa\\'96\\'7b\\'8c\\'ea \\'83\\\\ \\'95\\'5c \\'93\r\n\\'fa}"_ba,
           u"日本語 ソ 表 日"_s);
    addRow("gbk, big5, korean",
           "{\\rtf1{\\fonttbl{\\f0\\fcharset134 A;}{\\f1\\fcharset136 B;}{\\f2\\fcharset129 C;}}"
           "\\f0\\'d6\\'d0\\f1\\'a4\\'a4\\f2\\'c7\\'d1}"_ba,
           u"中中한"_s);
    addRow("greek, turkish, hebrew, arabic, baltic, thai, code page of a font",
           "{\\rtf1{\\fonttbl{\\f0\\fcharset161 A;}{\\f1\\fcharset162 A;}{\\f2\\fcharset177 A;}{\\f3\\fcharset178 A;}"
           "{\\f4\\fcharset186 A;}{\\f5\\fcharset222 A;}{\\f6\\cpg1253 A;}}"
           "\\f0\\'e1\\f1\\'fd\\f2\\'e0\\f3\\'c7\\f4\\'e0\\f5\\'a1\\f6\\'e1}"_ba,
           u"αıאاąกα"_s);
    addRow("unknown code page is western", "{\\rtf1\\ansicpg12345 \\'80\\'e9}"_ba, u"€é"_s);
    addRow("utf-8 code page", "{\\rtf1\\ansi\\ansicpg65001 \xc5\xbc\\'c5\\'bc.}"_ba, u"żż."_s);
    addRow("mac, then pc", "{\\rtf1\\mac \\'8e\\pc \\'e3}"_ba, u"éπ"_s);
    addRow(
        "unicode, uc, surrogates",
        "{\\rtf1\\ansi\\uc1 a\\u322?b{\\uc2\\u26085\\'93\\'fa c}\\u-10179?\\u-8704? \\uc0\\u8364 d\\uc1\\u8211-e}"_ba,
        u"ałb日 c😀 €d–e"_s);
    addRow("fallback is a word, a group ends it", "{\\rtf1 \\u8226\\bullet x\\u8226{y}\\u8226\\b z}"_ba, u"•x•y•z"_s);
    addRow(
        "symbols",
        "{\\rtf1 a\\~b\\-c\\_d\\emdash e\\lquote f\\rquote\\ldblquote g\\rdblquote\\bullet\\tab h\\line i\\{\\}\\\\}"_ba,
        u"a\u00a0b\u00adc\u2011d\u2014e\u2018f\u2019\u201cg\u201d\u2022\th\ni{}\\"_s);
    addRow("backslash at the line end", "{\\rtf1 a\\\nb\\\r\nc}"_ba, u"a\nb\nc"_s);
    addRow("bin with braces", "{\\rtf1 a{\\pict\\bin5 {}}{\\x}b\\bin-5 c\\bin99999999 d}"_ba, u"abc"_s);
    addRow("unknown destination and word",
           "{\\rtf1 a{\\*\\foo secret{\\b x}}b{\\*\\generator F;}c{\\foo7 shown}\\averylongwordthatneverends5 d}"_ba,
           u"abcshownd"_s);
    addRow("table",
           "{\\rtf1\\trowd\\cellx1000\\pard\\intbl a\\cell {\\b b}\\cell\\row c\\cell\\row\\pard after\\par}"_ba,
           u"a\tb\nc\nafter"_s);
    addRow("nested table",
           "{\\rtf1\\trowd\\intbl\\itap2 x\\nestcell{\\*\\nesttableprops\\trowd\\nestrow}{\\nonesttables\\par}\\itap1 "
           "y\\cell\\row}"_ba,
           u"x\ny"_s);
    addRow("other field, header, footnote, hidden, object",
           "{\\rtf1{\\header head\\par}{\\field{\\*\\fldinst DATE \\\\@ \"d\"}{\\fldrslt 1 May}}{\\footnote foot}"
           "{\\v hid}b\\v h\\v0 c{\\object\\objemb{\\*\\objdata 0102}{\\result R}}}"_ba,
           u"1 MaybcR"_s);
    addRow("no final brace", "{\\rtf1 a\\b bc"_ba, u"abc"_s);
    addRow("brace too many, rubbish behind", "{\\rtf1 a}} trailing {\\b x}"_ba, u"a"_s);
    addRow("byte order mark and blanks", "\xef\xbb\xbf \r\n{\\rtf1 a}"_ba, u"a"_s);
    addRow("empty paragraphs", "{\\rtf1\\par\\par a\\par\\par}"_ba, u"\n\na\n"_s);
    addRow("list without a table", "{\\rtf1\\pard{\\listtext\\'b7\\tab}\\ls3\\ilvl0 item\\par}"_ba, u"item"_s);
    addRow("characters a document keeps for itself", "{\\rtf1 a\\u-4?\\u-560?\\u-559?\\u8233?\\u0?\\u1?b}"_ba,
           u"a\nb"_s);
    addRow("lone halves", "{\\rtf1 a\\u-8704?b\\u-10179?c}"_ba,
           u"a"_s + QChar(0xDE00) + u"b"_s + QChar(0xD83D) + u"c"_s);
    addRow("wild numbers", "{\\rtf1\\ansi\\fs99999999999 a\\li-99999999 b\\par\\fs-4 c\\uc-7\\uc99999 d}"_ba,
           u"ab\ncd"_s);
    addRow("bad hex, then the end", "{\\rtf1 a\\'zzb\\'4"_ba, u"azzb"_s);
}

void tst_Rtf::reads()
{
    QFETCH(QByteArray, rtf);
    QTEST(textOf(rtf), "text");
}

void tst_Rtf::formats_data()
{
    QTest::addColumn<QByteArray>("rtf");
    QTest::addColumn<QString>("parts"); // each must be in the description, in this order
    addRow("old box", boxNote,
           u"{Arial CE 10 -/-|Zażółć };bold #ff0000/-|gęślą;list1 level1 item0]{Arial CE 10;list1 level1 item1];"
           "[align1 -]{Arial CE"_s);
    addRow("word list", wordNote,
           u"list4 level1 item0]{Times New Roman 12 -/-|first;list5 level2 item0];list4 level1 item1];[align1 -]"_s);
    addRow("flags off again", "{\\rtf1\\b\\i\\ul\\strike a\\b0\\i0\\ulnone\\strike0 b\\ulwave\\b c\\plain d}"_ba,
           u"{ 12 bold italic underline strike -/-|a};{ 12 -/-|b};{ 12 bold underline -/-|c};{ 12 -/-|d}"_s);
    addRow("scripts and caps", "{\\rtf1{\\super a}{\\dn b}{\\up0 c}{\\caps d}{\\scaps e}}"_ba,
           u"super -/-|a};sub -/-|b};{ 12 -/-|c};caps -/-|d};smallcaps -/-|e}"_s);
    addRow("alignment without par", "{\\rtf1\\pard\\qc centred}"_ba, u"[align4 -]"_s);
    addRow("paragraphs",
           "{\\rtf1\\pard\\qj\\li720\\fi-360\\ri150\\sb120\\sa180\\sl360\\slmult1 a\\par"
           "\\pard\\qr\\sl-300 b\\par\\pard\\sl300\\slmult0 c}"_ba,
           u"[align8 left48 first-24 right10 before8 after12 line150 lineType1 -];[align2 line20 lineType2 -];"
           "line20 lineType3 -]"_s);
    addRow("right to left",
           "{\\rtf1\\pard\\rtlpar\\qr\\rtlch\\u1513? a\\par\\ql b\\par\\ltrpar c\\par\\rtlpar d\\par\\pard e}"_ba,
           u"[align1 rtl -]{ 12 -/-|\u05E9 a};[align1 rtl -]{ 12 -/-|b};[align1 -]{ 12 -/-|c};[align1 rtl -];"
           "[align1 -]{ 12 -/-|e}"_s);
    addRow("colours", "{\\rtf1{\\colortbl;\\red1\\green2\\blue3;\\red255\\green255;}\\cf1 a{\\highlight2 b}\\cf9 c}"_ba,
           u"#010203/-|a};#010203/#ffff00|b};-/-|c}"_s);
    // Black is what other programs write for "no colour". It must not stay black on a dark page, yet a text with a
    // background of its own must not take the page's colour.
    addRow("automatic colours",
           "{\\rtf1{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue0;\\red0\\green0\\blue128;}"
           "\\cf1 a\\highlight2 b\\cf0 c\\highlight3 d}"_ba,
           u"{ 12 -/-|a};{ 12 #000000/#ffff00|bc};{ 12 #ffffff/#000080|d}"_s);
    addRow("old numbers",
           "{\\rtf1\\pard{\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pnstart1\\pnucrm{\\pntxta.}}\\li720 a\\par\\pard x\\par"
           "\\pard{\\*\\pn\\pnlvlbody\\pnucrm}b}"_ba,
           u"list8 level1 item0;|x};list8 level1 item0"_s);
    addRow("a group ends its formats", "{\\rtf1\\pard\\qc{\\b\\fs40 a{\\i b{\\ul\\qr\\li720 c\\par}d}e}f\\par g}"_ba,
           u"[align2 left48 -]{ 20 bold -/-|a}{ 20 bold italic -/-|b}{ 20 bold italic underline -/-|c};"
           "[align4 -]{ 20 bold italic -/-|d}{ 20 bold -/-|e}{ 12 -/-|f};[align4 -]{ 12 -/-|g}"_s);
    addRow("limits", "{\\rtf1\\fs99999999999 a\\pard\\li-99999999\\ls99999999\\ilvl-5 b}"_ba, u"left-2112;{ 400 "_s);
    const QString link = QGuiApplication::palette().color(QPalette::Link).name();
    addRow(
        "links",
        "{\\rtf1 {\\field{\\*\\fldinst{HYPERLINK \"https://a.b/?x=1\" \\\\l \"top\"}}{\\fldrslt{\\b one}}} "
        "{\\field{\\*\\fldinst HYPERLINK http://c.d}{\\fldrslt two}}{\\field{\\*\\fldinst{ hyperlink \\\\l \"here\"}}"
        "{\\fldrslt three}}four}"_ba,
        u"{ 12 bold underline %1/- https://a.b/?x=1#top|one}{ 12 -/-| }{ 12 underline %1/- http://c.d|two}"
        "{ 12 underline %1/- #here|three}{ 12 -/-|four}"_s.arg(link));
}

void tst_Rtf::formats()
{
    QFETCH(QByteArray, rtf);
    QFETCH(QString, parts);
    QTextDocument document;
    rtf::read(rtf, &document);
    const QString got = describe(document);
    qsizetype at = 0;
    for (const QString& part : parts.split(u';')) {
        const qsizetype found = got.indexOf(part, at);
        QVERIFY2(found >= 0, qPrintable(u"\nmissing: "_s + part + u"\nin: "_s + got));
        at = found + part.size();
    }
}

void tst_Rtf::losses()
{
    // Pictures, tables, objects, unknown.
    const std::pair<QByteArray, QString> rows[] = {
        {boxNote, u"0 0 0 0"_s},
        {"{\\rtf1 a{\\*\\shppict{\\pict\\pngblip 8950}}{\\nonshppict{\\pict\\wmetafile8 01}}b}", u"1 0 0 0"_s}, // one
        {"{\\rtf1\\trowd\\intbl a\\cell\\row\\trowd\\intbl b\\cell\\row\\pard x\\par\\trowd\\intbl c\\cell\\row}",
         u"0 2 0 0"_s},
        {"{\\rtf1{\\object{\\*\\objdata 00}{\\result{\\pict 00}}}}", u"1 0 1 0"_s},
        {"{\\rtf1{\\shp{\\*\\shpinst{\\sp{\\sn x}{\\sv 1}}{\\shptxt t}}}}", u"0 0 1 0"_s},
        {"{\\rtf1{\\*\\foo x}{\\*\\bar y}}", u"0 0 0 2"_s},
    };
    for (const auto& [rtf, counts] : rows) {
        QTextDocument document;
        const rtf::ReadInfo i = rtf::read(rtf, &document);
        QCOMPARE(u"%1 %2 %3 %4"_s.arg(i.pictures).arg(i.tables).arg(i.objects).arg(i.unknownDestinations), counts);
        QCOMPARE(i.losesContent(), i.pictures + i.tables + i.objects > 0);
    }
}

// A QString has characters already: they are not to be taken for bytes of the file's code page.
void tst_Rtf::unicodeText()
{
    QTextDocument document;
    rtf::read(u"{\\rtf1\\ansi\\ansicpg1251{\\fonttbl{\\f0\\fcharset204 Żółw;}}\\f0 é日😀\\'cf\\u322ły}"_s, &document);
    QCOMPARE(describe(document), u"[align1 -]{Żółw 12 -/-|é日😀Пły}\n"_s);
}

void tst_Rtf::refusesOtherFiles()
{
    QTextDocument document;
    document.setPlainText(u"old"_s);
    for (const QByteArray& other : {"hello"_ba, ""_ba, "{\\rt"_ba, "<html>{\\rtf1}"_ba}) {
        QVERIFY(!rtf::read(other, &document).ok);
        QVERIFY(document.isEmpty());
    }
    QVERIFY(!document.isUndoAvailable());
}

void tst_Rtf::hostileSizes()
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

// Any file must be read, and what was read must be written as a file that reads the same.
void tst_Rtf::truncationAndMutations()
{
    const QByteArray seeds[] = {boxNote, wordNote,
                                "{\\rtf1{\\field{\\*\\fldinst{HYPERLINK \"x\"}}{\\fldrslt y}}\\u9731?}"_ba};
    for (const QByteArray& whole : seeds) {
        for (qsizetype length = 5; length < whole.size(); ++length) {
            QTextDocument document;
            QVERIFY(rtf::read(whole.left(length), &document).ok);
        }
    }
    QRandomGenerator random(42);
    const auto at = [&random](const QByteArray& b) { return qsizetype(random.bounded(int(b.size()) + 1)); };
    for (int round = 0; round < 600; ++round) {
        QByteArray bytes = seeds[round % 3];
        for (int change = random.bounded(1, 12); change > 0; --change) {
            const QByteArray inserted[] = {QByteArray(1, char(random.bounded(256))),
                                           QByteArray(1, "{}\\*'-u0"[random.bounded(8)]),
                                           bytes.mid(at(bytes), random.bounded(60)), "\\bin9 "_ba};
            const int kind = random.bounded(5);
            bytes.replace(at(bytes), kind == 4 ? random.bounded(1, 20) : 0, kind == 4 ? ""_ba : inserted[kind]);
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

// Every property that the format carries, one after another.
void tst_Rtf::roundTrip()
{
    const QString html =
        u"<h1>T</h1><blockquote>q</blockquote><pre>if (a &lt; b) {\n\treturn '\\';\n}</pre><p>Plain {braces} \\back "
        u"<b>bold</b> <i>it</i> <u>under</u> <s>out</s> <span style='color:#c80000'>red</span>"
        "<span style='background:#ffff00;color:#000'>marked</span> <span style='font-family:DejaVu Serif;"
        "font-size:18.5pt'>big</span><sup>sup</sup><sub>sub</sub><span style='font-variant:small-caps'>caps</span>"
        "<a href='https://example.org/?a=1&b=ż'>link</a> <a href='#place' style='color:#007800'>green</a></p>"
        "<p align=center>Zażółć — „cudzysłów” 日本語 😀 ½ € ñ&nbsp;&shy;x\u2011y Привет</p><p align=right>right</p>"
        "<p align=justify style='margin:8px 10px 12px 48px;text-indent:-24px;line-height:150%;background:#dce6f0'>"
        "tabbed\ttext<br>soft break</p><p dir=rtl>\u05E9</p><p dir=rtl align=left>\u05E9</p><p dir=rtl align=center>c"
        "<ul><li>one<ul><li>nested</ul><li>two</ul><ol><li>1<li>2</ol><ol type=I><li>1<li>2</ol><ol type=i><li>1"
        "<li>2</ol><ol type=A><li>1<li>2</ol><ol type=a><li>1<li>2</ol><p><br></p><p>after an empty line</p>"_s;
    QTextDocument page, document, again;
    for (QTextDocument* d : {&page, &document, &again})
        d->setDefaultFont(QFont(u"DejaVu Sans"_s, 10));
    page.setHtml(html);
    const rtf::ReadInfo info = rtf::read(rtf::write(page), &document);
    QVERIFY(info.ok && !info.losesContent() && info.unknownDestinations == 0);
    QCOMPARE(document.toRawText(), page.toRawText());
    for (QTextBlock was = page.begin(), is = document.begin(); was.isValid(); was = was.next(), is = is.next()) {
        QCOMPARE(is.blockFormat().layoutDirection(), was.blockFormat().layoutDirection());
        QCOMPARE(bool(is.textList()), bool(was.textList()));
        const auto seen = [](const QTextBlock& block) {
            return QStyle::visualAlignment(block.textDirection(), block.blockFormat().alignment()) & 0xF;
        };
        QCOMPARE(seen(is), seen(was));
    }
    const QString got = describe(document);
    for (const QString& part :
         {u" bold -/-|bold}"_s, u" italic -/-|it}"_s, u" underline -/-|under}"_s, u" strike -/-|out}"_s,
          u" #c80000/-|red"_s, u" #000000/#ffff00|marked}"_s, u"{DejaVu Serif 18.5 -/-|big}"_s, u" super -/-|"_s,
          u" sub -/-|"_s, u" smallcaps -/-|"_s, u"/- https://example.org/?a=1&b=ż|link}"_s,
          u" #007800/- #place|green}"_s,
          u"[align8 left48 first-24 right10 before8 after12 line150 lineType1 #dce6f0]"_s, u"list4 level1 item1"_s,
          u"list8 level1 item1"_s, u"list7 level1 item1"_s, u"list6 level1 item1"_s, u"list5 level1 item1"_s,
          u"list2 level2 item0"_s})
        QVERIFY2(got.contains(part), qPrintable(part + u" is not in\n"_s + got));
    rtf::read(rtf::write(document), &again);
    QCOMPARE(describe(again), got);
}

void tst_Rtf::written()
{
    QTextDocument document;
    document.setPlainText(u"€ż日😀\u0001\uFFFD"_s);
    QByteArray bytes = rtf::write(document);
    QVERIFY(std::all_of(bytes.begin(), bytes.end(),
                        [](char c) { return c == '\r' || c == '\n' || (c >= 0x20 && c < 0x7F); }));
    QVERIFY(bytes.contains("\\u8364\\'80\\u380\\'3f\\u26085\\'3f\\u-10179\\'3f\\u-8704\\'3f\\u-3\\'3f}"));
    // A colour that nobody chose must not be written: it would be black for ever on a dark page.
    document.setHtml(u"<p>a <span style='color:#000000'>b</span> <a href='x'>c</a></p>"_s);
    bytes = rtf::write(document);
    QVERIFY2(bytes.contains("{\\colortbl ;\\red0\\green0\\blue255;}"), bytes.constData()); // the link only
    QCOMPARE(bytes.count("\\cf"), 1);
}

void tst_Rtf::tablesAndPictures()
{
    QTextDocument document, again;
    document.addResource(QTextDocument::ImageResource, QUrl(u"i"_s), QImage(4, 4, QImage::Format_RGB32));
    document.setHtml(
        u"<p>p<img src='i'>q</p><table><tr><td>a</td><td>b</td></tr><tr><td>c</td><td>d</td></tr></table><p>z</p>"_s);
    QVERIFY(rtf::read(rtf::write(document), &again).ok);
    QCOMPARE(again.toPlainText().trimmed(), u"pq\na\tb\nc\td\n\nz"_s);
}

// Another program must find the same text and formats.
void tst_Rtf::otherReader()
{
    const QString program = QStandardPaths::findExecutable(u"unrtf"_s);
    if (program.isEmpty())
        QSKIP("unrtf is not installed: that another program reads our RTF is not checked here");
    QTextDocument page, seen;
    page.setHtml(u"<p>{a} \\ żółw 日本 <b>fett</b><span style='color:#ff0000'>rot</span><ol><li>punkt</ol>"_s);
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write(rtf::write(page));
    file.close();
    QProcess process;
    process.start(program, {u"--html"_s, file.fileName()});
    QVERIFY(process.waitForFinished());
    seen.setHtml(QString::fromUtf8(process.readAllStandardOutput()));
    QVERIFY2(seen.toPlainText().startsWith(u"{a} \\ żółw 日本 fettrot\n1."_s), qPrintable(seen.toPlainText()));
    QVERIFY(seen.toPlainText().contains(u"punkt"_s));
    const QString looks = describe(seen);
    QVERIFY2(looks.contains(u" bold -/-|fett}"_s) && looks.contains(u" #ff0000/-|rot}"_s), qPrintable(looks));
}

SNIPVALE_TEST(tst_Rtf)
#include "tst_Rtf.moc"
