// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/EditorFixture.h"
#include "support/Registry.h"

#include "memo/cMemo.h"
#include "memo/code/ui/ScintillaView.h"
#include "memo/ui/MemoPrint.h"
#include "memo/ui/frmSnipVale.h"

#include <QPrinter>
#include <QProcess>
#include <QtWidgets>
#include <csignal>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

// The answer of one of the poppler tools, which know nothing of this program.
QByteArray ask(const QString& tool, const QStringList& arguments)
{
    QProcess process;
    process.start(tool, arguments);
    if (!process.waitForFinished() || process.exitCode() != 0)
        qFatal("%s", process.readAllStandardError().constData());
    return process.readAllStandardOutput();
}

struct Printed : EditorFixture {
    qint32 save(const QString& name, const QString& code, qint32 language = 3, const QString& notes = {})
    {
        memo.CategoryID = 1;
        memo.MemoName = name;
        memo.SnipVale = code;
        memo.MemoTypeID = language;
        memo.MemoNotes = notes;
        if (!memo.Save())
            qFatal("the memo was not saved");
        return memo.MemoID;
    }
    bool print(const QList<qint32>& ids)
    {
        printing.files.push_back(pdf);
        return printMemos(nullptr, archive, desktop, ids);
    }
    QString text(const QString& manner = u"-layout"_s) const
    {
        return QString::fromUtf8(ask(u"pdftotext"_s, {manner, pdf, u"-"_s}));
    }
    QImage firstPage() const
    {
        ask(u"pdftoppm"_s, {u"-r"_s, u"100"_s, u"-png"_s, u"-singlefile"_s, pdf, pdf});
        return QImage(pdf + u".png"_s);
    }
    cMemo memo{archive};
    QString pdf = scratch.path(u"memo.pdf"_s);
};

int pixels(const QImage& image, const std::function<bool(QColor)>& wanted)
{
    int count = 0;
    for (int i = 0; i < image.width() * image.height(); ++i)
        count += wanted(image.pixelColor(i % image.width(), i / image.width())) ? 1 : 0;
    return count;
}

QString lines(int count)
{
    return QString(u"int value;\n"_s).repeated(count);
}

} // namespace

class tst_MemoPrint : public QObject {
    Q_OBJECT
private slots:
    void everythingIsOnThePage()
    {
        Printed p;
        p.memo.MemoLink = u"https://example.org/x"_s;
        p.memo.MemoDescription = u"One & <i>only</i>"_s;
        const qint32 first = p.save(u"A <b>name</b>"_s, u"class Ring {\n\tint size; // comment\nint\tstop\n};\n"_s, 3,
                                    u"{\\rtf1{\\colortbl;\\red230\\green0\\blue230;}plain \\b\\cf1 magenta\\par}"_s);
        p.memo.MemoLink = p.memo.MemoDescription = QString();
        const qint32 second = p.save(u"Second"_s, u"import sys\n"_s, 2);
        QVERIFY(p.print({first, second}));
        const QStringList pages = p.text().split(u'\f');
        for (const QString& part : {u"A <b>name</b>"_s, u"C / C++"_s, u"Code"_s, u"https://example.org/x"_s,
                                    u"One & <i>only</i>"_s, u"plain magenta"_s, u"Page 1 of 2"_s})
            QVERIFY2(pages[0].contains(part), qPrintable(part + u" is not in\n"_s + pages[0]));
        const auto tabs = QRegularExpression(u"\\n( *2 +)int size; // comment\\n( *3 +int +)stop\\n"_s).match(pages[0]);
        QVERIFY2(tabs.hasMatch(), qPrintable(pages[0]));
        QCOMPARE(tabs.capturedLength(1), tabs.capturedLength(2)); // the same tab stop
        QVERIFY(pages[1].contains(u"Python"_s) && pages[1].contains(u"Page 2 of 2"_s));
        for (const QString& empty : {u"Link:"_s, u"Description:"_s, u"Notes"_s})
            QVERIFY2(!pages[1].contains(empty), qPrintable(empty));

        const QImage image = p.firstPage();
        const std::pair<const char*, bool (*)(QColor)> inks[] = {
            {"keyword", [](QColor c) { return c.blue() > 90 && c.red() < 50 && c.green() < 50; }},
            {"comment", [](QColor c) { return c.green() > 90 && c.red() < 60 && c.blue() < 60; }},
            {"magenta", [](QColor c) { return c.red() > 180 && c.blue() > 180 && c.green() < 90; }},
        };
        for (const auto& [name, isInk] : inks)
            QVERIFY2(pixels(image, isInk) > 30, name);

        // Dark styles come on white paper.
        ArchiveUnit(p.archive).Execute(u"UPDATE tab_style SET foreColor = 16777215, backColor = 0"_s);
        QVERIFY(p.print({second}));
        const QImage code = p.firstPage().copy(0, 150, image.width(), 80); // below the heading
        const int ink = pixels(code, [](QColor c) { return c.lightness() < 160; });
        QVERIFY2(ink > 50 && ink < 2000, qPrintable(QString::number(ink)));
    }

