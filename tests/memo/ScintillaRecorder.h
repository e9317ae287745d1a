// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "memo/code/CodeEditor.h"
#include "memo/code/ScintillaMessages.h"

#include <QMap>
#include <QStringList>

// A code editor that only writes down what it is told: "2052 34 5" or "4005 0 'if else'". Its answers are by
// script: per message, or per message and first parameter.
class ScintillaRecorder : public CodeEditor {
public:
    std::intptr_t send(unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override
    {
        const auto first = static_cast<std::intptr_t>(wParam);
        if (!isQuestion(message) || recordQuestions)
            sent.append(QStringLiteral("%1 %2 %3").arg(message).arg(first).arg(lParam));
        return answersTo.value({message, first}, answers.value(message, 0));
    }
    std::intptr_t send(unsigned message, std::uintptr_t wParam, const QByteArray& text) override
    {
        sent.append(QStringLiteral("%1 %2 '%3'").arg(message).arg(wParam).arg(QString::fromUtf8(text)));
        return answers.value(message, 0);
    }
    std::intptr_t send(unsigned message, const QByteArray& first, const QByteArray& second) override
    {
        sent.append(
            QStringLiteral("%1 '%2' '%3'").arg(message).arg(QString::fromUtf8(first), QString::fromUtf8(second)));
        return 0;
    }
    QByteArray text() const override { return content; }
    void setText(const QByteArray& text) override { content = text; }

    QStringList take() { return std::exchange(sent, {}); }

    QStringList sent;
    QMap<unsigned, std::intptr_t> answers;
    QMap<std::pair<unsigned, std::intptr_t>, std::intptr_t> answersTo;
    QByteArray content;
    bool recordQuestions = false; // also messages that only ask

private:
    static bool isQuestion(unsigned message)
    {
        static constexpr unsigned asking[] = {
            SCI_GETLENGTH,        SCI_GETCHARAT,      SCI_GETCURRENTPOS, SCI_GETCOLUMN,        SCI_GETLINECOUNT,
            SCI_LINEFROMPOSITION, SCI_GETTARGETSTART, SCI_GETTARGETEND,  SCI_POSITIONFROMLINE, SCI_GETFOLDLEVEL};
        return std::find(std::begin(asking), std::end(asking), message) != std::end(asking);
    }
};
