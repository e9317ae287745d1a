// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/ui/frmToDo.h"

#include "archive/Archive.h"
#include "archive/Element.h"
#include "archive/ElementQuestions.h"
#include "archive/ErrorTrap.h"
#include "archive/cViewFilter.h"
#include "desktop/Clock.h"
#include "desktop/Desktop.h"
#include "desktop/Questions.h"
#include "desktop/TextForms.h"
#include "tasks/modToDo.h"
#include "tasks/ui/ToDoIcons.h"
#include "ui/widgets/Icons.h"
#include "ui/widgets/OptionalDate.h"
#include "ui_frmToDo.h"

#include <QShortcut>
#include <cmath>
#include <limits>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

// The text as it stands in a box: toPlainText() would turn no-break spaces into plain ones.
QString textOf(const QPlainTextEdit& box)
{
    QString text = box.document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

// Halves go to the even neighbour. Throws when the column cannot hold the number.
qint16 toShort(double number)
{
    const double whole = std::nearbyint(number);
    if (!(whole >= std::numeric_limits<qint16>::min() && whole <= std::numeric_limits<qint16>::max()))
        throw std::runtime_error("The percentage is too small to be stored.");
    return qint16(whole);
}

} // namespace

frmToDo::frmToDo(const ToDoContext& context, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmToDo>()), m_context(context), m_todo(context.archive)
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    makeNoteBar();
    prepareControls();
}

frmToDo::~frmToDo() = default;

void frmToDo::prepareControls()
{
    m_ui->picHeader->setBackgroundRole(QPalette::Midlight);
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.2);
    large.setBold(true);
    m_ui->lblMessage->setFont(large);
    for (QLabel* image : {m_ui->imgMessage, m_ui->imgPriority})
        image->setFixedSize(22, 22);
    m_ui->picHeader->setFixedHeight(m_ui->picHeader->sizeHint().height()); // with and without its image
    QSizePolicy keepsRoom = m_ui->imgPriority->sizePolicy();
    keepsRoom.setRetainSizeWhenHidden(true);
    m_ui->imgPriority->setSizePolicy(keepsRoom);
    m_ui->txtPercentComplete->setFixedWidth(fontMetrics().horizontalAdvance(u"-10000"_s));
    m_ui->UpDownPercent->setBuddy(m_ui->txtPercentComplete);
    m_ui->chkAlarm->setMinimumHeight(m_ui->dtpAlarmDay->sizeHint().height()); // in line with the pickers
    // Plain days and times, whatever the clocks do then.
    m_ui->dtpAlarmDay->setTimeSpec(Qt::UTC);
    m_ui->dtpAlarmHour->setTimeSpec(Qt::UTC);
    m_ui->dtpAlarmDay->setDisplayFormat(shortDayFormat());
    m_ui->dtpAlarmDay->setDateRange(m_ui->dtpStartDate->minimumDate(), m_ui->dtpStartDate->maximumDate());
    fillLists();
}

void frmToDo::fillLists()
{
    for (int code = 0; code <= PriorityUrgent; ++code)
        m_ui->cboPriority->addItem(toDoIcon(priorityImage(code)), priorityText(code), code);
    for (int code = 0; code <= StatusCancelled; ++code)
        m_ui->cboStatus->addItem(toDoIcon(statusImage(code)), statusText(code), code);
}

bool frmToDo::Form_Load()
{
    const bool isNew = m_context.viewFilter.EditingModeToDoID == 0;
    if (isNew)
        m_todo.CategoryID = m_context.listener.selectedCategory();
    else if (!loadRecord())
        return false;
    showRecord();
    m_ui->lblCreationDate->setVisible(!isNew);
    wireControls(); // from here on a change is the user's
    chkAlarm_Click();
    cboPriority_Click();
    txtPercentComplete_Change();
    paintState();
    wireDirty();
    m_ui->txtName->setFocus();
    return true;
}

bool frmToDo::loadRecord()
{
    m_todo.ToDoID = m_context.viewFilter.EditingModeToDoID;
    if (!m_todo.Load()) {
        reportError(m_context.archive.questions(), u"Load"_s, m_todo.lastError());
        return false;
    }
    if (m_todo.CategoryID == 0) {
        reportError(m_context.archive.questions(), u"Load"_s, u"The to-do is no longer in the archive."_s);
        return false;
    }
    return true;
}

