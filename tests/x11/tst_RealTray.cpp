// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/ProgramFixture.h"
#include "x11/RealDesktop.h"

#include "tasks/ui/frmSysTray.h"

#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

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
    void cleanupTestCase();
    void withoutANotificationArea();
    void closeBoxAndBack();
    void popupsDoNotTakeTheKeyboard();

private:
    void startTray();
    void clickTitleBar(const QPoint& button);
    void chooseInMenu(const QString& entry);
    static int onDesktop(const QString& title); // what xdotool finds there under that name and sees
    int mainOnDesktop() { return onDesktop(m_p->window->windowTitle()); }
    QPoint icon() { return m_tray->findChild<QSystemTrayIcon*>()->geometry().center(); }

    std::unique_ptr<ProgramFixture> m_p;
    frmSysTray* m_tray = nullptr;
    QProcess m_host;
};

void tst_RealTray::init()
{
    m_p = std::make_unique<ProgramFixture>();
    m_p->window->setWindowTitle(u"Main under test"_s);
    m_p->window->resize(900, 500); // the window manager places it
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* tray = qobject_cast<frmSysTray*>(window))
            m_tray = tray;
    QVERIFY(QTest::qWaitForWindowActive(m_p->window.get()));
    for (QRect before; m_p->window->frameGeometry() != before; QTest::qWait(100)) // until its frame stands
        before = m_p->window->frameGeometry();
}

void tst_RealTray::cleanup()
{
    m_p.reset();
}

void tst_RealTray::cleanupTestCase()
{
    m_host.kill();
    m_host.waitForFinished();
}

void tst_RealTray::startTray()
{
    if (m_host.state() == QProcess::NotRunning)
        realdesktop::start(
            m_host, u"trayer"_s,
            u"--SetDockType true --edge bottom --align right --widthtype request --height 24"_s.split(u' '));
    QTRY_VERIFY_WITH_TIMEOUT(QSystemTrayIcon::isSystemTrayAvailable(), 10000);
    QTRY_VERIFY_WITH_TIMEOUT(m_tray->findChild<QSystemTrayIcon*>()->geometry().width() > 8, 10000);
    for (QPoint before; icon() != before; QTest::qWait(150)) // the host lays its icons out as they come and go
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
    QTRY_VERIFY(m_p->window->frameGeometry().top() < m_p->window->geometry().top());
    realdesktop::clickAt(m_p->window->frameGeometry().topRight() + button);
}

void tst_RealTray::chooseInMenu(const QString& entry)
{
    realdesktop::clickAt(icon(), u"click 3"_s);
    auto* menu = m_tray->findChild<QMenu*>(u"mPopupMenu"_s);
    QTRY_VERIFY(menu->isVisible());
    realdesktop::clickAt(menu->mapToGlobal(menu->actionGeometry(m_tray->findChild<QAction*>(entry)).center()));
    QTRY_VERIFY(!menu->isVisible());
}

// Before any notification area runs: the window stays where it can be found. It is asked again each time.
void tst_RealTray::withoutANotificationArea()
{
    frmMain& frame = *m_p->window;
    QVERIFY(!QSystemTrayIcon::isSystemTrayAvailable());
    clickTitleBar(closeBox);
    QTRY_VERIFY(frame.isMinimized() && !frame.isHidden());
    frame.showNormal();
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    startTray(); // only now
    clickTitleBar(closeBox);
    QTRY_VERIFY(frame.isHidden());
    m_host.kill(); // a panel that ends takes the only way back with it
    QTRY_VERIFY_WITH_TIMEOUT(frame.isVisible() && frame.isMinimized(), 8000);
    QCOMPARE(mainOnDesktop(), 0);
}

// By the close box, by the button that minimises and by the menu, back by a second start, by the icon and by the menu:
// what one leaves behind must not spoil the others.
void tst_RealTray::closeBoxAndBack()
{
    frmMain& frame = *m_p->window;
    startTray();
    const QRect place = frame.geometry();
    clickTitleBar(closeBox);
    QTRY_COMPARE(mainOnDesktop(), 0);
    m_p->previous.onBringToFront(); // a second start
    QTRY_COMPARE(mainOnDesktop(), 1);
    QTRY_VERIFY(frame.isActiveWindow());
    QTest::qWait(200); // for the window manager's last word
    QCOMPARE(frame.geometry(), place);
    clickTitleBar(closeBox);
    QTRY_COMPARE(mainOnDesktop(), 0);
    realdesktop::clickAt(icon(), u"click --repeat 2 --delay 60 1"_s);
    QTRY_COMPARE(mainOnDesktop(), 1);
    QTRY_VERIFY(frame.isMaximized() && frame.isActiveWindow());
    frame.showNormal();
    QTRY_VERIFY(frame.width() < 1000);
    clickTitleBar(minimizeBox);
    QTRY_VERIFY(frame.isHidden());
    m_p->questions.expect(u"Bye from SnipVale"_s);
    chooseInMenu(u"mExit"_s); // also from there
    QTRY_COMPARE(m_p->questions.asked.last().text, u"Bye from SnipVale"_s);
}

// Somebody types while reminders arrive, and goes on typing. They lie above the window that is worked in.
void tst_RealTray::popupsDoNotTakeTheKeyboard()
{
    m_p->addReminder();
    m_p->run("Search");
    auto& text = m_p->get<QLineEdit>("txtSearchText");
    QTRY_VERIFY(text.hasFocus());
    QProcess hands;
    hands.start(u"xdotool"_s, {u"type"_s, u"--delay"_s, u"40"_s, u"one two three four five six seven"_s});
    QTRY_VERIFY(text.text().size() > 8);
    m_p->tick();
    QTRY_COMPARE(onDesktop(u"SnipVale alarm"_s), 1);
    QTRY_COMPARE(text.text(), u"one two three four five six seven"_s);
    QTRY_COMPARE(hands.state(), QProcess::NotRunning);
    QVERIFY(m_p->window->isActiveWindow());
    m_p->window->raise();
    m_p->window->showMaximized();
    QTRY_VERIFY(m_p->window->width() > 1200);
    const QWidget* button = m_p->popup()->findChild<QPushButton*>(u"cmdOK"_s);
    realdesktop::clickAt(button->mapToGlobal(button->rect().center()));
    QTRY_COMPARE(onDesktop(u"SnipVale alarm"_s), 0);
}

int main(int argc, char** argv)
{
    return realdesktop::run<tst_RealTray>(argc, argv);
}
#include "tst_RealTray.moc"
