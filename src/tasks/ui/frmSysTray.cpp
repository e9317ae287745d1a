// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/ui/frmSysTray.h"

#include "archive/ErrorTrap.h"
#include "tasks/ui/TaskPictures.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QImageReader>
#include <QMenu>
#include <QWindow>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int flashInterval = 600; // ms
constexpr int watchInterval = 2000; // ms

// The windowing system may still hold the dialog of an editor; it goes first, and may stay for unsaved changes.
bool closeDialogs()
{
    while (QWidget* dialog = QApplication::activeModalWidget()) {
        dialog->close();
        if (QApplication::activeModalWidget() == dialog) {
            dialog->activateWindow();
            return false;
        }
    }
    return true;
}

bool isMinimizedOrHidden(const QWidget& window)
{
    return window.isHidden() || window.isMinimized();
}

} // namespace

void toForeground(QWidget& window)
{
    QWidget* dialog = QApplication::activeModalWidget();
    for (QWidget* each : {&window, dialog}) {
        if (!each)
            continue;
        each->setWindowState(each->windowState() & ~Qt::WindowMinimized);
        each->raise();
        each->activateWindow();
    }
}

frmSysTray::frmSysTray(TrayOwner owner, Questions& questions)
    : m_owner(std::move(owner)), m_questions(questions), m_icon(new QSystemTrayIcon(this)),
      mPopupMenu(new QMenu(u"&PopupMenu"_s, this)), TmrFlash(new QTimer(this)), m_watch(new QTimer(this)),
      m_trayIcon(trayPicture(TrayPicture::Flash2))
{
    setObjectName(u"frmSysTray"_s);
    setWindowIcon(m_trayIcon);
    TmrFlash->setObjectName(u"TmrFlash"_s);
    connect(TmrFlash, &QTimer::timeout, this, &frmSysTray::TmrFlash_Timer);
    connect(m_watch, &QTimer::timeout, this, &frmSysTray::comeBackIfLost);
    makeMenu();
    m_icon->setIcon(m_trayIcon);
    m_icon->setContextMenu(mPopupMenu);
    connect(m_icon, &QSystemTrayIcon::activated, this, &frmSysTray::activated);
    m_owner.window.installEventFilter(this);
    m_lastState = m_owner.window.windowState() & ~(Qt::WindowMinimized | Qt::WindowActive);
}

frmSysTray::~frmSysTray()
{
    MeUnload();
}

void frmSysTray::makeMenu()
{
    mPopupMenu->setObjectName(u"mPopupMenu"_s);
    const auto add = [this](const QString& name, const QString& caption, void (frmSysTray::*run)()) {
        QAction* action = mPopupMenu->addAction(caption);
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, run);
        return action;
    };
    mAbout = mPopupMenu->addAction(u"About "_s + u"SnipVale"_s);
    mAbout->setObjectName(u"mAbout"_s);
    connect(mAbout, &QAction::triggered, this, [this] { m_owner.showAbout(); });
    mPopupMenu->addSeparator();
    mMaximize = add(u"mMaximize"_s, u"Ma&ximize"_s, &frmSysTray::maximize);
    mMinimize = mPopupMenu->addAction(u"&Minimize"_s);
    mMinimize->setObjectName(u"mMinimize"_s);
    connect(mMinimize, &QAction::triggered, this, [this] { minimize(m_owner.window); });
    mPopupMenu->addSeparator();
    mExit = add(u"mExit"_s, u"&Exit"_s, &frmSysTray::leave);
    connect(mPopupMenu, &QMenu::aboutToShow, this, &frmSysTray::enableMenu);
    enableMenu();
}

// Also at each change of the window: some desktops show a copy of the menu and never ask for it first.
void frmSysTray::enableMenu()
{
    const QWidget& window = m_owner.window;
    mAbout->setEnabled(m_owner.canShowAbout());
    mMaximize->setEnabled(isMinimizedOrHidden(window) || !window.isMaximized());
    mMinimize->setEnabled(!isMinimizedOrHidden(window));
}

bool frmSysTray::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (watched == &m_owner.window &&
        (type == QEvent::Show || type == QEvent::Hide || type == QEvent::WindowStateChange))
        QMetaObject::invokeMethod(this, &frmSysTray::enableMenu,
                                  Qt::QueuedConnection); // once the window has handled it
    return QWidget::eventFilter(watched, event);
}

void frmSysTray::Load(const QString& archivePath)
{
    QGuiApplication::setQuitOnLastWindowClosed(false); // the last visible one may be a reminder
    setTrayIcon(u"DEFAULT"_s);
    setInterval(0);
    setTooltip(u"SnipVale "_s + QStringLiteral(SNIPVALE_VERSION) + u"\r\n"_s + u"DB: "_s + archivePath);
    m_icon->show(); // where there is no notification area yet, it appears as soon as there is one
}