void frmToDo::showRecord()
{
    const QDateTime now = m_context.desktop.clock.now();
    for (const auto& [picker, date] :
         {std::pair{m_ui->dtpStartDate, m_todo.StartDate}, std::pair{m_ui->dtpDueDate, m_todo.DueDate},
          std::pair{m_ui->dtpEndDate, m_todo.EndDate}}) {
        picker->setValue(now.date()); // what ticking an empty one gives
        picker->setValue(date);
    }
    const bool hasAlarm = m_todo.AlarmOn && m_todo.AlarmDate.isValid();
    m_ui->chkAlarm->setChecked(m_todo.AlarmOn);
    m_ui->dtpAlarmDay->setDate(hasAlarm ? m_todo.AlarmDate.date : now.date());
    m_ui->dtpAlarmHour->setTime(hasAlarm ? m_todo.AlarmDate.time : now.time());
    m_ui->lblCreationDate->setText(u"Created: "_s + shortMoment(m_todo.ToDoDateIn) + u"  "_s + u"Last modified: "_s +
                                   shortMoment(m_todo.ToDoDateLastMod));
    m_ui->txtName->setText(m_todo.ToDoName);
    m_ui->txtName->setCursorPosition(0); // a long name shows its beginning
    m_ui->lblMessage->setText(m_todo.ToDoName.trimmed());
    m_ui->rtfDescription->setRtf(m_todo.ToDoDescription);
    m_ui->chkDone->setChecked(m_todo.Done);
    m_ui->txtPercentComplete->setText(QString::number(m_todo.PercentComplete));
    m_ui->txtResources->setPlainText(m_todo.Resources);
    m_shownResources = textOf(*m_ui->txtResources);
    m_ui->cboPriority->setCurrentIndex(m_todo.Priority); // none for a code that is no entry
    m_ui->cboStatus->setCurrentIndex(m_todo.Status);
}

void frmToDo::wireControls()
{
    connect(m_ui->txtName, &QLineEdit::textChanged, m_ui->lblMessage,
            [this](const QString& name) { m_ui->lblMessage->setText(name.trimmed()); });
    connect(m_ui->txtName, &QLineEdit::returnPressed, this, &frmToDo::cmdOK_Click);
    connect(m_ui->chkAlarm, &QCheckBox::toggled, this, &frmToDo::chkAlarm_Click);
    connect(m_ui->chkDone, &QCheckBox::toggled, this, &frmToDo::chkDone_Click);
    connect(m_ui->cboPriority, &QComboBox::currentIndexChanged, this, &frmToDo::cboPriority_Click);
    connect(m_ui->cboStatus, &QComboBox::currentIndexChanged, this, &frmToDo::cboStatus_Click);
    connect(m_ui->cboStatus, &QComboBox::activated, this, &frmToDo::cboStatus_Click); // the same one again counts
    connect(m_ui->txtPercentComplete, &QLineEdit::textChanged, this, &frmToDo::txtPercentComplete_Change);
    connect(m_ui->UpDownPercent, &ToDoUpDown::upClick, this,
            [this] { showPercent(percentUp(numberIn(m_ui->txtPercentComplete->text()))); });
    connect(m_ui->UpDownPercent, &ToDoUpDown::downClick, this,
            [this] { showPercent(percentDown(numberIn(m_ui->txtPercentComplete->text()))); });
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmToDo::cmdOK_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, [this] { QDialog::reject(); }); // says what it does
    const auto* keep = new QShortcut(QKeySequence::Save, this); // as in the other editors
    connect(keep, &QShortcut::activated, this, &frmToDo::save);
}

void frmToDo::wireDirty()
{
    for (QLineEdit* box : {m_ui->txtName, m_ui->txtPercentComplete})
        connect(box, &QLineEdit::textChanged, this, &frmToDo::markDirty);
    for (OptionalDate* picker : {m_ui->dtpStartDate, m_ui->dtpDueDate, m_ui->dtpEndDate}) {
        connect(picker, &OptionalDate::dateChanged, this, &frmToDo::markDirty);
        connect(picker, &OptionalDate::toggled, this, &frmToDo::markDirty);
    }
    for (QCheckBox* box : {m_ui->chkAlarm, m_ui->chkDone})
        connect(box, &QCheckBox::toggled, this, &frmToDo::markDirty);
    for (QComboBox* list : {m_ui->cboPriority, m_ui->cboStatus})
        connect(list, &QComboBox::currentIndexChanged, this, &frmToDo::markDirty);
    connect(m_ui->dtpAlarmDay, &QDateEdit::dateChanged, this, &frmToDo::markDirty);
    connect(m_ui->dtpAlarmHour, &QTimeEdit::timeChanged, this, &frmToDo::markDirty);
    connect(m_ui->txtResources, &QPlainTextEdit::textChanged, this, &frmToDo::markDirty);
    connect(m_ui->rtfDescription, &RichTextBox::edited, this, &frmToDo::markDirty);
}

void frmToDo::chkAlarm_Click()
{
    m_ui->dtpAlarmDay->setEnabled(m_ui->chkAlarm->isChecked());
    m_ui->dtpAlarmHour->setEnabled(m_ui->chkAlarm->isChecked());
}

