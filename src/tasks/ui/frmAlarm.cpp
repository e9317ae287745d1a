// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/ui/frmAlarm.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Clock.h"
#include "tasks/cAlarm.h"
#include "tasks/ui/TrayPictures.h"
#include "ui/widgets/Icons.h"
#include "ui/widgets/OptionalDate.h"
#include "ui/widgets/PlainToolTip.h"
#include "ui/widgets/Unblocked.h"
#include "ui_frmAlarm.h"

#include <QApplication>
#include <QLocale>

using namespace Qt::StringLiterals;

namespace {

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

bool frmAlarm::ShowAlert(QString& error)
{
    bool isDue = false;
    keepError(error, [&] {
        const std::optional<AlarmRow> row = readAlarm(m_archive, ToDoID);
        if (!row || !row->isDue)
            return;
        isDue = true;
        const QString text = u"SnipVale alarm for: '"_s + row->name + u"'"_s;
        setWindowTitle(u"SnipVale alarm - "_s + row->name); // in a cascade the titles are all that is seen
        m_ui->lblName->setText(text);
        m_ui->lblName->setToolTip(plainToolTip(text));
        m_ui->lblAlarmDateTime->setText(alarmMoment(row->moment));
        const QDateTime now = m_archive.clock().now();
        m_ui->dtpAlarmDay->setDate(now.date());
        m_ui->dtpAlarmHour->setTime(now.time());
    });
    return isDue;
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
