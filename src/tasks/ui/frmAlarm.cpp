// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/ui/frmAlarm.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Clock.h"
#include "tasks/modSound.h"
#include "tasks/ui/TaskPictures.h"
#include "ui/widgets/Icons.h"
#include "ui/widgets/OptionalDate.h"
#include "ui/widgets/ShownText.h"
#include "ui/widgets/Unblocked.h"
#include "ui_frmAlarm.h"

#include <QApplication>
#include <QCursor>
#include <QLocale>
#include <QScreen>
#include <QVariant>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// After an answer the next pop-up takes its place so much later that the second half of a double click cannot hit it.
constexpr int pauseAfterAnswer = 500; // ms
constexpr int cascadeStep = 28; // pixels, as the next three
constexpr int usualHeight = 202; // of a form with a name of one line
constexpr int titleHeight = 38; // of the frame that a window manager puts around it
constexpr int margin = 16;
constexpr char placeProperty[] = "cascadePlace";

// The forms on the screen are the only list of them, so it cannot go wrong.
QList<frmAlarm*> openForms()
{
    QList<frmAlarm*> forms;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (auto* form = qobject_cast<frmAlarm*>(window); form && form->isVisible())
            forms.append(form);
    return forms;
}

QString alarmMoment(const jet::LocalMoment& moment)
{
    if (!moment.isValid())
        return u"???"_s;
    const QLocale locale;
    return locale.toString(moment.date, QLocale::LongFormat) + u' ' +
        locale.toString(moment.time, QLocale::ShortFormat);
}

} // namespace

// Without a parent: it must be seen when the main window is hidden.
frmAlarm::frmAlarm(Archive& archive) : m_ui(std::make_unique<Ui::frmAlarm>()), m_archive(archive)
{
    m_ui->setupUi(this);
    setWindowFlags(Qt::Window | Qt::WindowTitleHint | Qt::WindowCloseButtonHint | Qt::WindowStaysOnTopHint |
                   Qt::CustomizeWindowHint);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowIcon(trayPicture(TrayPicture::Flash1));
    m_ui->imgAlarm->setPixmap(trayPicture(TrayPicture::Flash1).pixmap(QSize(48, 48), devicePixelRatioF()));
    m_ui->lblWaiting->hide();
    m_ui->dtpAlarmDay->setDisplayFormat(shortDayFormat());
    connect(m_ui->optAlarm_1, &QRadioButton::toggled, m_ui->dtpAlarmDay, &QWidget::setEnabled);
    connect(m_ui->optAlarm_1, &QRadioButton::toggled, m_ui->dtpAlarmHour, &QWidget::setEnabled);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmAlarm::cmdOK_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    m_ui->optAlarm_0->setChecked(true);
    new QtUnblocked(*this);
}

frmAlarm::~frmAlarm() = default;

bool frmAlarm::ShowAlert()
{
    const std::optional<AlarmRow> row = readAlarm(m_archive, ToDoID);
    if (!row || !row->isDue)
        return false;
    const QString text = u"SnipVale alarm for: '"_s + row->name + u"'"_s;
    setWindowTitle(u"SnipVale alarm - "_s + row->name); // in a cascade the titles are all that is seen
    m_ui->lblName->setText(text);
    m_ui->lblName->setToolTip(plainToolTip(text));
    m_ui->lblAlarmDateTime->setText(alarmMoment(row->moment));
    const QDateTime now = m_archive.clock().now();
    m_ui->dtpAlarmDay->setDate(now.date());
    m_ui->dtpAlarmHour->setTime(now.time());
    return true;
}

void frmAlarm::setWaiting(qsizetype reminders)
{
    m_ui->lblWaiting->setVisible(reminders > 0);
    m_ui->lblWaiting->setText(reminders == 1 ? u"1 more reminder is waiting."_s
                                             : u"%1 more reminders are waiting."_s.arg(reminders));
}

