// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/UiSupport.h"
#include "tasks/AlarmFixture.h"
#include "x11/RealDesktop.h"
#include "x11/RealPointer.h"

#include "app/modSnipVale.h"
#include "app/ui/Startup.h"
#include "app/ui/frmMain.h"
#include "desktop/PreviousInstance.h"
#include "tasks/ui/frmAlarm.h"
#include "tasks/ui/frmSysTray.h"

#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

class NoInstance : public PreviousInstance {
public:
    bool isRunning() const override { return false; }
    void bringToFront() override { }
};

// Buttons of openbox's title bar, from its upper right corner.
constexpr QPoint closeBox(-12, 10);
constexpr QPoint minimizeBox(-46, 10);

} // namespace

// The icon, the main window and the pop-ups on a desktop that runs: what a window manager and a notification area
// make of them. The rules themselves are tested offscreen.
class tst_RealTray : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void cleanupTestCase()
    {
        m_host.kill();
        m_host.waitForFinished();
    }
    void withoutANotificationArea();
    void closeBoxAndBack();
    void secondStartBringsItBack();
    void minimizeAndMenu();
    void popupsDoNotTakeTheKeyboard();
    void popupsOverAHiddenWindow();

private:
    void startTray();
    void clickTitleBar(const QPoint& button);
    // What xdotool finds on the desktop under that name and sees.
    static int onDesktop(const QString& title);
    QPoint icon() { return m_tray->findChild<QSystemTrayIcon*>()->geometry().center(); }
    static void click(const QPoint& at, const QStringList& how)
    {
        realpointer::xdotool(realpointer::pointerTo(at) + QStringList{u"sleep"_s, u"0.1"_s} + how);
    }
    void chooseInMenu(const QString& entry);

    bool isLeft() const { return m_fixture->questions.asked.size() > 0; }
    void leaveThroughMenu();
    QLineEdit& text() { return *m_window->findChild<QLineEdit*>(u"txtSearchText"_s); }
    void tick() { QMetaObject::invokeMethod(m_window->findChild<QTimer*>(u"TimerTask"_s), "timeout"); }

    struct Fixture : AlarmFixture {
        ScriptedFiles files;
        ScriptedShell shell;
        FakeSound sound;
        ScriptedPrinting printing;
        FakeClipboard clipboard;
        Desktop desktop{questions, files, shell, clock, sound, printing, clipboard};
        NoInstance previous;
        modSnipVale program{questions, clock, shell};
    };
    std::unique_ptr<Fixture> m_fixture;
    std::unique_ptr<frmMain> m_window;
    frmSysTray* m_tray = nullptr;
    QProcess m_host;
};

void tst_RealTray::init()
{
    m_fixture = std::make_unique<Fixture>();
    QFile ini(m_fixture->scratch.path(u"snipvale.ini"_s));
    QVERIFY(ini.open(QIODevice::WriteOnly) && ini.write("[setup]\ndbfullpath=scratch.SVA\n") > 0);
    ini.close();
    m_fixture->program.AppPath = m_fixture->scratch.folder();
    m_window = Main(m_fixture->program, m_fixture->desktop, m_fixture->previous);
    QVERIFY(m_window);
    m_window->setWindowTitle(u"Main under test"_s);
    m_window->resize(900, 500); // the window manager places it
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* tray = qobject_cast<frmSysTray*>(window))
            m_tray = tray;
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    for (QRect before; m_window->frameGeometry() != before; QTest::qWait(200)) // until its frame stands
        before = m_window->frameGeometry();
}

void tst_RealTray::cleanup()
{
    m_window.reset();
    m_fixture.reset();
}

void tst_RealTray::leaveThroughMenu()
{
    m_fixture->questions.expect(u"Bye from SnipVale"_s);
    chooseInMenu(u"mExit"_s);
    QTRY_VERIFY(isLeft());
    QVERIFY(m_window->isHidden());
}

void tst_RealTray::startTray()
{
    if (m_host.state() == QProcess::NotRunning)
        realdesktop::start(
            m_host, u"trayer"_s,
            u"--SetDockType true --edge bottom --align right --widthtype request --height 24"_s.split(u' '));
    QTRY_VERIFY_WITH_TIMEOUT(QSystemTrayIcon::isSystemTrayAvailable(), 10000);
    QTRY_VERIFY_WITH_TIMEOUT(m_tray->findChild<QSystemTrayIcon*>()->geometry().width() > 8, 10000);
    for (QPoint before; icon() != before; QTest::qWait(200)) // the host lays its icons out as they come and go
        before = icon();
}

