// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "tasks/ui/TaskPictures.h"
#include "tasks/ui/frmSysTray.h"

#include <QtTest>
#include <QtWidgets>

using namespace Qt::StringLiterals;

namespace {

// A main window that hands its events to the icon, as the frame does.
class MainWindow : public QMainWindow {
public:
    frmSysTray* tray = nullptr;
    UnloadReason reason = UnloadReason::CloseBox;
    bool isLeft = false;

protected:
    void closeEvent(QCloseEvent* event) override
    {
        bool cancel = false;
        tray->MeQueryUnload(*this, cancel, reason);
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

struct Tray {
    Tray()
    {
        tray.hasTray = [this] { return isThere; };
        window.tray = &tray;
        tray.Load(u"/data/my archive.SVA"_s);
        window.show();
    }
    QAction& entry(const char* name) { return *tray.findChild<QAction*>(QString::fromLatin1(name)); }
    QSystemTrayIcon& icon() { return *tray.findChild<QSystemTrayIcon*>(); }
    QTimer& flash() { return *tray.findChild<QTimer*>(u"TmrFlash"_s); }
    // "About Maximize Minimize": what can be chosen
    QString enabled()
    {
        emit tray.findChild<QMenu*>(u"mPopupMenu"_s)->aboutToShow();
        QStringList names;
        for (const char* name : {"mAbout", "mMaximize", "mMinimize", "mExit"})
            if (entry(name).isEnabled())
                names.append(QString::fromLatin1(name));
        return names.join(u' ');
    }
    void doubleClick() { emit icon().activated(QSystemTrayIcon::DoubleClick); }

    bool isThere = true;
    bool canShowAbout = true;
    int abouts = 0;
    ScriptedQuestions questions;
    MainWindow window;
    frmSysTray tray{{window, [this] { ++abouts; }, [this] { return canShowAbout; },
                     [this] {
                         window.reason = UnloadReason::Code;
                         window.close();
                     }},
                    questions};
};

QImage image(const QIcon& icon, int size)
{
    return icon.pixmap(QSize(size, size), 1.0).toImage().convertToFormat(QImage::Format_ARGB32);
}

} // namespace

class tst_frmSysTray : public QObject {
    Q_OBJECT
private slots:
    void menuAndTip();
    void entriesFollowTheWindow();
    void closingGoesToTheTray();
    void withoutATray();
    void theTrayGoesAway();
    void doubleClickBringsBack();
    void exitLeaves();
    void exitAndOpenDialogs();
    void iconKinds();
    void flashing();
    void pictures();
};

void tst_frmSysTray::menuAndTip()
{
    Tray f;
    QStringList captions;
    auto* menu = f.tray.findChild<QMenu*>(u"mPopupMenu"_s);
    for (const QAction* action : menu->actions())
        captions.append(action->objectName() + u'=' + action->text());
    QCOMPARE(captions.join(u'|'), u"mAbout=About SnipVale|=|mMaximize=Ma&ximize|mMinimize=&Minimize|=|mExit=&Exit"_s);
    QCOMPARE(menu->title(), u"&PopupMenu"_s);
    QCOMPARE(f.icon().contextMenu(), menu);
    QVERIFY(f.icon().isVisible());
    QVERIFY(f.tray.isHidden());
    QCOMPARE(f.tray.Tooltip(), u"SnipVale 3.1.12\r\nDB: /data/my archive.SVA"_s);
    QCOMPARE(f.icon().toolTip(), u"SnipVale 3.1.12\nDB: /data/my archive.SVA"_s);
    f.entry("mAbout").trigger();
    QCOMPARE(f.abouts, 1);
    f.tray.flash(true);
    f.tray.Load(u"b.SVA"_s); // another archive
    QCOMPARE(f.icon().toolTip(), u"SnipVale 3.1.12\nDB: b.SVA"_s);
    QVERIFY(!f.flash().isActive());
    f.tray.MeUnload();
    QVERIFY(!f.icon().isVisible());
}

void tst_frmSysTray::entriesFollowTheWindow()
{
    Tray f;
    QCOMPARE(f.enabled(), u"mAbout mMaximize mMinimize mExit"_s);
    f.window.showMaximized();
    QCOMPARE(f.enabled(), u"mAbout mMinimize mExit"_s);
    f.canShowAbout = false;
    f.window.hide();
    QCOMPARE(f.enabled(), u"mMaximize mExit"_s);
    f.isThere = false; // so that minimised is not hidden
    f.window.showNormal();
    f.window.showMinimized();
    QCOMPARE(f.enabled(), u"mMaximize mExit"_s);
    f.window.showMaximized();
    f.isThere = true;
    QTRY_VERIFY(f.entry("mMinimize").isEnabled());
    f.entry("mMinimize").trigger();
    QVERIFY(f.window.isMinimized() && f.window.isHidden());
    // Desktops that show a copy of the menu never announce that they do.
    QTRY_VERIFY(!f.entry("mMinimize").isEnabled());
    f.entry("mMaximize").trigger();
    QVERIFY(f.window.isVisible() && f.window.isMaximized());
    QTRY_VERIFY(f.entry("mMinimize").isEnabled() && !f.entry("mMaximize").isEnabled());
}

void tst_frmSysTray::closingGoesToTheTray()
{
    Tray f;
    for (const bool isMaximized : {false, true}) {
        isMaximized ? f.window.showMaximized() : f.window.showNormal();
        f.window.close();
        QVERIFY(!f.window.isLeft);
        QVERIFY(f.window.isHidden() && f.window.isMinimized());
        QCOMPARE(f.tray.lastState(), isMaximized ? Qt::WindowMaximized : Qt::WindowNoState);
    }
    f.window.showNormal();
    for (const UnloadReason reason : {UnloadReason::Code, UnloadReason::SessionEnd}) {
        bool cancel = false;
        f.tray.MeQueryUnload(f.window, cancel, reason);
        QVERIFY(!cancel && f.window.isVisible() && !f.window.isMinimized());
    }
    f.window.setWindowState(Qt::WindowMinimized); // by its own button
    QVERIFY(f.window.isHidden());
}

// Where it could not be found again it is not hidden; the question is asked each time.
void tst_frmSysTray::withoutATray()
{
    Tray f;
    f.isThere = false;
    f.window.close();
    QVERIFY(!f.window.isLeft && f.window.isVisible() && f.window.isMinimized());
    f.window.showNormal();
    f.isThere = true;
    f.window.close();
    QVERIFY(!f.window.isLeft && f.window.isHidden());
}

void tst_frmSysTray::theTrayGoesAway()
{
    Tray f;
    f.window.close();
    QVERIFY(f.window.isHidden());
    f.isThere = false;
    QTRY_VERIFY_WITH_TIMEOUT(f.window.isVisible(), 8000);
    QVERIFY(f.window.isMinimized());
}

void tst_frmSysTray::doubleClickBringsBack()
{
    Tray f;
    f.window.close();
    f.doubleClick();
    QVERIFY(f.window.isVisible() && f.window.isMaximized() && !f.window.isMinimized());
    f.window.showNormal();
    f.doubleClick(); // it is there: only to the front
    QVERIFY(f.window.isVisible() && !f.window.isMaximized());
    f.window.close();
    for (const auto other : {QSystemTrayIcon::Context, QSystemTrayIcon::MiddleClick, QSystemTrayIcon::Unknown})
        emit f.icon().activated(other);
    QVERIFY(f.window.isHidden());
    emit f.icon().activated(QSystemTrayIcon::Trigger); // all that an icon without a place ever reports
    QVERIFY(f.window.isVisible());
}

void tst_frmSysTray::exitLeaves()
{
    Tray f;
    QSignalSpy last(qApp, &QGuiApplication::lastWindowClosed);
    f.window.close();
    QMessageBox passing; // a message while nothing else is shown does not end the program
    passing.show();
    passing.close();
    QVERIFY(!QGuiApplication::quitOnLastWindowClosed());
    f.entry("mExit").trigger();
    QVERIFY(f.window.isLeft); // also from hiding
}

void tst_frmSysTray::exitAndOpenDialogs()
{
    Tray f;
    for (const bool mayClose : {false, true}) {
        struct Editor : QDialog {
            explicit Editor(bool mayClose) : m_mayClose(mayClose) { }
            void reject() override
            {
                if (m_mayClose)
                    QDialog::reject();
            }
            bool m_mayClose;
        } editor(mayClose);
        QTimer::singleShot(0, &editor, [&] {
            f.entry("mExit").trigger();
            QCOMPARE(f.window.isLeft, mayClose);
            editor.done(0);
        });
        editor.exec();
    }
}

void tst_frmSysTray::iconKinds()
{
    Tray f;
    const QImage atRest = image(trayPicture(TrayPicture::Flash2), 22);
    QCOMPARE(image(f.tray.TrayIcon(), 22), atRest);
    QPixmap red(22, 22);
    red.fill(Qt::red);
    f.tray.setInterval(1000);
    f.tray.setTrayIcon(red);
    QVERIFY(!f.flash().isActive());
    QCOMPARE(f.tray.Interval(), 1000);
    QCOMPARE(image(f.icon().icon(), 22).pixelColor(5, 5), QColor(Qt::red));
    for (const QString& name : {u"DEFAULT"_s, u"default"_s, u"Default"_s}) {
        f.tray.setTrayIcon(red);
        f.tray.setTrayIcon(name);
        QCOMPARE(image(f.icon().icon(), 22), atRest);
    }
    const QTemporaryDir folder;
    QPixmap green(22, 22);
    green.fill(Qt::green);
    QVERIFY(green.save(folder.filePath(u"p.png"_s)));
    f.tray.setTrayIcon(folder.filePath(u"p.png"_s));
    QCOMPARE(image(f.icon().icon(), 22).pixelColor(5, 5), QColor(Qt::green));
    QCOMPARE(image(f.tray.windowIcon(), 22).pixelColor(5, 5), QColor(Qt::green));
    f.tray.setInterval(1000);
    f.questions.expect(QString());
    f.tray.setTrayIcon(folder.filePath(u"none.png"_s));
    QVERIFY(f.questions.asked.last().text.startsWith("Error in TrayIcon: "_L1));
    QVERIFY(!f.flash().isActive()); // it stops before anything else
    QCOMPARE(image(f.icon().icon(), 22).pixelColor(5, 5), QColor(Qt::green));
}

void tst_frmSysTray::flashing()
{
    Tray f;
    QCOMPARE(f.tray.Interval(), 0);
    QVERIFY(!f.flash().isActive());
    const QImage first = image(trayPicture(TrayPicture::Flash1), 22);
    const QImage second = image(trayPicture(TrayPicture::Flash2), 22);
    const auto shown = [&] { return image(f.icon().icon(), 22); };
    f.tray.setInterval(20);
    QTRY_COMPARE(shown(), first);
    QTRY_COMPARE(shown(), second);
    QTRY_COMPARE(shown(), first);
    f.tray.setInterval(0);
    QVERIFY(!f.flash().isActive());
    f.tray.flash(true);
    QVERIFY(f.flash().isActive());
    QVERIFY(f.tray.Interval() > 0);
    f.tray.flash(true); // another reminder: the pace stays
    f.tray.flash(false);
    QVERIFY(!f.flash().isActive());
    QCOMPARE(shown(), second);
    f.tray.flash(true);
    QCOMPARE(shown(), first); // at once
}

// The two pictures can be told apart on light and dark grounds, at every size that notification areas use.
void tst_frmSysTray::pictures()
{
    for (const int size : {16, 22, 24, 32, 48}) {
        const QImage bell = image(trayPicture(TrayPicture::Flash1), size);
        const QImage list = image(trayPicture(TrayPicture::Flash2), size);
        QCOMPARE(bell.size(), QSize(size, size));
        int different = 0;
        for (const QImage* picture : {&bell, &list}) {
            int white = 0, coloured = 0;
            for (int y = 0; y < size; ++y)
                for (int x = 0; x < size; ++x) {
                    const QColor color = picture->pixelColor(x, y);
                    white += color == Qt::white;
                    coloured += color.alpha() == 255 && color.saturation() > 150;
                    different += bell.pixel(x, y) != list.pixel(x, y);
                }
            QVERIFY2(white > size * size / 10 && coloured > size * size / 3, qPrintable(QString::number(size)));
        }
        QVERIFY(different > size * size / 2);
        QVERIFY(trayPicture(TrayPicture::Flash1).availableSizes().contains(QSize(size, size)));
        // White bars with hard edges: no blur from places between two pixels.
        for (int y = 0; y < size; ++y) {
            const QColor middle = list.pixelColor(size / 2, y);
            QVERIFY(middle == Qt::white || middle.saturation() > 150);
        }
    }
}

SNIPVALE_TEST(tst_frmSysTray)
#include "tst_frmSysTray.moc"
