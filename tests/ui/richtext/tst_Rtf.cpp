// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "ui/richtext/RichTextSupport.h"

#include <QElapsedTimer>

using namespace Qt::StringLiterals;

namespace {

struct Sample {
    QByteArray rtf;
    QStringView seen;
};

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
    "{\\*\\listoverridetable{\\listoverride\\listid77\\listoverridecount0\\ls4}}{\\info{\\author A}}"
    "\\pard\\plain{\\listtext\\pard\\plain 1.\\tab}\\ilvl0\\ls4\\li720\\fi-360 first\\par{\\listtext a.\\tab}\\ilvl1"
    "\\ls4 inner\\par{\\listtext 2.\\tab}\\ilvl0\\ls4 second\\par\\ilvl1 anew\\par\\pard after\\par}"_ba;

const Sample texts[] = {
    // Code pages: of the fonts, of the file, unknown (which is western), and one in which a second byte may be ASCII.
    {"{\\rtf1{\\fonttbl{\\f0\\fcharset161 A;}{\\f1\\fcharset162 A;}{\\f2\\fcharset177 A;}{\\f3\\fcharset178 A;}"
     "{\\f4\\fcharset186 A;}{\\f5\\fcharset222 A;}{\\f6\\cpg1253 A;}{\\f7\\fcharset134 A;}{\\f8\\fcharset136 B;}"
     "{\\f9\\fcharset129 C;}{\\f10\\fcharset204 A;}{\\f11 B;}}\\f0\\'e1\\f1\\'fd\\f2\\'e0\\f3\\'c7\\f4\\'e0\\f5\\'a1"
     "\\f6\\'e1\\f7\\'d6\\'d0\\f8\\'a4\\'a4\\f9\\'c7\\'d1\\f10 \\'cf\\'f0\\f11\\ansicpg1251 \xe8\xe2}",
     u"αıאاąกα中中한Прив"},
    {"{\\rtf1\\ansi\\ansicpg12345 \\'80\\'e9\\ansicpg65001 \xc5\xbc\\'c5\\'bc.\\mac \\'8e\\pc \\'e3}", u"€éżż.éπ"},
    {"{\\rtf1\\ansi\\ansicpg932 \\'93\\'fa\\'96\\'7b\\'8c\\'ea \\'83\\\\ \\'95\\'5c \\'93\r\n\\'fa}",
     u"日本語 ソ 表 日"},
    // Unicode, its fallback (a word can be one, a group ends it), surrogates.
    {"{\\rtf1\\ansi\\uc1 a\\u322?b{\\uc2\\u26085\\'93\\'fa c}\\u-10179?\\u-8704? \\uc0\\u8364 d\\uc1\\u8211-e}",
     u"ałb日 c😀 €d–e"},
    {"{\\rtf1 \\u8226\\bullet x\\u8226{y}\\u8226\\b z}", u"•x•y•z"},
    {"{\\rtf1 a\\~b\\-c\\_d\\emdash e\\rquote\\ldblquote g\\tab h\\line i\\{\\}\\\\}",
     u"a\u00a0b\u00adc\u2011d\u2014e\u2019\u201cg\th\ni{}\\"},
    {"{\\rtf1\\par\\par a\\\nb\\\r\nc\\par\\par}", u"\n\na\nb\nc\n"},
    // What is not shown, and what is shown of it.
    {"{\\rtf1 a{\\pict\\bin5 {}}{\\x}b\\bin-5 c\\bin99999999 d}", u"abc"},
    {"{\\rtf1 a{\\*\\foo secret{\\b x}}b{\\*\\generator F;}c{\\foo7 shown}\\averylongwordthatneverends5 d}",
     u"abcshownd"},
    {"{\\rtf1{\\header head\\par}{\\field{\\*\\fldinst DATE \\\\@ \"d\"}{\\fldrslt 1 May}}{\\footnote foot}"
     "{\\v hid}b\\v h\\v0 c{\\object\\objemb{\\*\\objdata 0102}{\\result R}}}",
     u"1 MaybcR"},
    {"{\\rtf1\\trowd\\cellx1000\\pard\\intbl a\\cell {\\b b}\\cell\\row c\\cell\\row\\pard after\\par}",
     u"a\tb\nc\nafter"},
    {"{\\rtf1\\pard{\\listtext\\'b7\\tab}\\ls3\\ilvl0 item\\par}", u"item"}, // of a list that is nowhere
    // Spoilt files, and characters that a document keeps for itself.
    {"{\\rtf1 a\\b bc", u"abc"},
    {"\xef\xbb\xbf \r\n{\\rtf1 a}} trailing {\\b x}", u"a"},
    {"{\\rtf1 a\\u-4?\\u-560?\\u-559?\\u8233?\\u0?\\u1?b}", u"a\nb"},
    {"{\\rtf1\\ansi\\fs99999999999 a\\li-99999999 b\\par\\fs-4 c\\uc-7\\uc99999 d}", u"ab\ncd"},
    {"{\\rtf1 a\\'zzb\\'4", u"azzb"},
};

const Sample looks[] = {
    {boxNote,
     u"{Arial CE 10 -/-|Zażółć };bold #ff0000/-|gęślą};list1 level1 item0]{Arial CE 10 -/-|one};"
     "list1 level1 item1]{Arial CE 10 -/-|two};[align1 -]{Arial CE 10 -/-|end}\n"},
    {wordNote,
     u"list4 level1 item0]{Times New Roman 12 -/-|first};list5 level2 item0];list4 level1 item1];"
     "list5 level2 item0]{Times New Roman 12 -/-|anew};[align1 -]{Times New Roman 12 -/-|after}"},
    {"{\\rtf1\\b\\i\\ul\\strike a\\b0\\i0\\ulnone\\strike0 b\\ulwave\\b c\\plain d}",
     u"{ 12 bold italic underline strike -/-|a}{ 12 -/-|b}{ 12 bold underline -/-|c}{ 12 -/-|d}"},
    {"{\\rtf1{\\super a}{\\dn b}{\\up0 c}{\\caps d}}", u" super -/-|a}{ 12 sub -/-|b}{ 12 -/-|c}{ 12 caps -/-|d}"},
    {"{\\rtf1\\pard\\qj\\li720\\fi-360\\ri150\\sb120\\sa180\\sl360\\slmult1 a\\par"
     "\\pard\\qr\\sl-300 b\\par\\pard\\sl300\\slmult0 c\\par\\pard\\qc centred}",
     u"[align8 left48 first-24 right10 before8 after12 line150 lineType1 -];[align2 line20 lineType2 -];"
     "line20 lineType3 -];[align4 -]"},
    {"{\\rtf1\\pard\\rtlpar\\qr\\rtlch\\u1513? a\\par\\ql b\\par\\ltrpar c\\par\\rtlpar d\\par\\pard e}",
     u"[align2 rtl -]{ 12 -/-|\u05E9 a};[align1 rtl -]{ 12 -/-|b};[align1 -]{ 12 -/-|c};[align1 rtl -];"
     "[align1 -]{ 12 -/-|e}"},
    {"{\\rtf1{\\colortbl;\\red1\\green2\\blue3;}\\cf1 a{\\highlight1 b}\\cf9 c}", u"#010203/-|a};/#010203|b};-/-|c}"},
    // Black is what other programs write for "no colour". It must not stay black on a dark page, yet a text with a
    // background of its own must not take the page's colour.
    {"{\\rtf1{\\colortbl;\\red0\\green0\\blue0;\\red255\\green255\\blue0;\\red0\\green0\\blue128;}"
     "\\cf1 a\\highlight2 b\\cf0 c\\highlight3 d}",
     u"{ 12 -/-|a};{ 12 #000000/#ffff00|bc};{ 12 #ffffff/#000080|d}"},
    {"{\\rtf1\\pard{\\pntext 1.\\tab}{\\*\\pn\\pnlvlbody\\pnstart1\\pnucrm{\\pntxta.}}\\li720 a\\par\\pard x\\par"
     "\\pard{\\*\\pn\\pnlvlbody\\pnucrm}b}",
     u"list8 level1 item0;|x};list8 level1 item0"},
    // The end of a group puts back what was before it, however deep it is.
    {"{\\rtf1\\pard\\qc{\\b\\fs40 a{\\i b{\\ul\\qr\\li720 c\\par}d}e}f\\par{{{{\\b g{\\i h}i}}}}j}",
     u"[align2 left48 -]{ 20 bold -/-|a}{ 20 bold italic -/-|b}{ 20 bold italic underline -/-|c};"
     "[align4 -]{ 20 bold italic -/-|d}{ 20 bold -/-|e}{ 12 -/-|f};"
     "[align4 -]{ 12 bold -/-|g}{ 12 bold italic -/-|h}{ 12 bold -/-|i}{ 12 -/-|j}"},
    {"{\\rtf1\\fs99999999999 a\\pard\\li-99999999\\ls99999999\\ilvl-5 b}", u"left-2112;{ 400 "},
    {"{\\rtf1 {\\field{\\*\\fldinst{HYPERLINK \"https://a.b/?x=1\" \\\\l \"top\"}}{\\fldrslt{\\b one}}} "
     "{\\field{\\*\\fldinst HYPERLINK http://c.d}{\\fldrslt two}}{\\field{\\*\\fldinst{ hyperlink \\\\l \"here\"}}"
     "{\\fldrslt three}}four}",
     u"{ 12 bold underline LINK/- https://a.b/?x=1#top|one}{ 12 -/-| }{ 12 underline LINK/- http://c.d|two}"
     "{ 12 underline LINK/- #here|three}{ 12 -/-|four}"},
};

QString textOf(const QByteArray& rtf)
{
    QTextDocument document;
    rtf::read(rtf, &document);
    return document.toRawText().replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

// Each part must be in the description, in this order.
void verifyParts(const QString& description, QStringView parts)
{
    qsizetype at = 0;
    for (const QStringView part : parts.split(u';')) {
        const qsizetype found = description.indexOf(part, at);
        QVERIFY2(found >= 0, qPrintable(u"\nmissing: "_s + part.toString() + u"\nin: "_s + description));
        at = found + part.size();
    }
}

} // namespace

class tst_Rtf : public QObject {
    Q_OBJECT
private slots:
    void reads()
    {
        for (const Sample& sample : texts)
            QCOMPARE(textOf(sample.rtf), sample.seen);
    }

