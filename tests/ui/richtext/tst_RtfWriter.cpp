// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "ui/richtext/RtfReader.h"
#include "ui/richtext/RtfSamples.h"
#include "ui/richtext/RtfWriter.h"

#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryFile>

using namespace Qt::StringLiterals;

class tst_RtfWriter : public QObject {
    Q_OBJECT
private slots:
    void roundTrip();
    void stableFromHtml_data();
    void stableFromHtml();
    void plainAscii();
    void defaultLooksStayDefault();
    void tablesAndPictures();
    void otherReader();
};

namespace {

using Change = void (*)(QTextCharFormat&);

// Every property that the format carries, one after another.
class Page {
public:
    Page() : m_cursor(&document)
    {
        document.setDefaultFont(QFont(u"DejaVu Sans"_s, 10));
        m_plain.setFontFamilies({u"DejaVu Sans"_s});
        m_plain.setFontPointSize(10);
    }
    void put(
        const QString& text, Change change = [](QTextCharFormat&) {})
    {
        QTextCharFormat format = m_plain;
        change(format);
        m_cursor.insertText(text, format);
    }
    void paragraph(const QTextBlockFormat& format = {}) { m_cursor.insertBlock(format, m_plain); }
    QTextList* item(QTextListFormat::Style style, int level, QTextList* list = nullptr)
    {
        paragraph();
        QTextListFormat format;
        format.setStyle(style);
        format.setIndent(level);
        if (!list)
            return m_cursor.createList(format);
        list->add(m_cursor.block());
        return list;
    }
    QTextDocument document;

private:
    QTextCursor m_cursor;
    QTextCharFormat m_plain;
};

void putRuns(Page& page)
{
    page.put(u"Plain {braces} \\back "_s);
    page.put(u"bold"_s, [](QTextCharFormat& f) { f.setFontWeight(QFont::Bold); });
    page.put(u" italic"_s, [](QTextCharFormat& f) { f.setFontItalic(true); });
    page.put(u" under"_s, [](QTextCharFormat& f) { f.setFontUnderline(true); });
    page.put(u" strike"_s, [](QTextCharFormat& f) { f.setFontStrikeOut(true); });
    page.put(u" red"_s, [](QTextCharFormat& f) { f.setForeground(QColor(200, 0, 0)); });
    page.put(u" marked"_s, [](QTextCharFormat& f) {
        f.setBackground(QColor(255, 255, 0));
        f.setForeground(QColor(Qt::black));
    });
    page.put(u" big serif"_s, [](QTextCharFormat& f) {
        f.setFontFamilies({u"DejaVu Serif"_s});
        f.setFontPointSize(18.5);
    });
    page.put(u"sup"_s, [](QTextCharFormat& f) { f.setVerticalAlignment(QTextCharFormat::AlignSuperScript); });
    page.put(u"sub"_s, [](QTextCharFormat& f) { f.setVerticalAlignment(QTextCharFormat::AlignSubScript); });
    page.put(u"caps"_s, [](QTextCharFormat& f) { f.setFontCapitalization(QFont::AllUppercase); });
    page.put(u"link"_s, [](QTextCharFormat& f) {
        f.setAnchor(true);
        f.setAnchorHref(u"https://example.org/?a=1&b=\u017c"_s);
        f.setForeground(QGuiApplication::palette().link());
        f.setFontUnderline(true);
    });
    page.put(u"green link"_s, [](QTextCharFormat& f) {
        f.setAnchor(true);
        f.setAnchorHref(u"#place"_s);
        f.setForeground(QColor(0, 120, 0));
    });
}

void putParagraphs(Page& page)
{
    QTextBlockFormat format;
    format.setAlignment(Qt::AlignHCenter);
    page.paragraph(format);
    page.put(u"Zażółć gęślą jaźń — „cudzysłów” 日本語 😀 ½ € ñ\u00A0\u00ADx\u2011y Привет"_s);
    format.setAlignment(Qt::AlignRight);
    page.paragraph(format);
    page.put(u"right"_s);
    format.setAlignment(Qt::AlignJustify);
    format.setLeftMargin(48);
    format.setTextIndent(-24);
    format.setRightMargin(10);
    format.setTopMargin(8);
    format.setBottomMargin(12);
    format.setLineHeight(150, QTextBlockFormat::ProportionalHeight);
    format.setBackground(QColor(220, 230, 240));
    page.paragraph(format);
    page.put(u"justified\ttabbed\u2028soft break"_s);
}

void putLists(Page& page)
{
    QTextList* bullets = page.item(QTextListFormat::ListDisc, 1);
    page.put(u"one"_s);
    page.item(QTextListFormat::ListCircle, 2);
    page.put(u"nested"_s);
    page.item(QTextListFormat::ListDisc, 1, bullets);
    page.put(u"two"_s);
    const QTextListFormat::Style numbers[] = {QTextListFormat::ListDecimal, QTextListFormat::ListUpperRoman,
                                              QTextListFormat::ListLowerRoman, QTextListFormat::ListUpperAlpha,
                                              QTextListFormat::ListLowerAlpha};
    for (const auto style : numbers) {
        QTextList* list = page.item(style, 1);
        page.put(u"first"_s);
        page.item(style, 1, list);
        page.put(u"second"_s);
    }
    page.paragraph();
    page.paragraph();
    page.put(u"after an empty line"_s);
    page.paragraph();
}

} // namespace

