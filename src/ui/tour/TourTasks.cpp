// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The tour's to-dos and reminders.
#include "ui/tour/TourWalk.h"
#include "ui/widgets/OptionalDate.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QTimer>
#include <QTreeView>

using namespace Qt::StringLiterals;

void Tour::newToDo()
{
    selectCategory(u"ToDo"_s);
    step("miToDoNew", [this](QWidget& window) {
        const QDateTime soon = m_clock.now().addDays(7);
        find<QLineEdit>(window, "txtName").setText(u"Try the backup on another machine"_s);
        find<OptionalDate>(window, "dtpDueDate").setValue(soon.date());
        find<QCheckBox>(window, "chkAlarm").setChecked(true);
        find<QDateEdit>(window, "dtpAlarmDay").setDate(m_clock.now().date().addDays(-1)); // due at the next check
        find<QComboBox>(window, "cboPriority").setCurrentIndex(4);
        find<QComboBox>(window, "cboStatus").setCurrentIndex(2);
        find<QLineEdit>(window, "txtPercentComplete").setText(u"40"_s);
        auto& description = find<QTextEdit>(window, "rtfDescription");
        description.setFocus();
        description.insertPlainText(u"Copy the archive there, open it, and compare the numbers of the summary."_s);
        picture(window, u"new-to-do"_s);
        find<QPushButton>(window, "cmdOK").click();
    });
    require(find<QTreeView>(*m_frame, "lvwToDo").model()->rowCount() == 1, "the to-do is not in the list");
    picture(*m_frame, u"to-do-in-list"_s);
}

void Tour::reminder()
{
    QMetaObject::invokeMethod(m_frame->findChild<QTimer*>(u"TimerTask"_s), "timeout");
    settle();
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto popup = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->objectName() == "frmAlarm"_L1 && window->isVisible();
    });
    require(popup != windows.end(), "the reminder did not pop up");
    picture(**popup, u"reminder"_s);
    find<QPushButton>(**popup, "cmdOK").click();
    settle();
    picture(*m_frame, u"reminder-answered"_s);
}