    void formats()
    {
        const QString link = QGuiApplication::palette().color(QPalette::Link).name();
        for (const Sample& sample : looks) {
            QTextDocument document;
            rtf::read(sample.rtf, &document);
            verifyParts(describe(document).replace(link, u"LINK"_s), sample.seen);
        }
    }

    void refusesAndEndures()
    {
        QTextDocument document;
        document.setPlainText(u"old"_s);
        for (const QByteArray other : {"hello", "", "{\\rt", "<html>{\\rtf1}"})
            QVERIFY(!rtf::read(other, &document).ok && document.isEmpty() && !document.isUndoAvailable());
        QElapsedTimer timer;
        timer.start();
        QCOMPARE(textOf("{\\rtf1\\b0 " + QByteArray("{\\b").repeated(300'000) + " x" + QByteArray(300'000, '}') + "y}"),
                 u"xy"_s);
        QCOMPARE(textOf("{\\rtf1 " + QByteArray(300'000, '{')), QString());
        QVERIFY2(timer.elapsed() < 5000, "groups must not cost more the deeper they are");
    }

    // However much of a file is there, it is read, and what was read is written as a file that reads the same.
    void cutFiles()
    {
        const QByteArray seeds[] = {boxNote, wordNote, looks[std::size(looks) - 1].rtf};
        for (const QByteArray& whole : seeds) {
            for (qsizetype length = 5; length <= whole.size(); ++length) {
                QTextDocument first, second;
                QVERIFY(rtf::read(whole.left(length), &first).ok);
                const QByteArray written = rtf::write(first);
                rtf::read(written, &second);
                QCOMPARE(second.toPlainText(), first.toPlainText());
                QCOMPARE(rtf::write(second), written);
            }
        }
    }

    // Every property that the format carries, one after another.
    void roundTrip()
    {
        const QString html =
            u"<h1>T</h1><p>Plain {braces} \\back <b>bold</b> <i>it</i> <u>under</u> <s>out</s> <span "
            u"style='color:#c80000'>red</span>"
            "<span style='background:#ffff00;color:#000'>marked</span> <span style='font-family:DejaVu Serif;"
            "font-size:18.5pt'>big</span><sup>sup</sup><sub>sub</sub><span style='font-variant:small-caps'>caps</span>"
            "<a href='https://example.org/?a=1&b=ż'>link</a> <a href='#place' style='color:#007800'>green</a></p>"
            "<p align=center>Zażółć — „cudzysłów” 日本語 😀 ½ € ñ&nbsp;&shy;x\u2011y Привет</p><p align=right>right</p>"
            "<p align=justify style='margin:8px 10px 12px 48px;text-indent:-24px;line-height:150%;background:#dce6f0'>"
            "tabbed\ttext<br>soft break</p><p dir=rtl>\u05E9</p><p dir=rtl align=left>\u05E9</p><p dir=rtl "
            "align=center>c"
            "<ul><li>one<ul><li>nested</ul><li>two</ul><ol><li>1<li>2</ol><ol type=I><li>1<li>2</ol><ol type=i><li>1"
            "<li>2</ol><ol type=A><li>1<li>2</ol><ol type=a><li>1<li>2</ol><p><br></p><p>after an empty line</p>"_s;
        QTextDocument page, document, again;
        for (QTextDocument* d : {&page, &document, &again})
            d->setDefaultFont(QFont(u"DejaVu Sans"_s, 10));
        page.setHtml(html);
        QVERIFY(!rtf::read(rtf::write(page), &document).losesContent());
        QCOMPARE(document.toRawText(), page.toRawText());
        const QString got = describe(document);
        verifyParts(
            got,
            u" bold -/-|bold}; italic -/-|it}; underline -/-|under}; strike -/-|out}; #c80000/-|red;"
            " #000000/#ffff00|marked};{DejaVu Serif 18.5 -/-|big}; super -/-|; sub -/-|; smallcaps -/-|;"
            "/- https://example.org/?a=1&b=ż|link}; #007800/- #place|green};"
            "[align8 left48 first-24 right10 before8 after12 line150 lineType1 #dce6f0];[align2 before12 after12 "
            "rtl;[align1 before12 after12 rtl;[align4 before12 after12 rtl;list2 level2 item0;"
            "list4 level1 item1;list8 level1 item1;list7 level1 item1;list6 level1 item1;list5 level1 item1");
        rtf::read(rtf::write(document), &again);
        QCOMPARE(describe(again), got);
    }

    void written()
    {
        QTextDocument document;
        document.setPlainText(u"€ż日😀\u0001\uFFFD"_s);
        QByteArray bytes = rtf::write(document);
        QCOMPARE(QString::fromLatin1(bytes).toUtf8(), bytes);
        QVERIFY(bytes.contains("\\u8364\\'80\\u380\\'3f\\u26085\\'3f\\u-10179\\'3f\\u-8704\\'3f\\u-3\\'3f}"));
        // A colour that nobody chose must not be written: it would be black for ever on a dark page.
        document.setHtml(u"<p>a <span style='color:#000000'>b</span> <a href='x'>c</a></p>"_s);
        bytes = rtf::write(document);
        QVERIFY2(bytes.contains("{\\colortbl ;\\red0\\green0\\blue255;}"), bytes.constData()); // the link only
        QCOMPARE(bytes.count("\\cf"), 1);
    }
};

SNIPVALE_TEST(tst_Rtf)
#include "tst_Rtf.moc"
