// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "app/Home.h"
#include "app/Settings.h"
#include "app/modRegistry.h"
#include "app/modSnipVale.h"

#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

void write(const QString& name, const QByteArray& bytes)
{
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(bytes);
}

QByteArray bytesOf(const QString& name)
{
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A program directory with the shipped archive under two names and an ini of the test's.
struct Home {
    explicit Home(const QByteArray& ini) : program(questions, clock, shell)
    {
        if (!ini.isNull())
            write(scratch.path(u"snipvale.ini"_s), ini);
        program.AppPath = scratch.folder();
    }
    ScratchArchive scratch;
    ScriptedQuestions questions;
    ManualClock clock;
    ScriptedShell shell;
    modSnipVale program;
};

} // namespace

class tst_Settings : public QObject {
    Q_OBJECT
private slots:
    void readingValues_data();
    void readingValues();
    void writingKeepsTheRest_data();
    void writingKeepsTheRest();
    void writingFails();
    void booleans_data();
    void booleans();
    void archivePath_data();
    void archivePath();
    void missingIni();
    void badLookReachesMain();
    void captions();
    void homeFolders_();
    void runAtStart();
    void otherRegistryKeys();
};

void tst_Settings::readingValues_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QString>("value");
    QTest::newRow("plain") << QByteArray("[setup]\ndbfullpath=a.SVA\n") << u"a.SVA"_s;
    QTest::newRow("letter case, blanks") << QByteArray("; x\r\n[ SetUp ]\r\n DbFullPath =  /a b/c.SVA \r\n")
                                         << u"/a b/c.SVA"_s;
    QTest::newRow("quotes") << QByteArray("[setup]\ndbfullpath=\" x.SVA \"\n") << u" x.SVA "_s;
    QTest::newRow("backslashes") << QByteArray("[setup]\ndbfullpath=D:\\x\\new\\t.sva\n") << u"D:\\x\\new\\t.sva"_s;
    QTest::newRow("utf-8") << QByteArray("[setup]\ndbfullpath=/данные/архив.SVA") << u"/данные/архив.SVA"_s;
    QTest::newRow("latin-1") << QByteArray("[setup]\ndbfullpath=/caf\xE9.SVA") << u"/café.SVA"_s;
    QTest::newRow("bom") << QByteArray("\xEF\xBB\xBF[setup]\ndbfullpath=a") << u"a"_s;
    QTest::newRow("equals sign in the value") << QByteArray("[setup]\ndbfullpath=a=b") << u"a=b"_s;
    QTest::newRow("other section") << QByteArray("[other]\ndbfullpath=b\n[setup]\nx=1\n[third]\ndbfullpath=c")
                                   << u"fallback"_s;
    QTest::newRow("commented out") << QByteArray("[setup]\n;dbfullpath=b\n") << u"fallback"_s;
    QTest::newRow("cut") << QByteArray("[setup]\ndbfullpath=" + QByteArray(200, 'x')) << QString(128, u'x');
    QTest::newRow("empty value") << QByteArray("[setup]\ndbfullpath=\n") << QString();
}

void tst_Settings::readingValues()
{
    QFETCH(QByteArray, ini);
    QTemporaryDir folder;
    write(folder.filePath(u"x.ini"_s), ini);
    QTEST(readProfile(folder.filePath(u"x.ini"_s), u"setup"_s, u"dbfullpath"_s, u"fallback"_s), "value");
}

void tst_Settings::writingKeepsTheRest_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("changed in place")
        << QByteArray("; mine\r\n[setup]\r\nDbFullPath = old\r\nodd line\r\n[p]\r\nx=1\r\n")
        << QByteArray("; mine\r\n[setup]\r\nDbFullPath =D:\\n.sva\r\nodd line\r\n[p]\r\nx=1\r\n");
    QTest::newRow("added to the section")
        << QByteArray("[setup]\nx=1\n\n[p]\ny=2") << QByteArray("[setup]\nx=1\ndbfullpath=D:\\n.sva\n\n[p]\ny=2");
    QTest::newRow("section added") << QByteArray("[p]\ny=2") << QByteArray("[p]\ny=2\n[setup]\ndbfullpath=D:\\n.sva\n");
    QTest::newRow("new file") << QByteArray("") << QByteArray("[setup]\ndbfullpath=D:\\n.sva\n");
    QTest::newRow("foreign bytes stay") << QByteArray("\xFF\xFE=1\n[setup]\ndbfullpath=o")
                                        << QByteArray("\xFF\xFE=1\n[setup]\ndbfullpath=D:\\n.sva");
}

