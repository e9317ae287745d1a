// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"

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
    bool isLeft = false;

protected:
    void closeEvent(QCloseEvent* event) override
    {
        bool cancel = false;
        tray->MeQueryUnload(*this, cancel, UnloadReason::CloseBox);
        event->setAccepted(!cancel);
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
    QImage shown() { return image(icon().icon()); }
    static QImage image(const QIcon& icon) { return icon.pixmap(QSize(22, 22), 1.0).toImage(); }

    bool isThere = true;
    bool canShowAbout = true;
    int abouts = 0;
    ScriptedQuestions questions;
    MainWindow window;
    frmSysTray tray{{window, [this] { ++abouts; }, [this] { return canShowAbout; }, [this] { window.isLeft = true; }},
                    questions};
};

} // namespace

class tst_frmSysTray : public QObject {
    Q_OBJECT
private slots:
    void entriesFollowTheWindow();
    void closingGoesToTheTray();
    void clicksOnTheIcon();
    void exitAndOpenDialogs();
    void pictures();
};

void tst_frmSysTray::entriesFollowTheWindow()
{
    Tray f;
    f.entry("mAbout").trigger();
    QCOMPARE(f.abouts, 1);
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
        emit f.icon().contextMenu()->aboutToShow();
        QStringList names;
        for (const QAction* action : f.icon().contextMenu()->actions())
            if (action->isEnabled() && !action->isSeparator())
                names.append(action->objectName());
        QCOMPARE(names.join(u' '), state.enabled);
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
        QVERIFY(!f.window.close() && f.window.isHidden() && f.window.isMinimized());
        QCOMPARE(f.tray.lastState(), isMaximized ? Qt::WindowMaximized : Qt::WindowNoState);
    }
    f.window.showNormal();
    for (const UnloadReason reason : {UnloadReason::Code, UnloadReason::SessionEnd}) {
        bool cancel = false;
        f.tray.MeQueryUnload(f.window, cancel, reason);
        QVERIFY(!cancel && f.window.isVisible() && !f.window.isMinimized());
    }
    QDialog dialog; // behind one, or without a tray, it could not be found again: it is not hidden
    dialog.setModal(true);
    dialog.show();
    for (const bool isThere : {true, false}) {
        f.isThere = isThere;
        QVERIFY(!f.window.close() && f.window.isVisible() && f.window.isMinimized());
        f.window.showNormal();
        dialog.hide();
    }
    f.isThere = true;
    f.window.setWindowState(Qt::WindowMinimized); // by its own button
    QVERIFY(f.window.isHidden());
    f.isThere = false; // the tray goes away
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
    emit f.icon().activated(QSystemTrayIcon::Context);
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
    f.tray.MeUnload();
    QVERIFY(!f.icon().isVisible());
}

void tst_frmSysTray::pictures()
{
    Tray f;
    const QImage first = f.image(trayPicture(TrayPicture::Flash1));
    const QImage second = f.image(trayPicture(TrayPicture::Flash2));
    QVERIFY(first != second && !f.flash().isActive());
    for (int round = 0; round < 2; ++round) {
        f.tray.flash(true);
        QVERIFY(f.flash().isActive());
        QCOMPARE(f.shown(), first); // at once
        f.tray.flash(true); // another reminder: the pace stays
        QCOMPARE(f.shown(), first);
        QTRY_COMPARE(f.shown(), second);
        f.tray.flash(false);
        QVERIFY(!f.flash().isActive());
        QCOMPARE(f.shown(), second);
    }
    f.tray.flash(true);
    f.tray.Load(u"b.SVA"_s); // another archive
    QVERIFY(f.icon().isVisible() && f.tray.isHidden() && !f.flash().isActive());
    QCOMPARE(f.icon().toolTip(), u"SnipVale 3.1.12\nDB: b.SVA"_s);

    const QTemporaryDir folder;
    const QString file = folder.filePath(u"p.png"_s);
    QVERIFY(first.save(file));
    f.tray.setTrayIcon(file);
    QCOMPARE(f.shown(), first);
    f.tray.setInterval(1000);
    f.questions.expect(QString());
    f.tray.setTrayIcon(folder.filePath(u"none.png"_s));
    QVERIFY(f.questions.asked.last().text.startsWith("Error in TrayIcon: "_L1));
    QVERIFY(!f.flash().isActive() && f.shown() == first); // it stops before anything else
    f.tray.setTrayIcon(u"default"_s);
    QCOMPARE(f.shown(), second);
}

SNIPVALE_TEST(tst_frmSysTray)
#include "tst_frmSysTray.moc"
