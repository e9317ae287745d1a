// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "app/modSnipVale.h"
#include "app/ui/frmOptions.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

// The dialog over a program directory and a configuration folder of its own.
struct Options : UiFixture {
    explicit Options(const QByteArray& ini = "[setup]\ndbfullpath=scratch.SVA\n")
    {
        qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
        program.AppPath = scratch.folder();
        program.IniFile = scratch.path(u"snipvale.ini"_s);
        writeFile(program.IniFile, ini);
        program.archive.setPath(scratch.path());
        open();
    }
    void open()
    {
        window = std::make_unique<frmOptions>(program, desktop, frame, nullptr);
        isLoaded = window->Form_Load();
        window->show();
    }
    void click(const char* name) { window->findChild<QAbstractButton*>(QLatin1String(name))->click(); }
    bool isOn(const char* name) { return window->findChild<QAbstractButton*>(QLatin1String(name))->isChecked(); }
    QLineEdit& path() { return *window->findChild<QLineEdit*>(u"txtDefaultDb"_s); }
    QTreeView& list() { return *window->findChild<QTreeView*>(u"lvwLanguage"_s); }
    QModelIndex perl()
    {
        return list().model()->match(list().model()->index(0, 0), Qt::DisplayRole, u"Perl"_s, 1).value(0);
    }
    QByteArray ini() { return bytesOf(program.IniFile); }
    QString entry() { return config.filePath(u"autostart/snipvale.desktop"_s); }

    QTemporaryDir config;
    modSnipVale program{questions, clock, shell};
    std::unique_ptr<frmOptions> window;
    bool isLoaded = false;
};

} // namespace

class tst_frmOptions : public QObject {
    Q_OBJECT
private slots:
    void everythingIsWritten()
    {
        Options o;
        QVERIFY(o.isLoaded && !o.isOn("chkRunAtStart") && o.isOn("optStileNormale"));
        QSignalSpy look(o.window.get(), &frmOptions::lookChanged);
        o.files.answers = {std::nullopt, u"/data/new.SVA"_s};
        o.click("cmdSelect"); // cancelled
        o.click("cmdSelect");
        o.click("chkRunAtStart");
        o.click("optStileXP");
        const QString connection = o.program.archive.ConnectionString();
        o.list().model()->setData(o.perl(), Qt::Unchecked, Qt::CheckStateRole);
        o.click("cmdClose");
        QVERIFY(!o.window->isVisible() && o.ini().endsWith("scratch.SVA\n") && !QFile::exists(o.entry()));
        o.click("cmdOK");
        QCOMPARE(o.ini(), QByteArray("[setup]\ndbfullpath=/data/new.SVA\n[preferences]\nxplook=1\n"));
        QCOMPARE(o.program.archive.ConnectionString(), connection);
        QVERIFY(o.program.XPLook && look.value(0).value(0).toBool());
        const QString exec = u"Exec=\"%1\" \"--home\" \"%2\"\n"_s; // the home is not the usual one
        QVERIFY(bytesOf(o.entry()).contains(
            exec.arg(QCoreApplication::applicationFilePath(), o.scratch.folder()).toUtf8()));
        o.open();
        QVERIFY(o.isOn("chkRunAtStart") && o.isOn("optStileXP"));
        QCOMPARE(o.perl().data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
        o.click("chkRunAtStart");
        o.click("optStileNormale");
        o.click("cmdOK");
        QVERIFY(!QFile::exists(o.entry()) && o.ini().endsWith("xplook=0\n") && !o.program.XPLook);
    }

    // What was not touched is not written, as only the start of a long one is shown. Nor is an empty one.
    void defaultArchive()
    {
        const QString cut = u'/' + QString(127, u'x');
        const std::tuple<QByteArray, QString, QString, QByteArray> rows[] = {
            {"dbfullpath=a.SVA", u"a.SVA"_s, u""_s, "dbfullpath=a.SVA"},
            {"x=1", u"snipvale.ini"_s, u"D:\\t\\n.sva"_s, "dbfullpath=D:\\t\\n.sva"},
            {"dbfullpath=/" + QByteArray(200, 'x'), cut, cut, "dbfullpath=/" + QByteArray(200, 'x')}};
        for (const auto& [before, shown, typed, after] : rows) {
            Options o("[setup]\n" + before + '\n');
            QCOMPARE(o.path().text(), shown);
            o.path().setText(typed);
            o.click("cmdOK");
            QVERIFY2(o.ini().contains(after + '\n'), o.ini().constData());
        }
        Options o;
        const QString path = u'/' + QString(128, u'ö'); // longer than what is read
        o.path().setText(path);
        for (const Answer answer : {Answer::No, Answer::Yes}) {
            o.questions.expect(QString(), answer);
            o.click("cmdOK");
            QCOMPARE(o.window->isVisible(), answer == Answer::No);
            QCOMPARE(o.ini().contains(path.toUtf8()), answer == Answer::Yes);
        }
    }

    void openingALanguage()
    {
        Options o;
        o.list().setCurrentIndex(o.perl());
        QString title;
        whenModal([&](QWidget& window) {
            title = window.windowTitle();
            window.close();
        });
        o.click("cmdLanguage");
        QCOMPARE(title, u"Styles Setting Language: Perl"_s);
        QVERIFY(o.frame.enabledCommands[u"miOptionsLanguage"_s]);
        ArchiveUnit(o.archive).Execute(u"UPDATE tab_memoType SET enabled = '0' WHERE memoTypeID = 6"_s);
        o.open();
        QVERIFY(!o.perl().isValid());
        o.window.reset();
        QVERIFY(!o.frame.enabledCommands[u"miOptionsLanguage"_s]);
    }

    void failures()
    {
        Options o;
        o.program.archive.setPath(o.scratch.path(u"gone.SVA"_s));
        o.questions.expect(QString());
        o.click("cmdOK");
        QVERIFY(o.questions.asked.last().text.startsWith("Error in cmdOK: "_L1) && o.window->isVisible());
        o.questions.expect(QString());
        o.open();
        o.path().setText(u"right.SVA"_s); // the archive's path can be put right all the same
        o.click("cmdOK");
        QVERIFY(!o.isLoaded && !o.window->isVisible() && o.ini().contains("right.SVA"));
    }
};

SNIPVALE_TEST(tst_frmOptions)
#include "tst_frmOptions.moc"