int tst_RealTray::onDesktop(const QString& title)
{
    QProcess search;
    search.start(u"xdotool"_s, {u"search"_s, u"--onlyvisible"_s, u"--name"_s, title});
    search.waitForFinished();
    return int(search.readAllStandardOutput().count('\n'));
}

void tst_RealTray::clickTitleBar(const QPoint& button)
{
    QTRY_VERIFY(m_window->frameGeometry().top() < m_window->geometry().top());
    click(m_window->frameGeometry().topRight() + button, {u"click"_s, u"1"_s});
}

void tst_RealTray::chooseInMenu(const QString& entry)
{
    click(icon(), {u"click"_s, u"3"_s});
    auto* menu = m_tray->findChild<QMenu*>(u"mPopupMenu"_s);
    QTRY_VERIFY(menu->isVisible());
    const QRect place = menu->actionGeometry(m_tray->findChild<QAction*>(entry));
    click(menu->mapToGlobal(place.center()), {u"click"_s, u"1"_s});
    QTRY_VERIFY(!menu->isVisible());
}

// Before any notification area runs: the window stays where it can be found. It is asked again each time.
void tst_RealTray::withoutANotificationArea()
{
    QVERIFY(!QSystemTrayIcon::isSystemTrayAvailable());
    clickTitleBar(closeBox);
    QTRY_VERIFY(m_window->isMinimized());
    QVERIFY(!m_window->isHidden() && !isLeft());
    m_window->showNormal();
    QTRY_COMPARE(onDesktop(m_window->windowTitle()), 1);
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    startTray(); // only now
    clickTitleBar(closeBox);
    QTRY_VERIFY(m_window->isHidden());
    QVERIFY(!isLeft());
    m_host.kill(); // a panel that ends takes the only way back with it
    QTRY_VERIFY_WITH_TIMEOUT(m_window->isVisible() && m_window->isMinimized(), 8000);
    QCOMPARE(onDesktop(m_window->windowTitle()), 0);
    QCOMPARE(QProcess::execute(u"xdotool"_s, {u"search"_s, u"--name"_s, m_window->windowTitle(), u"windowactivate"_s}),
             0); // as a task list does
    QTRY_COMPARE(onDesktop(m_window->windowTitle()), 1);
}

// By the close box and by the button that minimises, in turns: what one leaves behind must not spoil the other.
void tst_RealTray::closeBoxAndBack()
{
    startTray();
    for (int round = 0; round < 4; ++round) {
        QTRY_COMPARE(onDesktop(m_window->windowTitle()), 1);
        clickTitleBar(round % 2 == 0 ? closeBox : minimizeBox);
        QTRY_VERIFY(m_window->isHidden());
        QTRY_COMPARE(onDesktop(m_window->windowTitle()), 0);
        if (round == 0) {
            click(icon(), {u"click"_s, u"1"_s}); // one click is not enough
            QTest::qWait(600);
            QVERIFY(m_window->isHidden());
        }
        click(icon(), u"click --repeat 2 --delay 60 1"_s.split(u' '));
        QTRY_COMPARE(onDesktop(m_window->windowTitle()), 1);
        QTRY_VERIFY(m_window->isMaximized() && m_window->isActiveWindow());
        m_window->showNormal();
        QTRY_VERIFY(m_window->width() < 1000);
        QTest::qWait(300); // as long as a double click: the next one is of its own
    }
    leaveThroughMenu();
}

void tst_RealTray::secondStartBringsItBack()
{
    startTray();
    const QRect place = m_window->geometry();
    clickTitleBar(closeBox);
    QTRY_COMPARE(onDesktop(m_window->windowTitle()), 0);
    m_fixture->previous.onBringToFront();
    QTRY_COMPARE(onDesktop(m_window->windowTitle()), 1);
    QTRY_VERIFY(m_window->isActiveWindow());
    QTest::qWait(300); // for the window manager's last word
    QCOMPARE(m_window->geometry(), place);
    QVERIFY(!m_window->isMaximized());
    QDialog editor(m_window.get()); // blocks the icon, and is minimised together with its window
    editor.setWindowTitle(u"Editor under test"_s);
    editor.setModal(true);
    editor.show();
    QTRY_COMPARE(onDesktop(editor.windowTitle()), 1);
    clickTitleBar(minimizeBox);
    QTRY_COMPARE(onDesktop(editor.windowTitle()), 0);
    QVERIFY(m_window->isMinimized() && !m_window->isHidden());
    m_fixture->previous.onBringToFront();
    QTRY_COMPARE(onDesktop(editor.windowTitle()), 1);
}

