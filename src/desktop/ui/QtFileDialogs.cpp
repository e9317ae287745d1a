// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ui/QtFileDialogs.h"

#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>

using namespace Qt::StringLiterals;

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
