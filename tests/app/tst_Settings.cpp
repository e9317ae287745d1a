// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "app/Settings.h"
#include "app/modRegistry.h"
#include "app/modSnipVale.h"

#include <QtTest>

using namespace Qt::StringLiterals;

class tst_Settings : public QObject {
    Q_OBJECT
private slots:
    void readingValues()
    {
        const std::pair<QByteArray, QString> rows[] = {
            {"; x\r\n[ SetUp ]\r\n DbFullPath =  /a b/c.SVA \r\n", u"/a b/c.SVA"_s},
            {"[setup]\ndbfullpath=\" x.SVA \"\n", u" x.SVA "_s},
            {"[setup]\ndbfullpath=/caf\xE9.SVA", u"/café.SVA"_s},
            {"\xEF\xBB\xBF[setup]\ndbfullpath=/данные/a=b", u"/данные/a=b"_s},
            {"[other]\ndbfullpath=b\n[setup]\nx=1\n;dbfullpath=b\n[third]\ndbfullpath=c", u"fallback"_s},
            {"[setup]\ndbfullpath=" + QByteArray(200, 'x'), QString(128, u'x')},
            {"[setup]\ndbfullpath=\n", QString()}};
        QTemporaryDir folder;
        const QString file = folder.filePath(u"x.ini"_s);
        for (const auto& [ini, value] : rows) {
            writeFile(file, ini);
            QCOMPARE(readProfile(file, u"setup"_s, u"dbfullpath"_s, u"fallback"_s), value);
        }
        const QStringList yes = u"1,tRUE,-1,0.5, 1 "_s.split(u',');
        QVERIFY(std::all_of(yes.begin(), yes.end(), textToBoolean));
        QVERIFY(!textToBoolean(u"0"_s) && !textToBoolean(u"False"_s));
        QVERIFY_THROWS_EXCEPTION(std::invalid_argument, textToBoolean(u"yes"_s));
    }

    void writingKeepsTheRest()
    {
        const std::pair<QByteArray, QByteArray> rows[] = {
            {"; mine\r\n[setup]\r\nDbFullPath = old\r\nodd line\r\n[p]\r\nx=1\r\n",
             "; mine\r\n[setup]\r\nDbFullPath =D:\\n.sva\r\nodd line\r\n[p]\r\nx=1\r\n"},
            {"[setup]\nx=1\n\n[p]\ny=2", "[setup]\nx=1\ndbfullpath=D:\\n.sva\n\n[p]\ny=2"},
            {"[p]\ny=2", "[p]\ny=2\n[setup]\ndbfullpath=D:\\n.sva\n"},
            {"\xFF\xFE=1\n[setup]\ndbfullpath=o", "\xFF\xFE=1\n[setup]\ndbfullpath=D:\\n.sva"}};
        QTemporaryDir folder;
        const QString file = folder.filePath(u"x.ini"_s);
        for (const auto& [before, after] : rows) {
            writeFile(file, before);
            QVERIFY(writeProfile(file, u"setup"_s, u"dbfullpath"_s, u"D:\\n.sva"_s));
            QCOMPARE(bytesOf(file), after);
            QVERIFY(!writeProfile(file, u"setup"_s, u"dbfullpath"_s, u"2\n[other]"_s)); // no lines smuggled in
            QVERIFY(writeProfile(file, u"setup"_s, u"dbfullpath"_s, u" '/a b'"_s)); // reads back as it was written
            QCOMPARE(readProfile(file, u"setup"_s, u"dbfullpath"_s, QString()), u" '/a b'"_s);
        }
    }

