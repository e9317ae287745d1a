// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ui/QtDesktop.h"

#include <QApplication>
#include <QColorDialog>
#include <QDesktopServices>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QStandardPaths>
#include <QUrl>

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

// The document's name as that of a file in the user's documents.
QString proposedFile(const QPrinter& printer)
{
    constexpr qsizetype longest = 80; // far below what file systems take, in any script
    QString name = printer.docName().left(longest);
    for (QChar& c : name) {
        if (!c.isPrint() || c.isSurrogate() || u"/\\:*?\"<>|"_s.contains(c))
            c = u'_';
    }
    name = name.trimmed();
    if (name.isEmpty() || name.startsWith(u'.'))
        name.prepend(u"print"_s);
    const QDir documents(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
    return (documents.exists() ? documents : QDir::home()).filePath(name + u".pdf"_s);
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

std::optional<QString> QtFileDialogs::openFile(const QString& title, const QString& filter)
{
    QFileDialog dialog(QApplication::activeWindow(), title);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return run(dialog, filter);
}

std::optional<QString> QtFileDialogs::saveFile(const QString& title, const QString& filter, const QString& suffix)
{
    QFileDialog dialog(QApplication::activeWindow(), title);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(suffix);
    return run(dialog, filter);
}

std::optional<QString> QtFileDialogs::run(QFileDialog& dialog, const QString& filter)
{
    const QString label = filter.section(u'|', 0, 0).trimmed();
    QString pattern = filter.section(u'|', 1).trimmed();
    if (pattern == "*.*"_L1)
        pattern = u"*"_s; // here a name needs no dot
    dialog.setNameFilter(label + u" ("_s + pattern + u')');
    dialog.setOption(QFileDialog::HideNameFilterDetails); // the label has them already
    if (!m_folder.isEmpty())
        dialog.setDirectory(m_folder);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    m_folder = dialog.directory().absolutePath();
    return dialog.selectedFiles().constFirst();
}

std::optional<std::uint32_t> QtFileDialogs::pickColor(std::uint32_t initial)
{
    const QColor start(int(initial & 0xFF), int(initial >> 8 & 0xFF), int(initial >> 16 & 0xFF));
    const QColor chosen = QColorDialog::getColor(start, QApplication::activeWindow());
    if (!chosen.isValid())
        return std::nullopt;
    return std::uint32_t(chosen.red() | chosen.green() << 8 | chosen.blue() << 16);
}

bool QtPrinting::choose(QPrinter& printer, QWidget* parent)
{
    if (printer.outputFormat() == QPrinter::PdfFormat && printer.outputFileName().isEmpty())
        printer.setOutputFileName(proposedFile(printer));
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    dialog.setOption(QAbstractPrintDialog::PrintCollateCopies);
    return dialog.exec() == QDialog::Accepted;
}

bool QtPrinting::setUpPage(QPrinter& printer, QWidget* parent)
{
    QPageSetupDialog dialog(&printer, parent);
    return dialog.exec() == QDialog::Accepted;
}

bool QtShell::open(const QString& linkOrFile)
{
    return QDesktopServices::openUrl(QUrl::fromUserInput(linkOrFile));
}
