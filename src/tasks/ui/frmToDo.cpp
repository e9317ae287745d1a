// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "tasks/ui/frmToDo.h"

#include "archive/Archive.h"
#include "archive/Element.h"
#include "archive/ErrorTrap.h"
#include "desktop/Clock.h"
#include "desktop/Desktop.h"
#include "desktop/TextFile.h"
#include "desktop/TextForms.h"
#include "tasks/modToDo.h"
#include "tasks/ui/TaskPictures.h"
#include "ui/print/RichTextPrint.h"
#include "ui/richtext/RichTextBar.h"
#include "ui/richtext/RichTextBox.h"
#include "ui/widgets/Icons.h"
#include "ui/widgets/OptionalDate.h"
#include "ui/widgets/RawText.h"
#include "ui_frmToDo.h"

#include <cmath>
#include <limits>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

// Halves go to the even neighbour. Throws when the column cannot hold the number.
qint16 toShort(double number)
{
    const double whole = std::nearbyint(number);
    if (!(whole >= std::numeric_limits<qint16>::min() && whole <= std::numeric_limits<qint16>::max()))
        throw std::runtime_error("The percentage is too small to be stored.");
    return qint16(whole);
}

} // namespace

frmToDo::frmToDo(const EditorContext& context, QWidget* parent)
    : ElementEditor(context.archive, context.viewFilter.EditingModeToDoID, parent),
      m_ui(std::make_unique<Ui::frmToDo>()), m_context(context), m_todo(context.archive)
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    wireButtons(m_ui->cmdOK, nullptr, m_ui->cmdClose, Cancel::Closes);
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
    for (int code = 0; code <= PriorityUrgent; ++code)
        m_ui->cboPriority->addItem(toDoIcon(priorityImage(code)), priorityText(code), code);
    for (int code = 0; code <= StatusCancelled; ++code)
        m_ui->cboStatus->addItem(toDoIcon(statusImage(code)), statusText(code), code);
}

void frmToDo::makeNoteBar()
{
    RichTextBox& notes = *m_ui->rtfDescription;
    const QString keys = u"New,Open,Save,Print,|,Cut,Copy,Paste,|,Bold,Italic,Underline,|,Align Left,Center,"
                         "Align Right,|,Color,Numbers,Bullets,Outdent,Indent"_s;
    auto* bar = new RichTextBar(notes, keys.split(u','), this);
    bar->setIconSize({16, 16});
    m_ui->layDescription->insertWidget(0, bar);
    bar->join(m_context.desktop, m_ui->txtName);
    connect(bar, &RichTextBar::openRequested, this, &frmToDo::openNoteFile);
    connect(bar, &RichTextBar::printRequested, this,
            [this, &notes] { printRichText(*notes.document(), m_ui->txtName->text(), m_context.desktop, this); });
    QList<QAction*> toggles;
    for (const QString& key : {u"Bold"_s, u"Italic"_s, u"Underline"_s, u"Align Left"_s, u"Center"_s, u"Align Right"_s})
        toggles.append(bar->command(key));
    notes.addMenuActions(toggles);
    connect(&notes, &RichTextBox::linkActivated, this, [this](const QString& address) {
        if (isWebAddress(address))
            trapErrors(m_context.archive.questions(), u"OpenLink"_s,
                       [&] { m_context.desktop.shell.openLink(address); });
    });
}

void frmToDo::openNoteFile()
{
    trapErrors(m_context.archive.questions(), u"OpenFile"_s, [&] {
        if (const auto name = m_context.desktop.files.openFile(u"Apri "_s, u"All Files (*.*) |*.*"_s))
            m_ui->rtfDescription->replaceText(readTextFile(*name));
    });
}

void frmToDo::startNew()
{
    m_todo.CategoryID = m_context.listener.selectedCategory();
}

