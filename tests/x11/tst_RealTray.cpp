// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/UiSupport.h"
#include "tasks/AlarmFixture.h"
#include "x11/RealDesktop.h"
#include "x11/RealPointer.h"

#include "tasks/AlarmWindows.h"
#include "tasks/frmAlarm.h"
#include "tasks/frmSysTray.h"

#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

// A main window that hands its events to the icon, as the frame does.
class MainWindow : public QMainWindow {
public:
    MainWindow()
    {
        resize(500, 300);
        move(100, 150);
        setCentralWidget(new QPlainTextEdit(this));
    }
    QPlainTextEdit& text() { return *static_cast<QPlainTextEdit*>(centralWidget()); }
    frmSysTray* tray = nullptr;
    bool isLeft = false;

protected:
    void closeEvent(QCloseEvent* event) override
    {
        bool cancel = false;
        tray->MeQueryUnload(*this, cancel, event->spontaneous() ? UnloadReason::CloseBox : UnloadReason::Code);
        event->setAccepted(!cancel);
        isLeft = !cancel;
    }
    void changeEvent(QEvent* event) override
    {
        QMainWindow::changeEvent(event);
        if (event->type() == QEvent::WindowStateChange)
            tray->MeResize(*this);
    }
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

    ScriptedQuestions m_questions;
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<frmSysTray> m_tray;
    QProcess m_host;
};

void tst_RealTray::init()
{
    m_window = std::make_unique<MainWindow>();
    m_window->setWindowTitle(u"Main under test"_s);
    m_tray = std::make_unique<frmSysTray>(
        TrayOwner{*m_window, [] {}, [] { return false; }, [this] { m_window->close(); }}, m_questions);
    m_window->tray = m_tray.get();
    m_tray->Load(u"/data/mine.SVA"_s);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void tst_RealTray::cleanup()
{
    m_tray.reset();
    m_window.reset();
}

void tst_RealTray::startTray()
{
    if (m_host.state() == QProcess::NotRunning)
        realdesktop::start(
            m_host, u"trayer"_s,
            u"--SetDockType true --edge bottom --align right --widthtype request --height 24"_s.split(u' '));
    QTRY_VERIFY_WITH_TIMEOUT(QSystemTrayIcon::isSystemTrayAvailable(), 10000);
    QTRY_VERIFY_WITH_TIMEOUT(m_tray->findChild<QSystemTrayIcon*>()->geometry().width() > 8, 10000);
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
    QVERIFY(!m_window->isHidden() && !m_window->isLeft);
    m_window->showNormal();
    QTRY_COMPARE(onDesktop(m_window->windowTitle()), 1);
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    startTray(); // only now
    clickTitleBar(closeBox);
    QTRY_VERIFY(m_window->isHidden());
    QVERIFY(!m_window->isLeft);
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
        QTRY_VERIFY(m_window->width() < 700);
        QTest::qWait(300); // as long as a double click: the next one is of its own
    }
    QVERIFY(!m_window->isLeft);
}

void tst_RealTray::minimizeAndMenu()
{
    startTray();
    chooseInMenu(u"mMinimize"_s);
    QTRY_VERIFY(m_window->isHidden());
    QTRY_COMPARE(onDesktop(m_window->windowTitle()), 0);
    chooseInMenu(u"mMaximize"_s);
    QTRY_COMPARE(onDesktop(m_window->windowTitle()), 1);
    QTRY_VERIFY(m_window->width() > 1000);
    chooseInMenu(u"mExit"_s);
    QTRY_VERIFY(m_window->isLeft);
    m_window->isLeft = false;
    m_window->show();
    chooseInMenu(u"mMinimize"_s);
    QTRY_VERIFY(m_window->isHidden());
    chooseInMenu(u"mExit"_s); // also from there
    QTRY_VERIFY(m_window->isLeft);
}

// Somebody types while reminders arrive, and goes on typing.
void tst_RealTray::popupsDoNotTakeTheKeyboard()
{
    AlarmFixture f;
    FakeSound sound;
    AlarmWindows alarms(f.archive, sound, f.scratch.folder(), nullptr);
    f.addMany(3);
    QString typed;
    m_window->text().setFocus();
    QProcess hands;
    hands.start(u"xdotool"_s,
                {u"type"_s, u"--delay"_s, u"40"_s, u"one two three four five six seven eight nine ten"_s});
    QTRY_VERIFY(m_window->text().toPlainText().size() > 8);
    alarms.check();
    QTRY_COMPARE(onDesktop(u"SnipVale alarm"_s), 3);
    QTRY_COMPARE_WITH_TIMEOUT(hands.state(), QProcess::NotRunning, 10000);
    QTRY_COMPARE(m_window->text().toPlainText(), u"one two three four five six seven eight nine ten"_s);
    QVERIFY(m_window->isActiveWindow());
    // They lie above the window that is worked in, and their buttons answer to the pointer.
    m_window->raise();
    m_window->showMaximized();
    QTRY_VERIFY(m_window->width() > 1000);
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
    AlarmFixture f;
    FakeSound sound;
    AlarmWindows alarms(f.archive, sound, f.scratch.folder(), nullptr);
    connect(&alarms, &AlarmWindows::pendingChanged, m_tray.get(), &frmSysTray::flash);
    f.addMany(1);
    clickTitleBar(closeBox);
    QTRY_COMPARE(onDesktop(m_window->windowTitle()), 0);
    alarms.check();
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
    QVERIFY(m_window->isHidden() && !m_window->isLeft);
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