void frmAlarm::cmdOK_Click()
{
    std::optional<jet::LocalMoment> next;
    if (m_ui->optAlarm_1->isChecked())
        next = jet::LocalMoment{m_ui->dtpAlarmDay->date(), m_ui->dtpAlarmHour->time()};
    const bool done = trapErrors(m_archive.questions(), u"UpdateAlarm"_s, [&] {
        // What is stopped is the reminder on the form: one that an editor has meanwhile set to later stays armed.
        const std::optional<AlarmRow> row = readAlarm(m_archive, ToDoID);
        if (next || !row || row->isDue)
            UpdateAlarm(m_archive, ToDoID, next);
    });
    if (done) {
        accept();
        return;
    }
    // What could not be written can be tried again, unless its to-do is gone.
    QString error;
    bool isGone = false;
    if (keepError(error, [&] { isGone = !readAlarm(m_archive, ToDoID); }) && isGone)
        reject();
}

AlarmWindows::AlarmWindows(Archive& archive, Sound& sound, const QString& programFolder, QObject* parent)
    : QObject(parent), m_archive(archive),
      m_queue(*this, archive.questions(), [&sound, programFolder] { soundAlert(sound, programFolder); })
{
    m_next.setSingleShot(true);
    connect(&m_next, &QTimer::timeout, this, &AlarmWindows::openNext);
}

AlarmWindows::~AlarmWindows()
{
    blockSignals(true); // who listened may be gone already
    closeAll();
}

void AlarmWindows::check()
{
    cAlarm(m_archive, m_queue).Alarm();
    m_next.start(0);
    showPending();
}

// One window a turn of the event loop: others' messages go in between, and a pop-up may be answered meanwhile.
void AlarmWindows::openNext()
{
    if (m_queue.openNext())
        m_next.start(0);
    showPending();
}

bool AlarmWindows::isOpen(qint32 todoID) const
{
    const QList<frmAlarm*> forms = openForms();
    return std::any_of(forms.begin(), forms.end(), [&](const frmAlarm* form) { return form->ToDoID == todoID; });
}

bool AlarmWindows::hasRoom() const
{
    return openForms().size() < most;
}

bool AlarmWindows::open(qint32 todoID)
{
    auto form = std::make_unique<frmAlarm>(m_archive);
    form->ToDoID = todoID;
    if (!form->ShowAlert())
        return false;
    place(*form);
    connect(form.get(), &QDialog::accepted, this, &AlarmWindows::answered);
    connect(form.get(), &QDialog::finished, this, &AlarmWindows::closed);
    form->show();
    form->raise();
    QApplication::alert(form.get()); // for desktops that put new windows behind
    form.release(); // deletes itself
    return true;
}

// The first free place of a cascade down the right edge to the lower corner of the screen that is worked on: they lie
// above all windows, and messages appear in the middle.
void AlarmWindows::place(frmAlarm& form) const
{
    QSet<int> taken;
    for (const frmAlarm* other : openForms())
        taken.insert(other->property(placeProperty).toInt());
    int place = 0;
    while (taken.contains(place))
        ++place;
    form.setProperty(placeProperty, place);
    const QScreen* pointed = QGuiApplication::screenAt(QCursor::pos());
    const QRect screen = (pointed ? pointed : QGuiApplication::primaryScreen())->availableGeometry();
    const QSize size = form.sizeHint() + QSize(0, titleHeight);
    const QPoint last = screen.bottomRight() - QPoint(size.width() + margin, size.height() + margin);
    const int usual = screen.bottom() - (usualHeight + titleHeight + margin) - (most - 1 - place) * cascadeStep;
    const QPoint wanted(last.x(), std::min(usual, last.y())); // a long name makes a form higher
    form.move(std::max(screen.left(), wanted.x()), std::max(screen.top(), wanted.y()));
}

void AlarmWindows::closed()
{
    if (m_queue.waiting() > 0 && !m_next.isActive())
        m_next.start(pauseAfterAnswer);
    showPending();
}

void AlarmWindows::showPending()
{
    const QList<frmAlarm*> forms = openForms();
    for (frmAlarm* form : forms)
        form->setWaiting(m_queue.waiting());
    const bool isPending = !forms.isEmpty() || m_queue.waiting() > 0;
    if (std::exchange(m_isPending, isPending) != isPending)
        emit pendingChanged(isPending);
}

void AlarmWindows::closeAll()
{
    m_next.stop();
    m_queue.clear();
    for (frmAlarm* form : openForms())
        form->reject();
    showPending();
}
