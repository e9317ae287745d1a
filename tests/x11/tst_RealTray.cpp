// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/ProgramFixture.h"
#include "x11/RealDesktop.h"

using namespace Qt::StringLiterals;

namespace {

// Buttons of openbox's title bar, from its upper right corner.
constexpr QPoint closeBox(-12, 10);
constexpr QPoint minimizeBox(-46, 10);

struct RealProgram : ProgramFixture {
    RealProgram()
    {
        window->setWindowTitle(u"Main under test"_s);
        window->resize(900, 500); // the window manager places it
        QVERIFY(QTest::qWaitForWindowActive(window.get()));
        for (QRect before; window->frameGeometry() != before; QTest::qWait(100)) // until its frame stands
            before = window->frameGeometry();
    }
    void startTray()
    {
        const QString options = u"--SetDockType true --edge bottom --align right --widthtype request --height 24"_s;
        realdesktop::start(host, u"trayer"_s, options.split(u' '));
        QTRY_VERIFY_WITH_TIMEOUT(QSystemTrayIcon::isSystemTrayAvailable(), 10000);
        QTRY_VERIFY_WITH_TIMEOUT(icon().y() > 800, 10000);
        for (QPoint before; icon() != before; QTest::qWait(150)) // the host lays its icons out as they come and go
            before = icon();
    }
    static QPoint icon()
    {
        for (const QWidget* each : QApplication::topLevelWidgets())
            if (const auto* icon = each->findChild<QSystemTrayIcon*>())
                return icon->geometry().center();
        return {};
    }
    void clickTitleBar(const QPoint& button)
    {
        QTRY_VERIFY(window->frameGeometry().top() < window->geometry().top());
        realdesktop::clickAt(window->frameGeometry().topRight() + button);
    }
    // How many windows of that title xdotool sees there.
    static int onDesktop(const QString& title = u"Main under test"_s)
    {
        QProcess search;
        search.start(u"xdotool"_s, {u"search"_s, u"--onlyvisible"_s, u"--name"_s, title});
        search.waitForFinished();
        return int(search.readAllStandardOutput().count('\n'));
    }
    QProcess host;
};

} // namespace

// The icon, the main window and the pop-ups on a desktop that runs: what a window manager and a notification area
// make of them. The rules themselves are tested offscreen.
class tst_RealTray : public QObject {
    Q_OBJECT
private slots:
    // By the close box and the button that minimises, back by a second start and by the icon: what one leaves behind
    // must not spoil the others.
    void closeBoxAndBack()
    {
        RealProgram p;
        p.startTray();
        const QRect place = p.window->geometry();
        p.clickTitleBar(closeBox);
        QTRY_COMPARE(p.onDesktop(), 0);
        p.previous.onBringToFront(); // a second start
        QTRY_COMPARE(p.onDesktop(), 1);
        QTRY_VERIFY(p.window->isActiveWindow());
        QTest::qWait(200); // for the window manager's last word
        QCOMPARE(p.window->geometry(), place);
        p.clickTitleBar(minimizeBox);
        QTRY_COMPARE(p.onDesktop(), 0);
        realdesktop::clickAt(p.icon(), u"click --repeat 2 --delay 60 1"_s);
        QTRY_COMPARE(p.onDesktop(), 1);
        QTRY_VERIFY(p.window->isMaximized() && p.window->isActiveWindow());
    }

    // Somebody types while reminders arrive, and goes on typing. They lie above the window that is worked in.
    void popupsDoNotTakeTheKeyboard()
    {
        RealProgram p;
        p.addReminder();
        p.run("Search");
        auto& text = p.get<QLineEdit>("txtSearchText");
        QTRY_VERIFY(text.hasFocus());
        QProcess hands;
        hands.start(u"xdotool"_s, {u"type"_s, u"--delay"_s, u"40"_s, u"one two three four five six seven"_s});
        QTRY_VERIFY(text.text().size() > 8);
        p.tick();
        QTRY_COMPARE(p.onDesktop(u"SnipVale alarm"_s), 1);
        QTRY_COMPARE(text.text(), u"one two three four five six seven"_s);
        QVERIFY(p.window->isActiveWindow());
        p.window->showMaximized();
        QTRY_VERIFY(p.window->width() > 1200);
        const QWidget* button = p.popup()->findChild<QPushButton*>(u"cmdOK"_s);
        realdesktop::clickAt(button->mapToGlobal(button->rect().center()));
        QTRY_COMPARE(p.onDesktop(u"SnipVale alarm"_s), 0);
    }
};

int main(int argc, char** argv)
{
    return realdesktop::run<tst_RealTray>(argc, argv);
}
#include "tst_RealTray.moc"