void tst_Settings::writingKeepsTheRest()
{
    QFETCH(QByteArray, before);
    QTemporaryDir folder;
    const QString file = folder.filePath(u"x.ini"_s);
    write(file, before);
    QVERIFY(writeProfile(file, u"setup"_s, u"dbfullpath"_s, u"D:\\n.sva"_s));
    QTEST(bytesOf(file), "after");
    QVERIFY(writeProfile(file, u"setup"_s, u"dbfullpath"_s, u" '/a b'"_s)); // reads back as it was written
    QCOMPARE(readProfile(file, u"setup"_s, u"dbfullpath"_s, QString()), u" '/a b'"_s);
}

void tst_Settings::writingFails()
{
    QTemporaryDir folder;
    QVERIFY(!writeProfile(folder.filePath(u"no/such/folder.ini"_s), u"s"_s, u"k"_s, u"v"_s));
    const QString file = folder.filePath(u"x.ini"_s);
    write(file, "[s]\nk=1\n");
    QVERIFY(!writeProfile(file, u"s"_s, u"k"_s, u"2\n[other]"_s)); // a value cannot smuggle lines in
    QCOMPARE(bytesOf(file), QByteArray("[s]\nk=1\n"));
}

void tst_Settings::booleans_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value"); // -1: no boolean
    for (const auto& [text, value] : {std::pair{"1", 1},
                                      {"True", 1},
                                      {"tRUE", 1},
                                      {"-1", 1},
                                      {"0.5", 1},
                                      {" 1 ", 1},
                                      {"0", 0},
                                      {"False", 0},
                                      {"yes", -1},
                                      {"  ", -1}})
        QTest::newRow(text) << QString::fromLatin1(text) << value;
}

void tst_Settings::booleans()
{
    QFETCH(QString, text);
    QFETCH(int, value);
    if (value < 0)
        QVERIFY_THROWS_EXCEPTION(std::invalid_argument, textToBoolean(text));
    else
        QCOMPARE(textToBoolean(text), value == 1);
}

void tst_Settings::archivePath_data()
{
    QTest::addColumn<QByteArray>("ini");
    QTest::addColumn<QString>("path"); // $ is the program directory
    QTest::addColumn<bool>("exists");
    QTest::addColumn<bool>("flat");
    QTest::newRow("a name") << QByteArray("[setup]\ndbfullpath=scratch.SVA\n[preferences]\nxplook=1")
                            << u"$/scratch.SVA"_s << true << true;
    QTest::newRow("no key") << QByteArray("[preferences]\nxplook=0") << u"$/snipvale.ini"_s << true << false;
    QTest::newRow("no section") << QByteArray("[setup]\ndbfullpath=scratch.SVA") << u"$/scratch.SVA"_s << true << false;
    QTest::newRow("a windows path") << QByteArray("[setup]\ndbfullpath=D:\\x\\data.sva\n[preferences]\nxplook=True")
                                    << u"D:\\x\\data.sva"_s << false << true;
    QTest::newRow("a path") << QByteArray("[setup]\ndbfullpath=/no/such/data.sva\n[preferences]\nxplook=")
                            << u"/no/such/data.sva"_s << false << false;
}

void tst_Settings::archivePath()
{
    QFETCH(QByteArray, ini);
    QFETCH(QString, path);
    QFETCH(bool, exists);
    Home home(ini);
    if (!exists)
        home.questions.expect(u"Specified archive file does not exist. Check menu tools->options"_s);
    QVERIFY(home.program.ReadSettings());
    path.replace(u'$', home.scratch.folder());
    QCOMPARE(home.program.archive.ArchivePath(), path);
    QCOMPARE(home.program.archive.ConnectionString(), u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s + path + u';');
    QTEST(home.program.XPLook, "flat");
}

void tst_Settings::missingIni()
{
    Home home{QByteArray()};
    home.questions.expect(u"I cannot read ini file.\r\nCheck presence of file .ini in program directory!"_s);
    QVERIFY(!home.program.ReadSettings());
    QVERIFY(home.program.programEnds);
    QCOMPARE(home.questions.asked.last().style, MessageStyle::Critical);
}

void tst_Settings::badLookReachesMain()
{
    Home home("[setup]\ndbfullpath=scratch.SVA\n[preferences]\nxplook=pretty");
    QVERIFY_THROWS_EXCEPTION(std::invalid_argument, home.program.ReadSettings());
}

void tst_Settings::captions()
{
    Home home("[setup]\ndbfullpath=scratch.SVA");
    home.program.archive.setPath(u"C:\\Data\\mine.sva"_s);
    QCOMPARE(home.program.captionAtStart(), u" SnipVale 3.1.12 - [mine.sva]"_s);
    home.program.archive.setPath(u"/data/mine.sva"_s);
    QCOMPARE(home.program.captionAtStart(), u" SnipVale 3.1.12 - [mine.sva]"_s);
    QCOMPARE(home.program.captionWithPath(), u"SnipVale 3.1.12  [/data/mine.sva]"_s);
    home.program.HelpWeb();
    QVERIFY(home.shell.opened.value(0).startsWith("https://"_L1));
}

