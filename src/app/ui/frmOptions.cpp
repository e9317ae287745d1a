// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/frmOptions.h"

#include "app/Settings.h"
#include "app/modSnipVale.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/FrameServices.h"
#include "desktop/Questions.h"
#include "ui_frmOptions.h"

#include <QCoreApplication>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

const QString openCommand = u"miOptionsLanguage"_s;
const QString runKey = u"Software\\Microsoft\\Windows\\CurrentVersion\\Run"_s;
const QString runName = u"SnipVale"_s;
constexpr quint32 machine = modRegistry::HKEY_LOCAL_MACHINE;

// A program that was started with a home of its own must find it again after the log-in.
QStringList startArguments(const QString& home)
{
    const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + u"/snipvale"_s;
    const QString usual = homeFolders({}, QCoreApplication::applicationDirPath(), data).home;
    return home == usual ? QStringList() : QStringList{u"--home"_s, home};
}

} // namespace

frmOptions::frmOptions(modSnipVale& program, const Desktop& desktop, FrameServices& frame, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmOptions>()), m_program(program), m_desktop(desktop), m_frame(frame),
      m_registry(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation),
                 startArguments(program.AppPath))
{
    m_ui->setupUi(this);
    m_frame.handleCommand(openCommand, u"OpenLanguage"_s, [this] { OpenLanguage(); });
}

frmOptions::~frmOptions()
{
    m_frame.handleCommand(openCommand, {}, {});
}

bool frmOptions::Form_Load()
{
    m_ui->chkRunAtStart->setChecked(!m_registry.GetRegValue(machine, runKey, runName).toString().isEmpty());
    showSettings();
    const bool isLoaded =
        trapErrors(m_desktop.questions, u"Form_Load"_s, [this] { m_ui->lvwLanguage->load(m_program.archive); });
    wireFields();
    updateCommands();
    m_ui->chkRunAtStart->setFocus();
    return isLoaded;
}

// Of a settings file that went away or was spoilt meanwhile the box stays empty, and an empty box writes no path.
void frmOptions::showSettings()
{
    bool isFlat = m_program.XPLook;
    QString error;
    keepError(error, [&] {
        m_storedArchive = readProfile(m_program.IniFile, u"setup"_s, u"dbfullpath"_s, u"snipvale.ini"_s);
        const QString look = readProfile(m_program.IniFile, u"preferences"_s, u"xplook"_s, {});
        isFlat = !look.isEmpty() && textToBoolean(look);
    });
    m_ui->txtDefaultDb->setText(m_storedArchive);
    m_ui->txtDefaultDb->setCursorPosition(0);
    (isFlat ? m_ui->optStileXP : m_ui->optStileNormale)->setChecked(true);
}

void frmOptions::wireFields()
{
    const LanguageList* list = m_ui->lvwLanguage;
    connect(list, &ListView::openRequested, this, &frmOptions::OpenLanguage);
    connect(list, &ListView::menuRequested, this, [this](const QPoint& position, bool overItem) {
        if (overItem)
            m_frame.popupMenu(u"mnuOptions"_s, position);
    });
    connect(list, &ListView::selectionMade, this, &frmOptions::updateCommands);
    connect(m_ui->cmdLanguage, &QPushButton::clicked, this, &frmOptions::OpenLanguage);
    connect(m_ui->cmdSelect, &QPushButton::clicked, this, &frmOptions::cmdSelect_Click);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmOptions::cmdOK_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

void frmOptions::updateCommands()
{
    const bool isSelected = m_ui->lvwLanguage->selectedRow().isValid();
    m_ui->cmdLanguage->setEnabled(isSelected);
    m_frame.enableCommand(openCommand, isSelected);
}

void frmOptions::OpenLanguage()
{
    m_ui->lvwLanguage->openStyles(m_program.archive, m_desktop, m_frame);
}

void frmOptions::cmdSelect_Click()
{
    const auto file = m_desktop.files.openFile(u"Select a default archive"_s, u"SnipVale Archive(*.SVA) |*.SVA"_s);
    if (file && !file->isEmpty())
        m_ui->txtDefaultDb->setText(*file);
}

void frmOptions::cmdOK_Click()
{
    const QString path = m_ui->txtDefaultDb->text();
    if (!mayKeepPath(path))
        return;
    const bool isSaved = trapErrors(m_desktop.questions, u"cmdOK"_s, [this, &path] {
        saveDefaultArchive(path);
        saveLook();
        m_ui->lvwLanguage->save(m_program.archive);
        RunAtStart(m_ui->chkRunAtStart->isChecked());
    });
    if (isSaved)
        accept();
}

bool frmOptions::mayKeepPath(const QString& path)
{
    if (path.size() <= longestProfileValue || path == m_storedArchive)
        return true;
    const QString question =
        u"The path of the default archive has %1 characters. At the next start only the first %2 are read, so the "
        "archive will not be found.\r\nSave it anyway?"_s.arg(path.size())
            .arg(longestProfileValue);
    if (m_desktop.questions.ask(question, MessageStyle::YesNoDefaultNo) == Answer::Yes)
        return true;
    m_ui->TabStrip1->setCurrentIndex(0);
    m_ui->txtDefaultDb->setFocus();
    return false;
}

// The running program stays on its archive. A path that was not touched is not written: what the box shows of a
// long one is only what was read.
void frmOptions::saveDefaultArchive(const QString& path)
{
    if (path.trimmed().isEmpty())
        return;
    m_program.archive.setPath(m_program.archive.ArchivePath());
    if (path != m_storedArchive && writeProfile(m_program.IniFile, u"setup"_s, u"dbfullpath"_s, path))
        m_storedArchive = path;
}

void frmOptions::saveLook()
{
    const bool isFlat = m_ui->optStileXP->isChecked();
    writeProfile(m_program.IniFile, u"preferences"_s, u"xplook"_s, isFlat ? u"1"_s : u"0"_s);
    m_program.XPLook = isFlat;
    emit lookChanged(isFlat);
}

void frmOptions::RunAtStart(bool on)
{
    if (on)
        m_registry.SetRegValue(machine, runKey, runName, QCoreApplication::applicationFilePath());
    else
        m_registry.DeleteRegValue(machine, runKey, runName);
}