void frmToDo::showRecord(bool isNew)
{
    showDates();
    m_ui->lblCreationDate->setVisible(!isNew);
    m_ui->txtName->setText(m_todo.ToDoName);
    m_ui->txtName->setCursorPosition(0); // a long name shows its beginning
    m_ui->lblMessage->setText(m_todo.ToDoName.trimmed());
    m_ui->rtfDescription->setRtf(m_todo.ToDoDescription);
    m_ui->chkDone->setChecked(m_todo.Done);
    m_ui->txtPercentComplete->setText(QString::number(m_todo.PercentComplete));
    m_ui->txtResources->setPlainText(m_todo.Resources);
    m_ui->cboPriority->setCurrentIndex(m_todo.Priority); // none for a code that is no entry
    m_ui->cboStatus->setCurrentIndex(m_todo.Status);
    wireControls();
    chkAlarm_Click();
    cboPriority_Click();
    txtPercentComplete_Change();
    paintState();
    watchControls();
    m_ui->txtName->setFocus();
}

void frmToDo::showDates()
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
    m_ui->lblCreationDate->setText(u"Created: "_s + shortMoment(m_todo.ToDoDateIn) + u"  Last modified: "_s +
                                   shortMoment(m_todo.ToDoDateLastMod));
}

void frmToDo::wireControls()
{
    connect(m_ui->txtName, &QLineEdit::textChanged, m_ui->lblMessage,
            [this](const QString& name) { m_ui->lblMessage->setText(name.trimmed()); });
    connect(m_ui->txtName, &QLineEdit::returnPressed, this, &frmToDo::cmdOK_Click);
    connect(m_ui->chkAlarm, &QCheckBox::toggled, this, &frmToDo::chkAlarm_Click);
    connect(m_ui->chkDone, &QCheckBox::toggled, this, &frmToDo::paintState);
    connect(m_ui->cboPriority, &QComboBox::currentIndexChanged, this, &frmToDo::cboPriority_Click);
    connect(m_ui->cboStatus, &QComboBox::currentIndexChanged, this, &frmToDo::cboStatus_Click);
    connect(m_ui->cboStatus, &QComboBox::activated, this, &frmToDo::cboStatus_Click); // the same one again counts
    connect(m_ui->txtPercentComplete, &QLineEdit::textChanged, this, &frmToDo::txtPercentComplete_Change);
    connect(m_ui->UpDownPercent, &ToDoUpDown::upClick, this,
            [this] { showPercent(percentUp(numberIn(m_ui->txtPercentComplete->text()))); });
    connect(m_ui->UpDownPercent, &ToDoUpDown::downClick, this,
            [this] { showPercent(percentDown(numberIn(m_ui->txtPercentComplete->text()))); });
}

void frmToDo::watchControls()
{
    for (const QLineEdit* box : {m_ui->txtName, m_ui->txtPercentComplete})
        watch(box, &QLineEdit::textChanged);
    for (const OptionalDate* picker : {m_ui->dtpStartDate, m_ui->dtpDueDate, m_ui->dtpEndDate}) {
        watch(picker, &OptionalDate::dateChanged);
        watch(picker, &OptionalDate::toggled);
    }
    for (const QCheckBox* box : {m_ui->chkAlarm, m_ui->chkDone})
        watch(box, &QCheckBox::toggled);
    for (const QComboBox* list : {m_ui->cboPriority, m_ui->cboStatus})
        watch(list, &QComboBox::currentIndexChanged);
    watch(m_ui->dtpAlarmDay, &QDateEdit::dateChanged);
    watch(m_ui->dtpAlarmHour, &QTimeEdit::timeChanged);
    watch(m_ui->txtResources, &QPlainTextEdit::textChanged);
    watch(m_ui->rtfDescription, &RichTextBox::edited);
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
    if (isMissing(name, m_ui->txtName, u"Please choose a name!"_s))
        return false;
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
    if (isEdited(m_ui->txtResources)) // what was not keeps its line ends
        m_todo.Resources = rawText(*m_ui->txtResources);
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

void frmToDo::saved()
{
    m_context.listener.elementSaved({ElementKind::ToDo, m_todo.ToDoID});
}

void frmToDo::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) {
        paintState();
        cboPriority_Click();
    }
}