void tst_Settings::homeFolders_()
{
    QTemporaryDir folder;
    const QString bin = folder.filePath(u"bin"_s);
    QVERIFY(QDir().mkpath(bin));
    QCOMPARE(homeFolders(folder.filePath(u"x/../h"_s), bin, u"/data/snipvale"_s).home, folder.filePath(u"h"_s));
    QCOMPARE(homeFolders(QString(), bin, u"/data/snipvale"_s).home, u"/data/snipvale"_s);
    write(bin + u"/snipvale.ini"_s, "");
    QCOMPARE(homeFolders(QString(), bin, u"/data/snipvale"_s).home, bin);

    HomeFolders folders{folder.filePath(u"new/home"_s), QStringLiteral(SHIPPED_DIR)};
    prepareHome(folders);
    QVERIFY(QFileInfo(folders.home + u"/snipvale.SVA"_s).isWritable());
    QCOMPARE(readProfile(folders.home + u"/snipvale.ini"_s, u"setup"_s, u"dbfullpath"_s, QString()), u"snipvale.SVA"_s);
    QVERIFY(QFile::remove(folders.home + u"/snipvale.ini"_s));
    prepareHome(folders); // a home that exists is nobody's to fill
    QVERIFY(!QFile::exists(folders.home + u"/snipvale.ini"_s));
    folders.home = bin + u"/snipvale.ini/home"_s; // below a file
    QVERIFY_THROWS_EXCEPTION(std::runtime_error, prepareHome(folders));
}

void tst_Settings::runAtStart()
{
    QTemporaryDir config;
    modRegistry registry(config.path());
    const QString key = u"Software\\Microsoft\\Windows\\CurrentVersion\\Run"_s;
    constexpr quint32 root = modRegistry::HKEY_LOCAL_MACHINE;
    registry.DeleteRegValue(root, key, u"SnipVale"_s); // nothing there: nothing happens
    QCOMPARE(registry.GetRegValue(root, key.toUpper(), u"SnipVale"_s).toString(), QString());
    QVERIFY(registry.RegLastResult != 0);

    const QString program = u"/opt/my \"odd\" $dir/100%/back\\slash/snipvale"_s;
    registry.SetRegValue(root, key, u"SnipVale"_s, program);
    QCOMPARE(registry.RegLastResult, 0);
    QCOMPARE(registry.GetRegValue(root, key.toUpper(), u"snipvale"_s).toString(), program);
    const QByteArray entry = bytesOf(config.filePath(u"autostart/snipvale.desktop"_s));
    QVERIFY(entry.startsWith("[Desktop Entry]\nType=Application\n"));
    QVERIFY(entry.contains(R"(Exec="/opt/my \\"odd\\" \\$dir/100%%/back\\\\slash/snipvale")"));

    registry.DeleteRegValue(root, key, u"SnipVale"_s);
    QVERIFY(!QFile::exists(config.filePath(u"autostart/snipvale.desktop"_s)));
    modRegistry unwritable(u"/proc/nowhere"_s);
    unwritable.SetRegValue(root, key, u"SnipVale"_s, program); // refused, silently
    QCOMPARE(unwritable.GetRegValue(root, key, u"SnipVale"_s).toString(), QString());
}

void tst_Settings::otherRegistryKeys()
{
    QTemporaryDir config;
    modRegistry registry(config.path());
    constexpr quint32 root = modRegistry::HKEY_LOCAL_MACHINE;
    QVERIFY(!registry.RegKeyExists(root, u"Software\\Mine"_s));
    registry.CreateRegKey(root, u"Software\\Mine"_s);
    QVERIFY(registry.RegKeyExists(root, u"SOFTWARE\\mine"_s));
    registry.SetRegValue(root, u"Software\\Mine"_s, u"Count"_s, 42);
    registry.SetRegValue(root, u"Software\\Mine"_s, u"Name"_s, u"x, y; z\\n"_s);
    QCOMPARE(registry.GetRegValue(root, u"Software\\Mine"_s, u"COUNT"_s).toInt(), 42);
    QCOMPARE(registry.GetRegValue(root, u"Software\\Mine"_s, u"name"_s).toString(), u"x, y; z\\n"_s);
    registry.DeleteRegValue(root, u"Software\\Mine"_s, u"name"_s);
    QCOMPARE(registry.GetRegValue(root, u"Software\\Mine"_s, u"name"_s).toString(), QString());
}

SNIPVALE_TEST(tst_Settings)
#include "tst_Settings.moc"