    void hostileTexts()
    {
        // What stands in the code, what must be printed (without blanks), how often.
        const std::tuple<QString, QString, int> rows[] = {
            {u"a\0b"_s, u"a\uFFFDb"_s, 1},
            {u"a"_s + QChar(0xD800) + u"b"_s, u"a?b"_s, 1},
            {QString(u"abcdefghi,"_s).repeated(20000), u"defgh"_s, 20000},
            {u"\t\U0001D538\ttail"_s, u"tail"_s, 1},
        };
        for (const auto& [code, expected, times] : rows) {
            Printed p;
            p.memo.MemoDescription = code.left(3000);
            const qint32 id = p.save(u"n\0\u202E שם <h1>"_s, code, 3, code.left(3000));
            QVERIFY(p.print({id}));
            const QString text = p.text(u"-raw"_s).remove(QRegularExpression(u"\\s"_s));
            // Where a row ends, the number of the page may stand between two parts of a word.
            QVERIFY2(text.count(expected) >= times - times / 40, qPrintable(text.left(500)));
            QVERIFY(text.count(u',') >= code.count(u',')); // nothing is cut off
        }
    }

    void pagesAndCopies()
    {
        Printed p;
        const qint32 id = p.save(u"long"_s, lines(400));
        QVERIFY(p.print({id}));
        const QString whole = p.text();
        const auto all = whole.count(u'\f');
        QCOMPARE(whole.count(u"int value;\n"_s), 400);
        int first = 2;
        p.printing.onChoose = [&first](QPrinter& printer) {
            printer.setPrintRange(QPrinter::PageRange);
            printer.setFromTo(first, first + 1);
            printer.setPageOrder(QPrinter::LastPageFirst);
            printer.setCopyCount(2);
        };
        QVERIFY(p.print({id}));
        const QRegularExpression page(u"(?s).*?Page (\\d+) of %1\\s*"_s.arg(all));
        QCOMPARE(p.text().replace(page, u"\\1 "_s), u"3 2 3 2 "_s);
        first = 90;
        p.questions.expect(u"Error in PrintMemo: There are only %1 pages."_s.arg(all));
        QVERIFY(!p.print({id}));
    }

    void stoppedAndFailed()
    {
        Printed p;
        const qint32 id = p.save(u"big"_s, lines(20000));
        writeFile(p.pdf, "old");
        whenModal([](QWidget& window) { dynamic_cast<QProgressDialog&>(window).cancel(); });
        QVERIFY(!p.print({id})); // no message: it was the user
        QCOMPARE(bytesOf(p.pdf), "old"_ba);

        p.printing.files.push_back(QString()); // the dialog was cancelled
        QVERIFY(!printMemos(nullptr, p.archive, p.desktop, {id}));
        p.questions.expect(u"Error in PrintMemo: The memo is no longer in the archive."_s);
        QVERIFY(!printMemos(nullptr, p.archive, p.desktop, {id + 1}));

        // A disk that becomes full.
        rlimit usual{};
        getrlimit(RLIMIT_FSIZE, &usual);
        const rlimit small{6000, usual.rlim_max};
        auto* before = std::signal(SIGXFSZ, SIG_IGN);
        p.printing.onChoose = [&](QPrinter&) { setrlimit(RLIMIT_FSIZE, &small); };
        p.questions.expect({});
        p.pdf = p.scratch.path(u"new.pdf"_s);
        const bool printed = p.print({p.save(u"short"_s, lines(300))});
        setrlimit(RLIMIT_FSIZE, &usual);
        std::signal(SIGXFSZ, before);
        QVERIFY(!printed);
        QVERIFY2(p.questions.asked.last().text.contains(u"full"_s), qPrintable(p.questions.asked.last().text));
        QVERIFY(!QFile::exists(p.pdf));
    }

    void fromTheEditor()
    {
        Printed p;
        p.filter.EditingModeMemoID = p.save(u"stored"_s, u"int stored;\n"_s, 3, u"stored note"_s);
        p.show(
            std::make_unique<frmSnipVale>(EditorContext{p.archive, p.desktop, p.filter, p.listener}, p.memo, nullptr));
        QVERIFY(p.loaded && QTest::qWaitForWindowActive(p.window.get()));
        p.box("txtMemoName").setText(u"unsaved"_s);
        p.get<ScintillaView>("codeEditor").setText(lines(300).toUtf8());
        p.printing.files.push_back(p.pdf);
        QTest::keyClick(p.window->focusWidget(), Qt::Key_P, Qt::ControlModifier);
        const QString memo = p.text();
        for (const QString& part : {u"unsaved"_s, u"int value;"_s, u"stored note"_s})
            QVERIFY2(memo.contains(part), qPrintable(memo));
        p.printing.files.push_back(p.pdf); // the notes alone
        p.get<QToolBar>("tbToolBarNote").findChild<QAction*>(u"Print"_s)->trigger();
        QVERIFY2(p.text().contains(u"stored note"_s) && !p.text().contains(u"value"_s), qPrintable(p.text()));
        whenModal([&](QWidget& window) {
            QCOMPARE(window.objectName(), u"frmPrintPreview"_s);
            auto* page = window.findChild<QSpinBox*>(u"page"_s);
            const auto action = [&](const char* name) { return window.findChild<QAction*>(QLatin1String(name)); };
            QTRY_VERIFY(page->maximum() > 3);
            action("Last")->trigger();
            QCOMPARE(page->value(), page->maximum());
            QVERIFY(!action("Next")->isEnabled());
            p.printing.files.push_back(p.pdf);
            action("Print")->trigger();
        });
        p.window->findChild<QAction*>(u"PrintPreview"_s)->trigger();
        QCOMPARE(p.text().count(u"int value;"_s), 300);
    }
};

SNIPVALE_TEST(tst_MemoPrint)
#include "tst_MemoPrint.moc"
