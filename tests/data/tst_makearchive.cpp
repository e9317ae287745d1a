// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later

// The tool that builds the shipped archive refuses a faulty recipe and keeps what was there.

#include "support/CoreSupport.h"
#include "support/Registry.h"

#include <QDirIterator>
#include <QProcess>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

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
            writeFile(recipe(file.mid(source.size())), bytesOf(file));
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
        complaint = tool.readAllStandardError();
        return tool.exitStatus() == QProcess::NormalExit ? tool.exitCode() : -1;
    }

    QByteArray complaint;

private:
    QTemporaryDir m_folder;
};

} // namespace

class tst_makearchive : public QObject {
    Q_OBJECT

private slots:
    void refuses()
    {
        const QByteArray rows[][3] = {// a file, what is added at its end, and the complaint
                                      {"languages.tsv", "77\t1\t1\tA\tcpp\tAlpha\n", "6 fields"},
                                      {"languages.tsv", "x7\t1\t1\tA\tcpp\tAlpha\tx\n", "'x7'"},
                                      {"languages.tsv", "77\t1\t1\tA\tnone\tAlpha\tx\n", "'none'"},
                                      {"languages.tsv", "3\t1\t1\tA\tcpp\tAlpha\tx\n", "twice"},
                                      {"languages.tsv", "\xff\n", "UTF-8"},
                                      {"styles.tsv", "cpp\t120\tnew\tsparkling\n", "'sparkling'"},
                                      {"palette.tsv", "new\t#12345\t#FFFFFF\t-\n", "'#12345'"},
                                      {"keywords/SCLEX_LUA.txt", "while\n", "'while'"},
                                      {"keywords/SCLEX_LUA.txt", "one", "not ended"},
                                      {"keywords/SCLEX_NOBODY.txt", "one\n", "SCLEX_NOBODY.txt"},
                                      {"schema.sql", "CREATE TABEL x\n;\n", "schema.sql:"},
                                      {"schema.sql", "CREATE TABLE x (y LONG)\n", "no ';'"}};
        for (const auto& [file, added, complaint] : rows) {
            Workshop workshop;
            writeFile(workshop.archive(), "was here before");
            const QString spoilt = workshop.recipe(QString::fromLatin1(file));
            writeFile(spoilt, bytesOf(spoilt) + added);
            QCOMPARE(workshop.run(), 1);
            QVERIFY2(workshop.complaint.contains(complaint), workshop.complaint.constData());
            QVERIFY2(workshop.complaint.contains(file.mid(file.indexOf('/') + 1)), workshop.complaint.constData());
            QCOMPARE(bytesOf(workshop.archive()), "was here before"_ba);
            QCOMPARE(workshop.left(), QStringList{u"made.SVA"_s});
        }
    }

    // A good recipe takes the place of what was there, always with the same bytes.
    void replaces()
    {
        Workshop workshop;
        writeFile(workshop.archive(), "was here before");
        QVERIFY2(workshop.run() == 0, workshop.complaint.constData());
        QCOMPARE(workshop.left(), QStringList{u"made.SVA"_s});
        QVERIFY(bytesOf(workshop.archive()) == bytesOf(QStringLiteral(SHIPPED_DIR "/snipvale.SVA")));
    }
};

SNIPVALE_TEST(tst_makearchive)
#include "tst_makearchive.moc"
