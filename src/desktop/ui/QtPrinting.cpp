// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ui/QtPrinting.h"

#include <QDir>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

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