void tst_RtfWriter::roundTrip()
{
    Page page;
    putRuns(page);
    putParagraphs(page);
    putLists(page);
    QTextDocument again;
    again.setDefaultFont(page.document.defaultFont());
    const QByteArray written = rtf::write(page.document);
    const rtf::ReadInfo info = rtf::read(written, &again);
    QVERIFY(info.ok && !info.losesContent() && info.unknownDestinations == 0);
    const QStringList was = describe(page.document).split(u'\n');
    const QStringList is = describe(again).split(u'\n');
    for (qsizetype i = 0; i < qMax(was.size(), is.size()); ++i)
        QCOMPARE(is.value(i), was.value(i));
    QCOMPARE(rtf::write(again), written);
}

void tst_RtfWriter::stableFromHtml_data()
{
    QTest::addColumn<QString>("html");
    QTest::newRow("headings and lists")
        << u"<h1>T</h1><p>a <b>b</b> <font size=5>big</font></p><ul><li>x<ol><li>y</ol></ul><hr><p>e"_s;
    QTest::newRow("preformatted") << u"<pre>if (a &lt; b) {\n\treturn '\\';\n}</pre>"_s;
    QTest::newRow("quote and right to left") << u"<blockquote>q</blockquote><p dir=rtl align=right>שלום</p>"_s;
    QTest::newRow("pixels") << u"<p style='font-size:20px;margin-left:33px;text-indent:7px'>p"_s;
}

void tst_RtfWriter::stableFromHtml()
{
    QFETCH(QString, html);
    QTextDocument page, first, second;
    page.setHtml(html);
    rtf::read(rtf::write(page), &first);
    QCOMPARE(first.toPlainText(), page.toPlainText());
    rtf::read(rtf::write(first), &second);
    QCOMPARE(describe(second), describe(first));
}

void tst_RtfWriter::plainAscii()
{
    QTextDocument document;
    document.setPlainText(u"€ż日😀\u0001\uFFFD"_s);
    const QByteArray written = rtf::write(document);
    QVERIFY(std::all_of(written.begin(), written.end(),
                        [](char c) { return c == '\r' || c == '\n' || (c >= 0x20 && c < 0x7F); }));
    QVERIFY(written.contains("\\u8364\\'80\\u380\\'3f\\u26085\\'3f\\u-10179\\'3f\\u-8704\\'3f\\u-3\\'3f}"));
}

// A colour that nobody chose must not be written: it would be black for ever on a dark page.
void tst_RtfWriter::defaultLooksStayDefault()
{
    QTextDocument document;
    document.setHtml(u"<p>a <span style='color:#000000'>b</span> <a href='x'>c</a></p>"_s);
    const QByteArray written = rtf::write(document);
    QVERIFY2(written.contains("{\\colortbl ;\\red0\\green0\\blue255;}"), written.constData()); // the link only
    QCOMPARE(written.count("\\cf"), 1);
}

void tst_RtfWriter::tablesAndPictures()
{
    QTextDocument document, again;
    QImage image(4, 4, QImage::Format_RGB32);
    document.addResource(QTextDocument::ImageResource, QUrl(u"i"_s), image);
    document.setHtml(
        u"<p>p<img src='i'>q</p><table><tr><td>a</td><td>b</td></tr><tr><td>c</td><td>d</td></tr></table><p>z</p>"_s);
    QVERIFY(rtf::read(rtf::write(document), &again).ok);
    QCOMPARE(again.toPlainText().trimmed(), u"pq\na\tb\nc\td\n\nz"_s);
}

// Another program must find the same text and formats.
void tst_RtfWriter::otherReader()
{
    const QString program = QStandardPaths::findExecutable(u"unrtf"_s);
    if (program.isEmpty())
        QSKIP("unrtf is not installed: that another program reads our RTF is not checked here");
    Page page;
    page.put(u"{a} \\ żółw 日本 "_s);
    page.put(u"fett"_s, [](QTextCharFormat& f) { f.setFontWeight(QFont::Bold); });
    page.put(u"rot"_s, [](QTextCharFormat& f) { f.setForeground(QColor(255, 0, 0)); });
    page.item(QTextListFormat::ListDecimal, 1);
    page.put(u"punkt"_s);
    QTemporaryFile file;
    QVERIFY(file.open());
    file.write(rtf::write(page.document));
    file.close();
    QProcess process;
    process.start(program, {u"--html"_s, file.fileName()});
    QVERIFY(process.waitForFinished());
    QTextDocument seen;
    seen.setHtml(QString::fromUtf8(process.readAllStandardOutput()));
    QVERIFY2(seen.toPlainText().startsWith(u"{a} \\ żółw 日本 fettrot\n1."_s), qPrintable(seen.toPlainText()));
    QVERIFY(seen.toPlainText().contains(u"punkt"_s));
    const QString looks = describe(seen);
    QVERIFY2(looks.contains(u" bold -/-|fett}"_s) && looks.contains(u" #ff0000/-|rot}"_s), qPrintable(looks));
}

SNIPVALE_TEST(tst_RtfWriter)
#include "tst_RtfWriter.moc"
