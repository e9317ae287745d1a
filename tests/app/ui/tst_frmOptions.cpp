// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "app/modSnipVale.h"
#include "app/ui/CommandBars.h"
#include "app/ui/frmOptions.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QMainWindow>
#include <QToolBar>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// The dialog over a program directory and a configuration folder of its own.
struct Options : UiFixture {
    explicit Options(const QByteArray& ini = "; mine\n[setup]\ndbfullpath=scratch.SVA\nodd line\n")
    {
        qputenv("XDG_CONFIG_HOME", config.path().toUtf8());
        program.AppPath = scratch.folder();
        program.IniFile = scratch.path(u"snipvale.ini"_s);
        writeFile(program.IniFile, ini);
        program.archive.setPath(scratch.path());
        program.archive.onStatement = [this](const QString& sql) { statements.append(sql); };
        open();
    }
    void open()
    {
        window = std::make_unique<frmOptions>(program, desktop, frame, nullptr);
        QVERIFY(window->Form_Load());
        window->show();
        statements.clear();
    }
    template <typename Widget>
    Widget& get(const char* name)
    {
        auto* widget = window->findChild<Widget*>(QString::fromLatin1(name));
        if (!widget)
            qFatal("there is no %s", name);
        return *widget;
    }
    void click(const char* button) { get<QAbstractButton>(button).click(); }
    bool isOn(const char* button) { return get<QAbstractButton>(button).isChecked(); }
    QLineEdit& path() { return get<QLineEdit>("txtDefaultDb"); }
    QTreeView& list() { return get<QTreeView>("lvwLanguage"); }
    QModelIndex language(const char* name)
    {
        return list().model()->match(list().model()->index(0, 0), Qt::DisplayRole, QLatin1String(name), 1).value(0);
    }
    QByteArray ini() { return bytesOf(program.IniFile); }
    QString entry() { return config.filePath(u"autostart/snipvale.desktop"_s); }

    QTemporaryDir config;
    modSnipVale program{questions, clock, shell};
    std::unique_ptr<frmOptions> window;
};

} // namespace

class tst_frmOptions : public QObject {
    Q_OBJECT
private slots:
    void everythingIsWritten();
    void defaultArchive();
    void longPathAndClose();
    void openingALanguage();
    void failures();
    void looks();
};

void tst_frmOptions::everythingIsWritten()
{
    Options o;
    QVERIFY(!o.isOn("chkRunAtStart") && o.isOn("optStileNormale"));
    QSignalSpy look(o.window.get(), &frmOptions::lookChanged);
    o.files.answers = {std::nullopt, u"/data/new.SVA"_s};
    o.click("cmdSelect"); // cancelled
    o.click("cmdSelect");
    QCOMPARE(o.files.asked.last(), u"Select a default archive|SnipVale Archive(*.SVA) |*.SVA"_s);
    o.click("chkRunAtStart");
    o.click("optStileXP");
    const QString connection = o.program.archive.ConnectionString();
    o.list().model()->setData(o.language("Perl"), Qt::Unchecked, Qt::CheckStateRole);
    o.click("cmdOK");
    QVERIFY(!o.window->isVisible());
    QCOMPARE(o.ini(), QByteArray("; mine\n[setup]\ndbfullpath=/data/new.SVA\nodd line\n[preferences]\nxplook=1\n"));
    QCOMPARE(o.program.archive.ConnectionString(), connection);
    QVERIFY(o.program.XPLook && look.value(0).value(0).toBool());
    QCOMPARE(o.statements.size(), o.list().model()->rowCount());
    QVERIFY(o.statements.contains(u" UPDATE tab_memoType SET  visible  = '0'  WHERE memoTypeID = 6 "_s));
    const QByteArray exec = "Exec=\"" + QCoreApplication::applicationFilePath().toUtf8() + "\" \"--home\" \"" +
        o.scratch.folder().toUtf8() + "\"\n"; // the home is not the usual one
    QVERIFY(bytesOf(o.entry()).contains(exec));
    o.open();
    QVERIFY(o.isOn("chkRunAtStart") && o.isOn("optStileXP"));
    QCOMPARE(o.language("Perl").data(Qt::CheckStateRole).toInt(), int(Qt::Unchecked));
    o.click("chkRunAtStart");
    o.click("optStileNormale");
    o.click("cmdOK");
    QVERIFY(!QFile::exists(o.entry()) && o.ini().endsWith("xplook=0\n") && !o.program.XPLook);
}

void tst_frmOptions::defaultArchive()
{
    const QString cut = u'/' + QString(127, u'x'); // what is read of a long one
    const std::tuple<QByteArray, QString, QString, QByteArray> rows[] = {
        {"dbfullpath=a.SVA", u"a.SVA"_s, u""_s, "dbfullpath=a.SVA"},
        {"dbfullpath=a.SVA", u"a.SVA"_s, u"b c.SVA"_s, "dbfullpath=b c.SVA"},
        {"x=1", u"snipvale.ini"_s, u"D:\\t\\n.sva"_s, "dbfullpath=D:\\t\\n.sva"},
        {"dbfullpath=/" + QByteArray(200, 'x'), cut, cut, "dbfullpath=/" + QByteArray(200, 'x')}};
    for (const auto& [before, shown, typed, after] : rows) {
        Options o("[setup]\n" + before + '\n');
        QCOMPARE(o.path().text(), shown);
        o.path().setText(typed);
        o.click("cmdOK");
        QVERIFY2(o.ini().contains(after + '\n'), o.ini().constData());
    }
}