void frmSysTray::setTooltip(const QString& text)
{
    m_tooltip = text;
    QString lines = text;
    m_icon->setToolTip(lines.replace(u"\r\n"_s, u"\n"_s));
}

void frmSysTray::setInterval(int milliseconds)
{
    m_interval = std::max(0, milliseconds);
    if (m_interval > 0)
        TmrFlash->start(m_interval);
    else
        TmrFlash->stop();
}

void frmSysTray::setTrayIcon(const QIcon& picture)
{
    TmrFlash->stop();
    sendIcon(picture);
}

void frmSysTray::setTrayIcon(const QString& nameOrFile)
{
    TmrFlash->stop();
    if (nameOrFile.toUpper() == "DEFAULT"_L1) {
        sendIcon(trayPicture(TrayPicture::Flash2));
        return;
    }
    trapErrors(m_questions, u"TrayIcon"_s, [&] {
        QImageReader reader(nameOrFile);
        reader.setAutoTransform(true);
        const QImage image = reader.read();
        if (image.isNull())
            throw std::runtime_error((nameOrFile + u": "_s + reader.errorString()).toStdString());
        sendIcon(QIcon(QPixmap::fromImage(image)));
    });
}

void frmSysTray::sendIcon(const QIcon& picture)
{
    m_trayIcon = picture;
    setWindowIcon(picture);
    m_icon->setIcon(picture);
}

void frmSysTray::flash(bool isWanted)
{
    if (!isWanted) {
        setTrayIcon(u"DEFAULT"_s);
        m_isFirstFlash = false;
    } else if (!TmrFlash->isActive()) {
        setInterval(flashInterval);
        TmrFlash_Timer(); // the first sign is seen at once
    }
}

void frmSysTray::TmrFlash_Timer()
{
    m_isFirstFlash = !m_isFirstFlash;
    sendIcon(trayPicture(m_isFirstFlash ? TrayPicture::Flash1 : TrayPicture::Flash2));
}

// A status notifier (the icons of several desktops) has no place on the screen that it tells and never reports a
// double click: there one click is the whole request.
void frmSysTray::activated(QSystemTrayIcon::ActivationReason reason)
{
    const bool isOnlyClick = reason == QSystemTrayIcon::Trigger && m_icon->geometry().isEmpty();
    if (reason == QSystemTrayIcon::DoubleClick || isOnlyClick)
        restore();
}

void frmSysTray::restore()
{
    QWidget& window = m_owner.window;
    if (isMinimizedOrHidden(window))
        window.showMaximized();
    toForeground(window);
}

void frmSysTray::maximize()
{
    m_owner.window.showMaximized();
    toForeground(m_owner.window);
}

void frmSysTray::leave()
{
    if (closeDialogs())
        m_owner.exit();
}

void frmSysTray::MeQueryUnload(QWidget& window, bool& cancel, UnloadReason reason)
{
    if (reason != UnloadReason::CloseBox)
        return;
    cancel = true;
    minimize(window);
}

// Hidden without a word to the window manager, which could take the request to minimise for a wish to come back so.
void frmSysTray::minimize(QWidget& window)
{
    const Qt::WindowStates minimized = window.windowState() | Qt::WindowMinimized;
    if (!canHide()) {
        window.setWindowState(minimized);
        return;
    }
    hideToTray(window);
    window.overrideWindowState(minimized);
}

// An open dialog is minimised together with its window, and an icon that the dialog blocks brings neither back.
bool frmSysTray::canHide() const
{
    return hasTray() && !QApplication::activeModalWidget();
}

void frmSysTray::MeResize(QWidget& window)
{
    if (!window.isMinimized())
        m_lastState = window.windowState() & ~Qt::WindowActive;
    else if (canHide())
        hideToTray(window);
}

void frmSysTray::hideToTray(QWidget& window)
{
    // A place of its own, or the window manager chooses another one when it comes back.
    if (QWindow* handle = window.windowHandle(); handle && !m_lastState.testFlag(Qt::WindowMaximized))
        handle->setGeometry(handle->geometry());
    window.hide();
    m_watch->start(watchInterval);
}

// The notification area may go (a panel that ends) while the window has no other place to come back from.
void frmSysTray::comeBackIfLost()
{
    QWidget& window = m_owner.window;
    if (!window.isHidden()) {
        m_watch->stop();
    } else if (!hasTray()) {
        window.overrideWindowState(window.windowState() & ~Qt::WindowMinimized); // no window manager knows of it
        window.showMinimized();
    }
}

void frmSysTray::MeUnload()
{
    TmrFlash->stop();
    m_watch->stop();
    m_icon->hide();
}
