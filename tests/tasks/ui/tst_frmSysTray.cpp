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

// A main window that tells the icon of its changes, as the frame does.
struct Tray : QMainWindow {
    Tray()
    {
        tray.hasTray = [this] { return isThere; };
        tray.Load(u"/data/my archive.SVA"_s);
        show();
    }
    void changeEvent(QEvent* event) override
    {
        QMainWindow::changeEvent(event);
        if (event->type() == QEvent::WindowStateChange)
            tray.MeResize(*this);
    }
    QAction& entry(const char* name) { return *tray.findChild<QAction*>(QString::fromLatin1(name)); }
    bool closeBy(UnloadReason reason = UnloadReason::CloseBox)
    {
        bool cancel = false;
        tray.MeQueryUnload(*this, cancel, reason);
        return !cancel;
    }
    QSystemTrayIcon& icon() { return *tray.findChild<QSystemTrayIcon*>(); }
    QTimer& flash() { return *tray.findChild<QTimer*>(u"TmrFlash"_s); }
    QImage shown() { return image(icon().icon()); }
    static QImage image(const QIcon& icon) { return icon.pixmap(QSize(22, 22), 1.0).toImage(); }

    bool isThere = true;
    bool canShowAbout = true;
    bool isLeft = false;
    ScriptedQuestions questions;
    frmSysTray tray{{*this, [] {}, [this] { return canShowAbout; }, [this] { isLeft = true; }}, questions};
};

} // namespace

class tst_frmSysTray : public QObject {
    Q_OBJECT
private slots:
    void entriesFollowTheWindow()
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
            (f.*state.show)();
            f.canShowAbout = state.canShowAbout;
            emit f.icon().contextMenu()->aboutToShow();
            QStringList names;
            for (const QAction* action : f.icon().contextMenu()->actions())
                if (action->isEnabled() && !action->isSeparator())
                    names.append(action->objectName());
            QCOMPARE(names.join(u' '), state.enabled);
        }
        f.isThere = true;
        f.showMaximized();
        QTRY_VERIFY(f.entry("mMinimize").isEnabled());
        f.entry("mMinimize").trigger();
        QVERIFY(f.isMinimized() && f.isHidden());
        // Desktops that show a copy of the menu never announce that they do.
        QTRY_VERIFY(!f.entry("mMinimize").isEnabled());
        f.entry("mMaximize").trigger();
        QVERIFY(f.isVisible() && f.isMaximized());
    }

    void closingGoesToTheTray()
    {
        Tray f;
        for (const bool isMaximized : {false, true}) {
            isMaximized ? f.showMaximized() : f.showNormal();
            QVERIFY(!f.closeBy() && f.isHidden() && f.isMinimized());
            QCOMPARE(f.tray.lastState(), isMaximized ? Qt::WindowMaximized : Qt::WindowNoState);
        }
        f.showNormal();
        for (const UnloadReason reason : {UnloadReason::Code, UnloadReason::SessionEnd})
            QVERIFY(f.closeBy(reason) && f.isVisible() && !f.isMinimized());
        QDialog dialog; // behind one, or without a tray, it could not be found again: it is not hidden
        dialog.setModal(true);
        dialog.show();
        for (const bool isThere : {true, false}) {
            f.isThere = isThere;
            QVERIFY(!f.closeBy() && f.isVisible() && f.isMinimized());
            f.showNormal();
            dialog.hide();
        }
        f.isThere = true;
        f.setWindowState(Qt::WindowMinimized); // by its own button
        QVERIFY(f.isHidden());
        f.isThere = false; // the tray goes away
        QTRY_VERIFY_WITH_TIMEOUT(f.isVisible(), 8000);
        QVERIFY(f.isMinimized());
    }

    void clicksOnTheIcon()
    {
        Tray f;
        f.closeBy();
        emit f.icon().activated(QSystemTrayIcon::DoubleClick);
        QVERIFY(f.isVisible() && f.isMaximized() && !f.isMinimized());
        f.showNormal();
        emit f.icon().activated(QSystemTrayIcon::DoubleClick); // it is there: only to the front
        QVERIFY(f.isVisible() && !f.isMaximized());
        f.closeBy();
        emit f.icon().activated(QSystemTrayIcon::Context);
        QVERIFY(f.isHidden());
        emit f.icon().activated(QSystemTrayIcon::Trigger); // all that an icon without a place ever reports
        QVERIFY(f.isVisible());
    }

    // An editor with unsaved changes keeps the program.
    void exitAndOpenDialogs()
    {
        Tray f;
        QVERIFY(!QGuiApplication::quitOnLastWindowClosed()); // the last visible one may be a reminder
        struct Unsaved : QDialog {
            void reject() override { }
        };
        Unsaved unsaved;
        QDialog saved;
        for (QDialog* dialog : {static_cast<QDialog*>(&unsaved), &saved}) {
            dialog->setModal(true);
            dialog->show();
            f.entry("mExit").trigger();
            QCOMPARE(f.isLeft, dialog == &saved);
            dialog->hide();
        }
        f.tray.MeUnload();
        QVERIFY(!f.icon().isVisible());
    }
};

SNIPVALE_TEST(tst_frmSysTray)
#include "tst_frmSysTray.moc"
