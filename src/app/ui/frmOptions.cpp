// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/frmOptions.h"

#include "app/Settings.h"
#include "app/modSnipVale.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "desktop/Desktop.h"
#include "desktop/FrameServices.h"
#include "desktop/Questions.h"
#include "memo/languages/StyleRows.h"
#include "memo/languages/ui/frmOptionsLanguage.h"
#include "ui_frmOptions.h"

#include <QCoreApplication>
#include <QStandardItemModel>
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
                 startArguments(program.AppPath)),
      m_languages(new QStandardItemModel(this))
{
    m_ui->setupUi(this);
    m_languages->setHorizontalHeaderLabels({u"Language"_s, u"Description"_s});
    m_ui->lvwLanguage->setModel(m_languages);
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
    const bool isLoaded = trapErrors(m_desktop.questions, u"Form_Load"_s, [this] { loadLanguages(); });
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

void frmOptions::loadLanguages()
{
    for (const LanguageRow& language : readEnabledLanguages(m_program.archive)) {
        auto* name = new QStandardItem(language.name);
        name->setData(QString::number(language.id) + u" ID"_s, Qt::UserRole);
        name->setData(language.lexerCode, Qt::UserRole + 1);
        name->setCheckable(true);
        name->setCheckState(language.isVisible ? Qt::Checked : Qt::Unchecked);
        m_languages->appendRow({name, new QStandardItem(language.description)});
    }
    m_ui->lvwLanguage->resizeColumnToContents(0);
    m_ui->lvwLanguage->setCurrentIndex(m_languages->index(0, 0));
}

void frmOptions::wireFields()
{
    ListView* list = m_ui->lvwLanguage;
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
    const bool isSelected = selectedLanguage() != nullptr;
    m_ui->cmdLanguage->setEnabled(isSelected);
    m_frame.enableCommand(openCommand, isSelected);
}

const QStandardItem* frmOptions::selectedLanguage() const
{
    return m_languages->itemFromIndex(m_ui->lvwLanguage->selectedRow());
}

void frmOptions::OpenLanguage()
{
    const QStandardItem* language = selectedLanguage();
    if (!language)
        return;
    frmOptionsLanguage window(m_program.archive, m_desktop, m_frame, this);
    if (window.Form_Load(leadingNumber(language->data(Qt::UserRole).toString()), language->text()))
        window.exec();
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
        saveVisibility(m_program.archive, languagesInList());
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

std::vector<LanguageRow> frmOptions::languagesInList() const
{
    std::vector<LanguageRow> languages;
    for (int row = 0; row < m_languages->rowCount(); ++row) {
        const QStandardItem* item = m_languages->item(row);
        LanguageRow language;
        language.id = leadingNumber(item->data(Qt::UserRole).toString());
        language.isVisible = item->checkState() == Qt::Checked;
        languages.push_back(language);
    }
    return languages;
}

void frmOptions::RunAtStart(bool on)
{
    if (on)
        m_registry.SetRegValue(machine, runKey, runName, QCoreApplication::applicationFilePath());
    else
        m_registry.DeleteRegValue(machine, runKey, runName);
}
