// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/ui/MasterPassword.h"

#include "desktop/Questions.h"
#include "desktop/SecretMemory.h"
#include "ui/widgets/Icons.h"

#include <QLineEdit>
#include <QPushButton>
#include <cstring>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

void showSecrets(QPushButton& button, const QList<QLineEdit*>& boxes, bool show)
{
    for (QLineEdit* box : boxes)
        box->setEchoMode(show ? QLineEdit::Normal : QLineEdit::Password);
    button.setText(show ? u"&Hide"_s : u"&Show"_s);
    button.setIcon(themedIcon(show ? u"view-hidden"_s : u"view-visible"_s));
}

} // namespace

void prepareSecretBoxes(const QList<QLineEdit*>& boxes)
{
    for (QLineEdit* box : boxes) {
        box->setStyleSheet(u"lineedit-password-character: 42"_s); // "*" whatever the style has
        box->setMaxLength(std::numeric_limits<int>::max());
        box->setInputMethodHints(Qt::ImhSensitiveData | Qt::ImhNoPredictiveText | Qt::ImhNoAutoUppercase);
    }
}

QString secretText(const QLineEdit& box)
{
    return secretCopy(box.text());
}

void wipeBoxes(const QList<QLineEdit*>& boxes)
{
    for (QLineEdit* box : boxes) {
        QString text = box->text();
        // The buffer is the box's when only the box and `text` have it; a constant text is nobody's.
        const auto* header = text.data_ptr().d_ptr();
        if (header && header->ref_.loadRelaxed() == 2)
            ::explicit_bzero(const_cast<QChar*>(text.constData()), size_t(text.size()) * sizeof(QChar));
        text.clear();
        box->setText(QString()); // unlike clear() it empties the undo list
    }
}

void wireShowHide(QPushButton& button, const QList<QLineEdit*>& boxes)
{
    showSecrets(button, boxes, false);
    QObject::connect(&button, &QPushButton::clicked, &button, [&button, boxes] {
        showSecrets(button, boxes, boxes.first()->echoMode() == QLineEdit::Password);
    });
}

bool tellChoice(Questions& questions, modPassword::Choice choice)
{
    switch (choice) {
    case modPassword::Choice::Saved:
        questions.ask(u"Master Password saved!"_s, MessageStyle::Information);
        return true;
    case modPassword::Choice::SelfCheckFailed:
        questions.ask(u"I found an error coding and decoding your password!"_s, MessageStyle::Critical);
        break;
    case modPassword::Choice::NotSaved:
        questions.ask(u"Error saving master password"_s, MessageStyle::Critical);
        break;
    }
    return false;
}

void tellNothingToDo(Questions& questions)
{
    questions.ask(u"Nothing to do. Try to close and restart SnipVale. If problem persist contact my author "
                  "(I am SnipVale:) for help."_s,
                  MessageStyle::Critical);
}