void tst_RealTray::minimizeAndMenu()
{
    startTray();
    chooseInMenu(u"mMinimize"_s);
    QTRY_VERIFY(m_window->isHidden());
    QTRY_COMPARE(onDesktop(m_window->windowTitle()), 0);
    chooseInMenu(u"mMaximize"_s);
    QTRY_COMPARE(onDesktop(m_window->windowTitle()), 1);
    QTRY_VERIFY(m_window->width() > 1200);
    chooseInMenu(u"mMinimize"_s);
    QTRY_VERIFY(m_window->isHidden());
    leaveThroughMenu(); // also from there
}

// Somebody types while reminders arrive, and goes on typing.
void tst_RealTray::popupsDoNotTakeTheKeyboard()
{
    Fixture& f = *m_fixture;
    f.addMany(3);
    m_window->runCommand(u"Search"_s);
    text().setFocus();
    QTRY_VERIFY(text().hasFocus());
    QProcess hands;
    hands.start(u"xdotool"_s,
                {u"type"_s, u"--delay"_s, u"40"_s, u"one two three four five six seven eight nine ten"_s});
    QTRY_VERIFY(text().text().size() > 8);
    tick();
    QTRY_COMPARE(onDesktop(u"SnipVale alarm"_s), 3);
    QTRY_COMPARE_WITH_TIMEOUT(hands.state(), QProcess::NotRunning, 10000);
    QTRY_COMPARE(text().text(), u"one two three four five six seven eight nine ten"_s);
    QVERIFY(m_window->isActiveWindow());
    // They lie above the window that is worked in, and their buttons answer to the pointer.
    m_window->raise();
    m_window->showMaximized();
    QTRY_VERIFY(m_window->width() > 1200);
    for (int left = 3; left > 0; --left) {
        frmAlarm* top = nullptr;
        for (QWidget* window : QApplication::topLevelWidgets())
            if (auto* form = qobject_cast<frmAlarm*>(window); form && form->isVisible())
                if (!top || form->ToDoID > top->ToDoID)
                    top = form;
        auto* button = top->findChild<QPushButton*>(u"cmdOK"_s);
        click(button->mapToGlobal(button->rect().center()), {u"click"_s, u"1"_s});
        QTRY_COMPARE(onDesktop(u"SnipVale alarm"_s), left - 1);
    }
    QCOMPARE(f.value(u"SELECT COUNT(todoID) AS n FROM tab_todo WHERE alarmOn <> 0"_s), u"0"_s);
}

void tst_RealTray::popupsOverAHiddenWindow()
{
    startTray();
    Fixture& f = *m_fixture;
    f.addMany(1);
    clickTitleBar(closeBox);
    QTRY_COMPARE(onDesktop(m_window->windowTitle()), 0);
    tick();
    QTRY_COMPARE(onDesktop(u"SnipVale alarm"_s), 1);
    QVERIFY(m_tray->findChild<QTimer*>(u"TmrFlash"_s)->isActive());
    click(QPoint(5, 5), {u"key"_s, u"Escape"_s}); // on the bare desktop: it is not for the pop-up
    QTest::qWait(100);
    QCOMPARE(onDesktop(u"SnipVale alarm"_s), 1);
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* form = qobject_cast<frmAlarm*>(window))
            form->close();
    QTRY_COMPARE(onDesktop(u"SnipVale alarm"_s), 0);
    QVERIFY(!m_tray->findChild<QTimer*>(u"TmrFlash"_s)->isActive());
    QVERIFY(m_window->isHidden() && !isLeft());
}

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("SNIPVALE_REAL_DESKTOP")) {
        QCoreApplication app(argc, argv);
        if (QStandardPaths::findExecutable(u"trayer"_s).isEmpty())
            return realdesktop::failed(u"trayer is not installed; tools/install-packages test brings it."_s);
        return realdesktop::rerun();
    }
    QApplication app(argc, argv);
    QTEST_SET_MAIN_SOURCE_PATH
    tst_RealTray test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_RealTray.moc"