void frmToDo::cboPriority_Click()
{
    const int code = m_ui->cboPriority->currentData().toInt();
    m_ui->imgPriority->setVisible(code >= PriorityLowest);
    m_ui->imgPriority->setPixmap(toDoIcon(priorityImage(code)).pixmap(m_ui->imgPriority->size(), devicePixelRatioF()));
}

// The status and the done flag know nothing of each other.
void frmToDo::cboStatus_Click()
{
    if (m_ui->cboStatus->currentData().toInt() == StatusCompleted)
        m_ui->txtPercentComplete->setText(u"100"_s);
}

void frmToDo::chkDone_Click()
{
    paintState();
}

// What is still to do stands out, in the desktop's accent colour.
void frmToDo::paintState()
{
    const bool done = m_ui->chkDone->isChecked();
    QPalette colours;
    colours.setColor(QPalette::Window, palette().color(done ? QPalette::Button : QPalette::Highlight));
    colours.setColor(QPalette::WindowText, palette().color(done ? QPalette::ButtonText : QPalette::HighlightedText));
    m_ui->padDone->setPalette(colours); // and the box in it
    m_ui->imgMessage->setVisible(!done);
    m_ui->imgMessage->setPixmap(themedIcon(u"view-task"_s).pixmap(m_ui->imgMessage->size(), devicePixelRatioF()));
}

void frmToDo::showPercent(double percent)
{
    m_ui->txtPercentComplete->setText(QString::number(percent));
}

void frmToDo::txtPercentComplete_Change()
{
    const double percent = numberIn(m_ui->txtPercentComplete->text());
    if (percent > 100)
        m_ui->txtPercentComplete->setText(u"100"_s); // comes here again
    else
        m_ui->barPercent->setPercent(percent);
}

bool frmToDo::transfer()
{
    m_todo.Done = m_ui->chkDone->isChecked();
    const QString name = m_ui->txtName->text().trimmed();
    if (name.isEmpty()) {
        m_context.archive.questions().ask(u"Please choose a name!"_s, MessageStyle::Information);
        m_ui->txtName->setFocus();
        return false;
    }
    m_todo.ToDoName = name;
    m_todo.ToDoDescription = m_ui->rtfDescription->rtf();
    m_todo.PercentComplete = toShort(numberIn(m_ui->txtPercentComplete->text()));
    m_todo.StartDate = m_ui->dtpStartDate->value();
    m_todo.DueDate = m_ui->dtpDueDate->value();
    m_todo.EndDate = m_ui->dtpEndDate->value();
    transferAlarm();
    // A code that is no entry of the list stays as long as none is chosen.
    if (m_ui->cboPriority->currentIndex() >= 0)
        m_todo.Priority = qint16(m_ui->cboPriority->currentData().toInt());
    if (m_ui->cboStatus->currentIndex() >= 0)
        m_todo.Status = qint16(m_ui->cboStatus->currentData().toInt());
    // Resources that were not edited keep their line ends.
    if (const QString resources = textOf(*m_ui->txtResources); resources != m_shownResources)
        m_todo.Resources = m_shownResources = resources;
    return true;
}

void frmToDo::transferAlarm()
{
    m_ui->dtpAlarmDay->interpretText();
    m_ui->dtpAlarmHour->interpretText();
    m_todo.AlarmOn = m_ui->chkAlarm->isChecked();
    m_todo.AlarmDate = {};
    if (m_todo.AlarmOn)
        m_todo.AlarmDate = {m_ui->dtpAlarmDay->date(), m_ui->dtpAlarmHour->time()};
}

bool frmToDo::save()
{
    bool saved = false;
    trapErrors(m_context.archive.questions(), u"Save"_s, [&] {
        if (!transfer())
            return;
        if (m_context.viewFilter.EditingModeToDoID != 0) {
            m_todo.ToDoID = m_context.viewFilter.EditingModeToDoID;
            // The record keeps silent about a failed update; the user must not.
            if (!m_todo.Update())
                throw std::runtime_error(m_todo.lastError().toStdString());
        } else {
            if (!m_todo.Save())
                return; // the message was shown; what was typed stays
            m_context.viewFilter.EditingModeToDoID = m_todo.ToDoID;
        }
        saved = true;
        m_isDirty = false;
    });
    if (saved)
        m_context.listener.elementSaved({ElementKind::ToDo, m_todo.ToDoID});
    return saved;
}

void frmToDo::cmdOK_Click()
{
    if (save())
        accept();
}

// Escape or the close box: perhaps by accident.
void frmToDo::reject()
{
    if (m_isDirty && !mayDropChanges(m_context.archive.questions()))
        return;
    QDialog::reject();
}

void frmToDo::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        paintState();
        cboPriority_Click();
    }
}
