// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The tool that builds the shipped archive refuses a faulty recipe and keeps what was there.

#include "support/Registry.h"
#include <QCoreApplication>
#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

QByteArray bytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void write(const QString& path, const QByteArray& text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size())
        qFatal("cannot write %s", qPrintable(path));
}

// A copy of the recipe that a test may spoil, and what the tool makes of it.
class Workshop {
public:
    Workshop()
    {
        const QString source = QStringLiteral(SOURCE_DIR "/data/archive/");
        QDir().mkpath(recipe(u"keywords"_s));
        QDirIterator files(source, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString file = files.next();
            write(recipe(file.mid(source.size())), bytes(file));
        }
    }

    QString recipe(const QString& file) const { return m_folder.filePath(u"recipe/"_s + file); }
    QString archive() const { return m_folder.filePath(u"made.SVA"_s); }
    QStringList left() const { return QDir(m_folder.path()).entryList(QDir::Files); }

    int run()
    {
        QProcess tool;
        tool.start(QCoreApplication::applicationDirPath() + u"/makearchive"_s, {recipe({}), archive()});
        tool.waitForFinished();
        complaint = QString::fromUtf8(tool.readAllStandardError());
        return tool.exitStatus() == QProcess::NormalExit ? tool.exitCode() : -1;
    }

    QString complaint;

private:
    QTemporaryDir m_folder;
};

} // namespace

class tst_makearchive : public QObject {
    Q_OBJECT

private slots:
    void refuses_data();
    void refuses();
    void replaces();
};

void tst_makearchive::refuses_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("added"); // at the end of the file
    QTest::addColumn<QString>("complaint");
    const auto row = [](const char* name, const QString& file, const QByteArray& added, const QString& complaint) {
        QTest::newRow(name) << file << added << complaint;
    };
    const QString languages = u"languages.tsv"_s, styles = u"styles.tsv"_s, palette = u"palette.tsv"_s;
    row("a field too few", languages, "77\t1\t1\tA\tcpp\tAlpha\n", u"6 fields"_s);
    row("an empty field", languages, "77\t1\t1\tA\tcpp\t\tx\n", u"empty"_s);
    row("no number", languages, "x7\t1\t1\tA\tcpp\tAlpha\tx\n", u"'x7'"_s);
    row("no flag", languages, "77\t2\t1\tA\tcpp\tAlpha\tx\n", u"'2'"_s);
    row("no family", languages, "77\t1\t1\tA\tnone\tAlpha\tx\n", u"'none'"_s);
    row("number twice", languages, "3\t1\t1\tA\tcpp\tAlpha\tx\n", u"twice"_s);
    row("two families", languages, "77\t1\t1\tSCLEX_CPP\tperl\tAlpha\tx\n", u"another family"_s);
    row("style twice", styles, "cpp\t5\tagain\tkeyword\n", u"twice"_s);
    row("style too high", styles, "cpp\t256\thigh\tkeyword\n", u"'256'"_s);
    row("predefined style", styles, "cpp\t33\tlines\tkeyword\n", u"32 to 39"_s);
    row("no role", styles, "cpp\t120\tnew\tsparkling\n", u"'sparkling'"_s);
    row("unused family", styles, "idle\t1\tnew\tkeyword\n", u"'idle'"_s);
    row("no colour", palette, "new\t#12345\t#FFFFFF\t-\n", u"'#12345'"_s);
    row("no font word", palette, "new\t#123456\t#FFFFFF\tbold fat\n", u"'fat'"_s);
    row("unused role", palette, "new\t#123456\t#FFFFFF\t-\n", u"'new'"_s);
    row("word twice", u"keywords/SCLEX_LUA.txt"_s, "while\n", u"'while'"_s);
    row("two blanks", u"keywords/SCLEX_LUA.txt"_s, "one  two\n", u"blank"_s);
    row("words of nobody", u"keywords/SCLEX_NOBODY.txt"_s, "one\n", u"SCLEX_NOBODY.txt"_s);
    row("unended line", u"keywords/SCLEX_LUA.txt"_s, "one", u"not ended"_s);
    row("no UTF-8", languages, "\xff\n", u"UTF-8"_s);
    row("bad statement", u"schema.sql"_s, "CREATE TABEL x\n;\n", u"schema.sql:"_s);
    row("unended statement", u"schema.sql"_s, "CREATE TABLE x (y LONG)\n", u"no ';'"_s);
}

void tst_makearchive::refuses()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, added);
    QFETCH(QString, complaint);
    Workshop workshop;
    write(workshop.archive(), "was here before");
    const QByteArray before = bytes(workshop.recipe(file));
    write(workshop.recipe(file), before + added);
    QCOMPARE(workshop.run(), 1);
    QVERIFY2(workshop.complaint.contains(complaint), qPrintable(workshop.complaint));
    QVERIFY2(workshop.complaint.contains(file.section(u'/', -1)), qPrintable(workshop.complaint));
    if (file == u"languages.tsv"_s && added.contains('\t')) // the very line is named
        QVERIFY2(workshop.complaint.contains(u":%1:"_s.arg(before.count('\n') + 1)), qPrintable(workshop.complaint));
    QCOMPARE(bytes(workshop.archive()), "was here before"_ba);
    QCOMPARE(workshop.left(), QStringList{u"made.SVA"_s});
}

// A good recipe takes the place of what was there, always with the same bytes.
void tst_makearchive::replaces()
{
    Workshop workshop;
    write(workshop.archive(), "was here before");
    QVERIFY2(workshop.run() == 0, qPrintable(workshop.complaint));
    QCOMPARE(workshop.complaint, QString());
    QCOMPARE(workshop.left(), QStringList{u"made.SVA"_s});
    QVERIFY(bytes(workshop.archive()) == bytes(QStringLiteral(SHIPPED_DIR "/snipvale.SVA")));
}

SNIPVALE_TEST(tst_makearchive)
#include "tst_makearchive.moc"
