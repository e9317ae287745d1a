// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QSystemTrayIcon>
#include <QTimer>
#include <QWidget>
#include <functional>

class QAction;
class QMenu;
class Questions;

// Why a window is being closed.
enum class UnloadReason : int {
    CloseBox = 0, // by the user, in the window's own frame
    Code = 1, // by a command of the program
    SessionEnd = 2,
};

// What the icon needs of the main window. All outlives the icon.
struct TrayOwner {
    QWidget& window;
    std::function<void()> showAbout;
    std::function<bool()> canShowAbout;
    std::function<void()> exit; // closes the window for good, which ends the program; the user may still refuse
};

// Raises a window that is shown, and the dialog that holds it, if there is one: both may be minimised.
void toForeground(QWidget& window);

// The hidden form behind the icon of the notification area: its tip, its menu, its flashing, and the rules by which
// the main window goes there and comes back. From its first Load() on the program lives while no window is shown.
class frmSysTray final : public QWidget {
    Q_OBJECT
public:
    frmSysTray(TrayOwner owner, Questions& questions);
    ~frmSysTray() override;

    // At the start, and again for another archive: the tip names it, nothing flashes, the icon is there.
    void Load(const QString& archivePath);

    const QString& Tooltip() const { return m_tooltip; } // CR LF between its lines
    void setTooltip(const QString& text); // shown at once
    int Interval() const { return m_interval; } // flash period in ms
    void setInterval(int milliseconds); // flashes from now on; 0 and less: does not flash
    const QIcon& TrayIcon() const { return m_trayIcon; }
    void setTrayIcon(const QIcon& picture); // this one and the next stop the flashing
    // "DEFAULT", in any letter case, is the picture at rest; any other text is a picture file. One that cannot be read
    // is told, and the icon stays.
    void setTrayIcon(const QString& nameOrFile);
    void flash(bool isWanted); // at our own pace; the picture at rest when it ends

    // The main window's own close event: the close box sends it to the notification area. Where there is none at this
    // moment, or while a dialog is open, it is minimised, so that it can be found again.
    void MeQueryUnload(QWidget& window, bool& cancel, UnloadReason reason);
    void MeResize(QWidget& window); // the main window's own change of state
    void MeUnload(); // the program ends: the icon goes
    Qt::WindowStates lastState() const { return m_lastState; } // the last one that was not minimised

    std::function<bool()> hasTray = QSystemTrayIcon::isSystemTrayAvailable; // is there a notification area just now

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void makeMenu();
    void enableMenu();
    void activated(QSystemTrayIcon::ActivationReason reason);
    void restore();
    void maximize();
    void leave();
    void TmrFlash_Timer();
    void sendIcon(const QIcon& picture);
    void minimize(QWidget& window);
    bool canHide() const;
    void hideToTray(QWidget& window);
    void comeBackIfLost();

    TrayOwner m_owner;
    Questions& m_questions;
    QSystemTrayIcon* m_icon;
    QMenu* mPopupMenu;
    QAction* mAbout = nullptr;
    QAction* mMaximize = nullptr;
    QAction* mMinimize = nullptr;
    QAction* mExit = nullptr;
    QTimer* TmrFlash;
    QTimer* m_watch; // runs while the main window is in the notification area
    QString m_tooltip;
    QIcon m_trayIcon;
    int m_interval = 0;
    bool m_isFirstFlash = false;
    Qt::WindowStates m_lastState = Qt::WindowNoState;
};
