// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/UiSupport.h"

#include <QApplication>
#include <QPrinter>
#include <QTimer>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

template <typename Queue>
typename Queue::value_type next(Queue& answers, const QString& title)
{
    if (answers.empty()) {
        QTest::qFail(qPrintable(u"unforeseen dialog: "_s + title), __FILE__, __LINE__);
        return {};
    }
    auto answer = answers.front();
    answers.pop_front();
    return answer;
}

} // namespace

std::optional<QString> ScriptedFiles::openFile(const QString& title, const QString& filter)
{
    asked.append(title + u'|' + filter);
    return next(answers, title);
}

std::optional<QString> ScriptedFiles::saveFile(const QString& title, const QString& filter, const QString&)
{
    return openFile(title, filter);
}

std::optional<std::uint32_t> ScriptedFiles::pickColor(std::uint32_t)
{
    return next(colors, u"colour"_s);
}

bool ScriptedPrinting::choose(QPrinter& printer, QWidget*)
{
    const QString file = next(files, u"print"_s);
    if (file.isEmpty())
        return false;
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    if (onChoose)
        onChoose(printer);
    return true;
}

void whenModal(std::function<void(QWidget& window)> step)
{
    QTimer::singleShot(0, qApp, [step = std::move(step)] {
        if (QWidget* window = QApplication::activeModalWidget())
            step(*window);
        else
            whenModal(step);
    });
}