    void settingsOfTheProgram()
    {
        ScratchArchive scratch;
        ScriptedQuestions questions;
        ManualClock clock;
        ScriptedShell shell;
        modSnipVale program(questions, clock, shell);
        program.AppPath = scratch.folder();
        questions.expect(u"I cannot read ini file.\r\nCheck presence of file .ini in program directory!"_s);
        QVERIFY(!program.ReadSettings() && program.programEnds);

        const std::tuple<QByteArray, QString, bool, bool> rows[] = {
            // archive, is it there, flat look
            {"[setup]\ndbfullpath=scratch.SVA\n[preferences]\nxplook=1", scratch.path(), true, true},
            {"[preferences]\nxplook=0", scratch.path(u"snipvale.ini"_s), true, false},
            {"[setup]\ndbfullpath=D:\\x\\data.sva\n[preferences]\nxplook=", u"D:\\x\\data.sva"_s, false, false}};
        for (const auto& [ini, path, isThere, isFlat] : rows) {
            writeFile(scratch.path(u"snipvale.ini"_s), ini);
            if (!isThere)
                questions.expect(u"Specified archive file does not exist. Check menu tools->options"_s);
            QVERIFY(program.ReadSettings());
            QCOMPARE(program.archive.ConnectionString(),
                     u"Provider=Microsoft.Jet.OLEDB.4.0;Data Source="_s + path + u';');
            QCOMPARE(program.XPLook, isFlat);
        }
        QCOMPARE(program.captionAtStart(), u" SnipVale 3.1.12 - [data.sva]"_s);
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, program.helpFolder());
        program.ShippedPath = QStringLiteral(SHIPPED_DIR);
        QCOMPARE(program.helpFolder(), QStringLiteral(SHIPPED_DIR "/help"));
        program.HelpWeb();
        QVERIFY(shell.opened.value(0).startsWith("https://"_L1));
    }

    void homes()
    {
        QTemporaryDir folder;
        const QString bin = folder.filePath(u"bin"_s);
        QVERIFY(QDir().mkpath(bin));
        QCOMPARE(homeFolders(folder.filePath(u"x/../h"_s), bin, u"/data/snipvale"_s).home, folder.filePath(u"h"_s));
        QCOMPARE(homeFolders(QString(), bin, u"/data/snipvale"_s).home, u"/data/snipvale"_s);
        writeFile(bin + u"/snipvale.ini"_s, "");
        QCOMPARE(homeFolders(QString(), bin, u"/data/snipvale"_s).home, bin);

        HomeFolders folders{folder.filePath(u"new/home"_s), QStringLiteral(SHIPPED_DIR)};
        prepareHome(folders);
        QVERIFY(QFileInfo(folders.home + u"/snipvale.SVA"_s).isWritable());
        QCOMPARE(readProfile(folders.home + u"/snipvale.ini"_s, u"setup"_s, u"dbfullpath"_s, QString()),
                 u"snipvale.SVA"_s);
        QVERIFY(QFile::remove(folders.home + u"/alert.wav"_s));
        prepareHome(folders); // a home that exists is nobody's to fill
        QVERIFY(!QFile::exists(folders.home + u"/alert.wav"_s));
        folders.home = bin + u"/snipvale.ini/home"_s; // below a file
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, prepareHome(folders));
    }

    void runAtStart()
    {
        QTemporaryDir config;
        modRegistry registry(config.path(), {u"--home"_s, u"/x"_s});
        const QString key = u"Software\\Microsoft\\Windows\\CurrentVersion\\Run"_s;
        constexpr quint32 root = modRegistry::HKEY_LOCAL_MACHINE;
        const auto value = [&] { return registry.GetRegValue(root, key.toUpper(), u"snipvale"_s).toString(); };
        QVERIFY(value().isEmpty());
        const QString program = u"/opt/my \"odd\" $dir/100%/back\\slash/snipvale"_s;
        registry.SetRegValue(root, key, u"SnipVale"_s, program);
        QCOMPARE(value(), program);
        const QString file = config.filePath(u"autostart/snipvale.desktop"_s);
        const QByteArray entry = bytesOf(file);
        QVERIFY(entry.contains(R"(Exec="/opt/my \\"odd\\" \\$dir/100%%/back\\\\slash/snipvale" "--home" "/x")"));
        writeFile(file, entry + "Hidden=true\n"); // the desktop's own settings switched it off
        QCOMPARE(value(), QString());
        registry.DeleteRegValue(root, key, u"SnipVale"_s);
        QVERIFY(!QFile::exists(file));
        const QString other = u"Software\\Mine"_s; // any other key
        QVERIFY(!registry.RegKeyExists(root, other));
        registry.SetRegValue(root, other, u"Name"_s, u"x, y; z\\n"_s);
        QVERIFY(registry.RegKeyExists(root, other.toUpper()));
        QCOMPARE(registry.GetRegValue(root, other, u"name"_s).toString(), u"x, y; z\\n"_s);
    }
};

SNIPVALE_TEST(tst_Settings)
#include "tst_Settings.moc"