void tst_frmOptions::longPathAndClose()
{
    Options o;
    const QByteArray before = o.ini();
    const QString path = u'/' + QString(128, u'ö');
    o.path().setText(path);
    o.questions.expect(QString(), Answer::No);
    o.click("cmdOK");
    QVERIFY(o.questions.asked.last().text.contains("129 characters"_L1));
    QVERIFY(o.window->isVisible());
    o.click("chkRunAtStart");
    o.click("optStileXP");
    o.click("cmdClose");
    QVERIFY(!o.window->isVisible() && o.ini() == before && o.statements.isEmpty() && !QFile::exists(o.entry()));
    o.questions.expect(QString(), Answer::Yes);
    o.click("cmdOK");
    QVERIFY(o.ini().contains(path.toUtf8()));
    o.window.reset();
    QVERIFY(!o.frame.enabledCommands[u"miOptionsLanguage"_s]);
}

void tst_frmOptions::openingALanguage()
{
    Options o;
    o.get<QTabWidget>("TabStrip1").setCurrentIndex(1);
    const QModelIndex perl = o.language("Perl");
    o.list().setCurrentIndex(perl);
    o.list().scrollTo(perl);
    QCOMPARE(perl.data(Qt::UserRole).toString() + perl.data(Qt::UserRole + 1).toString(), u"6 IDSCLEX_PERL"_s);
    QVERIFY(o.frame.enabledCommands[u"miOptionsLanguage"_s]);
    const QPoint item = o.list().visualRect(perl).center();
    for (const std::function<void()>& way : std::initializer_list<std::function<void()>>{
             [&] { o.click("cmdLanguage"); }, [&] { QTest::keyClick(&o.list(), Qt::Key_Return); },
             [&] { QTest::mouseDClick(o.list().viewport(), Qt::LeftButton, {}, item); },
             [&] { o.frame.handlers[u"miOptionsLanguage"_s](); }}) {
        bool wasOpen = false;
        whenModal([&](QWidget& w) {
            wasOpen = w.windowTitle() == u"Styles Setting Language: Perl"_s;
            whenModal([](QWidget& details) { details.close(); });
            o.frame.handlers[u"miOptionsLanguageDetailsOpen"_s]();
            w.close();
        });
        way();
        QVERIFY(wasOpen && o.window->isVisible());
    }
    QVERIFY(!o.frame.enabledCommands[u"miOptionsLanguageDetailsOpen"_s]);
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, {}, {});
    QApplication::sendEvent(o.list().viewport(), &menu);
    QCOMPARE(o.frame.menus, QStringList({u"mnuOptions"_s}));
    ArchiveUnit(o.archive).Execute(u"UPDATE tab_memoType SET enabled = '0' WHERE memoTypeID = 6"_s);
    o.open();
    QVERIFY(!o.language("Perl").isValid());
}

void tst_frmOptions::failures()
{
    Options o;
    o.program.archive.setPath(o.scratch.path(u"gone.SVA"_s));
    o.questions.expect(QString());
    o.click("cmdOK");
    QVERIFY(o.questions.asked.last().text.startsWith("Error in cmdOK: "_L1) && o.window->isVisible());
    o.questions.expect(QString());
    frmOptions mending(o.program, o.desktop, o.frame, nullptr);
    QVERIFY(!mending.Form_Load()); // the archive's path can be put right all the same
    mending.findChild<QLineEdit*>(u"txtDefaultDb"_s)->setText(u"right.SVA"_s);
    mending.findChild<QAbstractButton*>(u"cmdOK"_s)->click();
    QVERIFY(mending.result() == QDialog::Accepted && o.ini().contains("right.SVA"));
    o.program.archive.setPath(o.scratch.path());
    QVERIFY(QFile::remove(o.program.IniFile) && QDir().mkpath(o.program.IniFile + u"/x"_s)); // cannot be written
    o.open();
    QVERIFY(o.path().text().isEmpty());
    o.path().setText(u"y.SVA"_s);
    o.click("cmdOK"); // silently
    QVERIFY(!o.window->isVisible());
}

void tst_frmOptions::looks()
{
    QMainWindow frame;
    CommandBars bars(frame);
    QToolBar& bar = *bars.bar(u"barMemo"_s);
    const auto* button = qobject_cast<QToolButton*>(bar.widgetForAction(bars.action(u"miMemoNew"_s)));
    bars.setFlatLook(true);
    const int flatSize = bar.iconSize().width();
    QVERIFY(button->autoRaise() && !bar.isMovable());
    bars.setFlatLook(false);
    QVERIFY(!button->autoRaise() && bar.isMovable() && bar.iconSize().width() < flatSize);
    QVERIFY(button->toolTip().contains("category of memos"_L1)); // why it is grey
    bars.handle(u"miMemoNew"_s, [] {});
    QCOMPARE(button->toolTip(), u"New Memo (Ctrl+N)"_s);
}

SNIPVALE_TEST(tst_frmOptions)
#include "tst_frmOptions.moc"
