// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/frmAbout.h"

#include "jet/Database.h"
#include "ui/widgets/Icons.h"
#include "ui/widgets/ShownText.h"
#include "ui_frmAbout.h"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QScrollBar>
#include <QSysInfo>
#include <Qsci/qsciglobal.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int licenceColumns = 82; // of its text, with the margins

// What https://www.gnu.org/licenses/gpl-howto.html asks an interactive program to say.
const QString shortLicence =
    u"SnipVale is free software: you can redistribute it and/or modify it under the terms of the GNU General Public "
    "License, version 3 or (at your option) any later version. It comes with ABSOLUTELY NO WARRANTY."_s;

} // namespace

// QScintilla tells its version only when it is compiled against, and not which Scintilla it wraps: all of its releases
// from 2.11 on wrap 3.10.1.
QList<AboutLibrary> aboutLibraries()
{
    return {{u"Qt"_s, QString::fromLatin1(qVersion()), u"LGPL 3"_s},
            {u"QScintilla"_s, QStringLiteral(QSCINTILLA_VERSION_STR), u"GPL 3"_s},
            {u"Scintilla"_s, u"3.10.1"_s, u"HPND"_s},
            {u"SQLite"_s, jet::engineVersion(), u"public domain"_s},
            {u"Breeze icons"_s, QString(), u"LGPL 3"_s}};
}

frmAbout::frmAbout(AboutFacts facts, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmAbout>()), m_facts(std::move(facts))
{
    m_ui->setupUi(this);
    showHeading();
    showFacts();
    m_ui->cmdCopy->setIcon(themedIcon(u"edit-copy"_s));
    connect(m_ui->cmdCopy, &QPushButton::clicked, this, &frmAbout::cmdCopy_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QDialog::accept);
    connect(m_ui->tabAbout, &QTabWidget::currentChanged, this, &frmAbout::showLicence);
    m_ui->cmdClose->setFocus();
}

frmAbout::~frmAbout() = default;

void frmAbout::showHeading()
{
    m_ui->imgProgram->setPixmap(QApplication::windowIcon().pixmap(QSize(64, 64), devicePixelRatioF()));
    QFont large = font();
    large.setPointSizeF(large.pointSizeF() * 1.6);
    large.setBold(true);
    m_ui->lblProgram->setFont(large);
    m_ui->lblVersion->setText(u"Version "_s + QStringLiteral(SNIPVALE_VERSION));
}

void frmAbout::showFacts()
{
    m_ui->txtArchive->setText(QDir::toNativeSeparators(m_facts.archivePath));
    m_ui->txtProgram->setText(QDir::toNativeSeparators(m_facts.programDirectory));
    for (QLineEdit* box : {m_ui->txtArchive, m_ui->txtProgram}) {
        box->setToolTip(plainToolTip(box->text()));
        box->setCursorPosition(0);
    }
    // As wide as the lines of the licence; longer paths are scrolled.
    QPlainTextEdit& licence = *m_ui->txtLicence;
    licence.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    licence.setMinimumWidth(licenceColumns * QFontMetrics(licence.font()).horizontalAdvance(u'm') +
                            licence.verticalScrollBar()->sizeHint().width());
    m_ui->lblLicence->setText(shortLicence);
    const QList<AboutLibrary> libraries = aboutLibraries();
    for (const AboutLibrary& library : libraries)
        new QTreeWidgetItem(m_ui->lvwLibraries, {library.name, library.version, library.licence});
    for (int column = 0; column < m_ui->lvwLibraries->columnCount(); ++column)
        m_ui->lvwLibraries->resizeColumnToContents(column);
    QTreeWidget& list = *m_ui->lvwLibraries;
    list.setFixedHeight(int(libraries.size()) * list.sizeHintForRow(0) + list.header()->sizeHint().height() +
                        2 * list.frameWidth());
}

void frmAbout::showLicence()
{
    if (m_ui->tabAbout->currentWidget() != m_ui->pageLicence || !m_ui->txtLicence->toPlainText().isEmpty())
        return;
    QFile file(m_facts.licenceFile);
    m_ui->txtLicence->setPlainText(file.open(QFile::ReadOnly) ? QString::fromUtf8(file.readAll())
                                                              : shortLicence +
                                           u"\n\nThe full text is at https://www.gnu.org/licenses/gpl-3.0.html"_s);
}

QString frmAbout::report() const
{
    QString text = u"SnipVale: "_s + QStringLiteral(SNIPVALE_VERSION) + u'\n';
    for (const AboutLibrary& library : aboutLibraries())
        if (!library.version.isEmpty())
            text += library.name + u": "_s + library.version + u'\n';
    text += u"System: %1, %2, %3\n"_s.arg(QSysInfo::prettyProductName(), QSysInfo::currentCpuArchitecture(),
                                          QGuiApplication::platformName());
    return text + u"Archive: "_s + m_ui->txtArchive->text() + u"\nProgram directory: "_s + m_ui->txtProgram->text() +
        u'\n';
}

void frmAbout::cmdCopy_Click()
{
    QGuiApplication::clipboard()->setText(report());
    m_ui->cmdCopy->setText(u"Copied"_s);
}
