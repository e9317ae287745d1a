// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ui/QtQuestions.h"

#include <QApplication>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

QMessageBox::Icon iconOf(MessageStyle style)
{
    switch (style) {
    case MessageStyle::Critical:
        return QMessageBox::Critical;
    case MessageStyle::Exclamation:
        return QMessageBox::Warning;
    case MessageStyle::Information:
        return QMessageBox::Information;
    case MessageStyle::YesNo:
    case MessageStyle::YesNoDefaultNo:
        return QMessageBox::Question;
    case MessageStyle::Plain:
        break;
    }
    return QMessageBox::NoIcon;
}

} // namespace

Answer QtQuestions::ask(const QString& text, MessageStyle style, const QString& title)
{
    QString shown = text;
    shown.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    QMessageBox box(iconOf(style), title, QString(), QMessageBox::NoButton, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse); // an error can be copied into a mail
    box.setText(shown);
    const bool isQuestion = style == MessageStyle::YesNo || style == MessageStyle::YesNoDefaultNo;
    box.setStandardButtons(isQuestion ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
    if (isQuestion) {
        box.setDefaultButton(style == MessageStyle::YesNo ? QMessageBox::Yes : QMessageBox::No);
        box.setEscapeButton(QMessageBox::No);
        return box.exec() == QMessageBox::Yes ? Answer::Yes : Answer::No;
    }
    box.exec();
    return Answer::Ok;
}
