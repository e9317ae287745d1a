// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "ui/richtext/ShownBox.h"

#include <QClipboard>
#include <QMimeData>

using namespace Qt::StringLiterals;

class tst_RichTextClipboard : public QObject {
    Q_OBJECT
private slots:
    void clipboard();
    void paste_data();
    void paste();
};

void tst_RichTextClipboard::clipboard()
{
    Shown s(u"{\\rtf1 a \\b bold\\b0  ż\\par{\\*\\pn\\pnlvlblt}item\\par}"_s);
    s.select(2, 13);
    s.box.run(RichTextCommand::Copy);
    const QMimeData* mime = QGuiApplication::clipboard()->mimeData();
    QCOMPARE(mime->text(), u"bold ż\nitem"_s);
    QVERIFY(mime->html().contains(u"font-weight:"_s));
    for (const QString& type : {u"text/rtf"_s, u"application/rtf"_s}) {
        QTextDocument document;
        QVERIFY(rtf::read(mime->data(type), &document).ok);
        QCOMPARE(document.toPlainText(), u"bold ż\nitem"_s);
        QVERIFY(describe(document).contains(u" bold -/-|bold}"_s));
    }
    Shown other;
    other.box.run(RichTextCommand::Paste);
    QVERIFY2(other.looks().contains(u" bold -/-|bold}"_s) && other.looks().contains(u"list1 level1"_s),
             qPrintable(other.looks()));
}

void tst_RichTextClipboard::paste_data()
{
    using Data = QMap<QString, QByteArray>;
    QTest::addColumn<Data>("data");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("part"); // of the description
    QTest::newRow("rtf before html") << Data{{u"text/rtf"_s, "{\\rtf1 \\i R}"},
                                             {u"text/html"_s, "<b>H</b>"},
                                             {u"text/plain"_s, "P"}}
                                     << u"xRy"_s << u" italic -/-|R}"_s;
    QTest::newRow("application/rtf") << Data{{u"application/rtf"_s, "{\\rtf1 \\b R\\par S\\par}"}} << u"xR\nSy"_s
                                     << u" bold -/-|R}"_s;
    QTest::newRow("broken rtf, good html")
        << Data{{u"text/rtf"_s, "no"}, {u"text/html"_s, "<b>H</b>"}} << u"xHy"_s << u" bold -/-|H}"_s;
    QTest::newRow("black on white of a web page")
        << Data{{u"text/html"_s,
                 "<p style='color:#000;background:#fff'><span style='background-color:#ffffff'>H</span></p>"}}
        << u"xHy"_s << u" -/-|H}"_s;
    QTest::newRow("html with a table and a picture")
        << Data{{u"text/html"_s, "<table><tr><td>a<td>b</table><img src=x>"}} << u"xa\tb\ny"_s << u"|a\tb}"_s;
    QTest::newRow("plain") << Data{{u"text/plain"_s, "P\r\nQ"}} << u"xP\nQy"_s << u"|xP}"_s;
}

void tst_RichTextClipboard::paste()
{
    using Data = QMap<QString, QByteArray>;
    QFETCH(Data, data);
    QFETCH(QString, shown);
    QFETCH(QString, part);
    Shown s(u"xy"_s);
    s.select(1, 1);
    auto* mime = new QMimeData;
    for (auto it = data.cbegin(); it != data.cend(); ++it)
        mime->setData(it.key(), it.value());
    QGuiApplication::clipboard()->setMimeData(mime);
    QVERIFY(s.box.canPaste());
    s.key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(s.box.toPlainText(), shown);
    if (data.firstKey() != u"text/plain"_s || data.size() > 1)
        QVERIFY2(s.looks().contains(part), qPrintable(s.looks()));
    QCOMPARE(s.edits.count(), 1);
    s.key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(s.box.toPlainText(), u"xy"_s);
}

SNIPVALE_TEST(tst_RichTextClipboard)
#include "tst_RichTextClipboard.moc"
