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
    void theTrayGoesAway();
    void clicksOnTheIcon();
    void exitAndOpenDialogs();
    void iconKinds();
    void flashing();
    void pictures();
};

void tst_frmSysTray::menuAndTip()
{
    Tray f;
    QStringList captions;
    for (const QAction* action : f.icon().contextMenu()->actions())
        captions.append(action->objectName() + u'=' + action->text());
    QCOMPARE(captions.join(u'|'), u"mAbout=About SnipVale|=|mMaximize=Ma&ximize|mMinimize=&Minimize|=|mExit=&Exit"_s);
    QVERIFY(f.icon().isVisible() && f.tray.isHidden());
    QCOMPARE(f.tray.Tooltip(), u"SnipVale 3.1.12\r\nDB: /data/my archive.SVA"_s);
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
    struct State {
        void (QWidget::*show)();
        bool canShowAbout;
        QString enabled;
    };
    const State states[] = {
        {&QWidget::showNormal, true, u"mAbout mMaximize mMinimize mExit"_s},
        {&QWidget::showMaximized, true, u"mAbout mMinimize mExit"_s},
        {&QWidget::showMinimized, false, u"mMaximize mExit"_s},
        {&QWidget::hide, true, u"mAbout mMaximize mExit"_s},
    };
    f.isThere = false; // so that minimised is not hidden
    for (const State& state : states) {
        (f.window.*state.show)();
        f.canShowAbout = state.canShowAbout;
        QCOMPARE(f.enabled(), state.enabled);
    }
    f.isThere = true;
    f.window.showMaximized();
    QTRY_VERIFY(f.entry("mMinimize").isEnabled());
    f.entry("mMinimize").trigger();
    QVERIFY(f.window.isMinimized() && f.window.isHidden());
    // Desktops that show a copy of the menu never announce that they do.
    QTRY_VERIFY(!f.entry("mMinimize").isEnabled());
    f.entry("mMaximize").trigger();
    QVERIFY(f.window.isVisible() && f.window.isMaximized());
}

void tst_frmSysTray::closingGoesToTheTray()
{
    Tray f;
    for (const bool isMaximized : {false, true}) {
        isMaximized ? f.window.showMaximized() : f.window.showNormal();
        f.window.close();
        QVERIFY(!f.window.isLeft && f.window.isHidden() && f.window.isMinimized());
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
    f.window.showNormal();
    QDialog dialog; // behind one, or without a tray, it could not be found again: it is not hidden
    dialog.setModal(true);
    dialog.show();
    for (const bool isThere : {true, false}) {
        f.isThere = isThere;
        f.window.close();
        QVERIFY(!f.window.isLeft && f.window.isVisible() && f.window.isMinimized());
        f.window.showNormal();
        dialog.hide();
    }
}

void tst_frmSysTray::theTrayGoesAway()
{
    Tray f;
    f.window.close();
    f.isThere = false;
    QTRY_VERIFY_WITH_TIMEOUT(f.window.isVisible(), 8000);
    QVERIFY(f.window.isMinimized());
}

void tst_frmSysTray::clicksOnTheIcon()
{
    Tray f;
    f.window.close();
    emit f.icon().activated(QSystemTrayIcon::DoubleClick);
    QVERIFY(f.window.isVisible() && f.window.isMaximized() && !f.window.isMinimized());
    f.window.showNormal();
    emit f.icon().activated(QSystemTrayIcon::DoubleClick); // it is there: only to the front
    QVERIFY(f.window.isVisible() && !f.window.isMaximized());
    f.window.close();
    for (const auto other : {QSystemTrayIcon::Context, QSystemTrayIcon::MiddleClick, QSystemTrayIcon::Unknown})
        emit f.icon().activated(other);
    QVERIFY(f.window.isHidden());
    emit f.icon().activated(QSystemTrayIcon::Trigger); // all that an icon without a place ever reports
    QVERIFY(f.window.isVisible());
}

// An editor with unsaved changes keeps the program.
void tst_frmSysTray::exitAndOpenDialogs()
{
    Tray f;
    QVERIFY(!QGuiApplication::quitOnLastWindowClosed()); // the last visible one may be a reminder
    struct Editor : QDialog {
        void reject() override
        {
            if (mayClose)
                QDialog::reject();
        }
        bool mayClose = false;
    };
    for (const bool mayClose : {false, true}) {
        Editor editor;
        editor.mayClose = mayClose;
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
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"p.png"_s);
    QPixmap red(22, 22);
    red.fill(Qt::red);
    QVERIFY(red.save(file));
    const auto isRed = [](const QIcon& icon) { return image(icon, 22).pixelColor(5, 5) == QColor(Qt::red); };
    f.tray.setInterval(1000);
    f.tray.setTrayIcon(QIcon(red));
    QVERIFY(!f.flash().isActive() && isRed(f.icon().icon()));
    for (const QString& name : {u"DEFAULT"_s, u"default"_s}) {
        f.tray.setTrayIcon(name);
        QCOMPARE(image(f.icon().icon(), 22), image(trayPicture(TrayPicture::Flash2), 22));
        f.tray.setTrayIcon(file);
        QVERIFY(isRed(f.icon().icon()) && isRed(f.tray.windowIcon()));
    }
    f.tray.setInterval(1000);
    f.questions.expect(QString());
    f.tray.setTrayIcon(folder.filePath(u"none.png"_s));
    QVERIFY(f.questions.asked.last().text.startsWith("Error in TrayIcon: "_L1));
    QVERIFY(!f.flash().isActive() && isRed(f.icon().icon())); // it stops before anything else
}

void tst_frmSysTray::flashing()
{
    Tray f;
    QVERIFY(f.tray.Interval() == 0 && !f.flash().isActive());
    const QImage first = image(trayPicture(TrayPicture::Flash1), 22);
    const QImage second = image(trayPicture(TrayPicture::Flash2), 22);
    const auto shown = [&] { return image(f.icon().icon(), 22); };
    f.tray.setInterval(20);
    QTRY_COMPARE(shown(), first);
    QTRY_COMPARE(shown(), second);
    f.tray.setInterval(0);
    QVERIFY(!f.flash().isActive());
    for (int round = 0; round < 2; ++round) {
        f.tray.flash(true);
        QVERIFY(f.flash().isActive() && f.tray.Interval() > 0);
        QCOMPARE(shown(), first); // at once
        f.tray.flash(true); // another reminder: the pace stays
        QCOMPARE(shown(), first);
        f.tray.flash(false);
        QVERIFY(!f.flash().isActive());
        QCOMPARE(shown(), second);
    }
}

// The two pictures can be told apart on light and dark grounds, at every size that notification areas use.
void tst_frmSysTray::pictures()
{
    for (const int size : {16, 22, 24, 32, 48}) {
        const QImage bell = image(trayPicture(TrayPicture::Flash1), size);
        const QImage list = image(trayPicture(TrayPicture::Flash2), size);
        int different = 0, white = 0;
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x) {
                different += bell.pixel(x, y) != list.pixel(x, y);
                white += (bell.pixelColor(x, y) == Qt::white) + (list.pixelColor(x, y) == Qt::white);
            }
        QVERIFY(different > size * size / 2);
        QVERIFY2(white > size * size / 5, qPrintable(QString::number(size)));
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
