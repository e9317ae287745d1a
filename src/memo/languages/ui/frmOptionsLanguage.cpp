// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/languages/ui/frmOptionsLanguage.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/FrameServices.h"
#include "desktop/Questions.h"
#include "memo/code/modScintilla.h"
#include "memo/languages/StyleRows.h"
#include "memo/languages/ui/frmOptionsLanguageDetails.h"
#include "ui/widgets/Colors.h"
#include "ui/widgets/RawText.h"
#include "ui_frmOptionsLanguage.h"

#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>
#include <QStandardItemModel>
#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

const QString openCommand = u"miOptionsLanguageDetailsOpen"_s;

QStandardItem* colorItem(const std::optional<qint64>& value)
{
    auto* item = new QStandardItem(value ? QString::number(*value) : QString());
    if (const std::optional<QColor> color = colorOfNumber(value)) {
        item->setBackground(*color);
        item->setForeground(blackOrWhiteOn(*color));
    }
    return item;
}

QString caseText(qint64 letterCase)
{
    switch (letterCase) {
    case 0:
        return u"Normal"_s;
    case 1:
        return u"UPPER"_s;
    case 2:
        return u"lower"_s;
    default:
        return QString::number(letterCase);
    }
}

} // namespace

frmOptionsLanguage::frmOptionsLanguage(Archive& archive, const Desktop& desktop, FrameServices& frame, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmOptionsLanguage>()), m_archive(archive), m_desktop(desktop),
      m_frame(frame), m_styles(new QStandardItemModel(this))
{
    m_ui->setupUi(this);
    // The mode that also breaks inside words takes minutes for a megabyte without blanks.
    m_ui->txtKeywords->setWordWrapMode(QTextOption::WordWrap);
    m_ui->hSplitter->setStretchFactor(0, 3);
    m_ui->hSplitter->setStretchFactor(1, 2);
    m_styles->setHorizontalHeaderLabels({u"Number"_s, u"Enable"_s, u"Description"_s, u"Font name"_s, u"Font size"_s,
                                         u"Fore color"_s, u"Back color"_s, u"Bold"_s, u"Italic"_s, u"Underline"_s,
                                         u"Case"_s, u"Invisible"_s});
    ListView* list = m_ui->lvwLanguage;
    list->setModel(m_styles);
    connect(list, &ListView::openRequested, this, &frmOptionsLanguage::OpenDetails);
    connect(list, &ListView::menuRequested, this, [this](const QPoint& position, bool overItem) {
        if (overItem)
            m_frame.popupMenu(u"mnuOptionsLanguage"_s, position);
    });
    connect(list, &ListView::selectionMade, this, &frmOptionsLanguage::updateCommands);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmOptionsLanguage::cmdOK_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &frmOptionsLanguage::reject);
    m_frame.handleCommand(openCommand, u"OpenDetails"_s, [this] { OpenDetails(); });
}

frmOptionsLanguage::~frmOptionsLanguage()
{
    m_frame.handleCommand(openCommand, {}, {});
}

bool frmOptionsLanguage::Form_Load(qint32 memoTypeID, const QString& name)
{
    m_memoTypeID = memoTypeID;
    m_name = name;
    setWindowTitle(u"Styles Setting"_s + u" Language: "_s + name);
    if (!trapErrors(m_desktop.questions, u"Form_Load"_s, [this] { loadKeywords(); }) || !MakelvwLanguageContents())
        return false;
    fitColumns();
    m_ui->lvwLanguage->setCurrentIndex(m_styles->index(0, 0));
    m_ui->lvwLanguage->setFocus();
    return true;
}

// All columns are seen at once where the screen is wide enough.
void frmOptionsLanguage::fitColumns()
{
    ListView* list = m_ui->lvwLanguage;
    for (int column = 0; column < m_styles->columnCount(); ++column)
        list->resizeColumnToContents(column);
    const int frame = 2 * list->frameWidth() + list->verticalScrollBar()->sizeHint().width() +
        layout()->contentsMargins().left() + layout()->contentsMargins().right();
    const int widest = screen()->availableGeometry().width() * 9 / 10;
    resize(std::max(width(), std::min(list->header()->length() + frame, widest)), height());
}

void frmOptionsLanguage::loadKeywords()
{
    m_lexerCode = lexerCodeOf(m_archive, m_memoTypeID);
    m_storedKeywords = keywordsOf(m_archive, m_lexerCode);
    m_ui->txtKeywords->setPlainText(m_storedKeywords);
}

bool frmOptionsLanguage::MakelvwLanguageContents()
{
    return trapErrors(m_desktop.questions, u"MakelvwLanguageContents"_s, [this] {
        const std::vector<StyleRow> styles = readStyles(m_archive, m_memoTypeID);
        m_ui->lvwLanguage->refill([&] {
            m_styles->removeRows(0, m_styles->rowCount());
            for (const StyleRow& style : styles)
                addStyle(style);
        });
    });
}

void frmOptionsLanguage::addStyle(const StyleRow& style)
{
    const auto cell = [](const QString& text) { return new QStandardItem(text); };
    const auto yes = [](bool on) { return new QStandardItem(on ? u"YES"_s : u"-"_s); };
    QStandardItem* number = cell(QString::number(style.number));
    number->setData(QString::number(style.id) + u" ID"_s, Qt::UserRole);
    m_styles->appendRow({number, cell(style.isEnabled ? u"YES"_s : QString()), cell(style.description),
                         cell(style.fontName), cell(style.fontSize), colorItem(style.foreColor),
                         colorItem(style.backColor), yes(style.isBold), yes(style.isItalic), yes(style.isUnderlined),
                         cell(caseText(style.letterCase)), yes(style.isInvisible)});
}

void frmOptionsLanguage::updateCommands()
{
    m_frame.enableCommand(openCommand, m_ui->lvwLanguage->selectedRow().isValid());
}

void frmOptionsLanguage::OpenDetails()
{
    const qint32 styleID = m_ui->lvwLanguage->selectedId();
    if (!m_ui->lvwLanguage->selectedRow().isValid())
        return;
    frmOptionsLanguageDetails details(
        m_archive, m_desktop, m_name, [this] { MakelvwLanguageContents(); }, this);
    if (details.Form_Load(styleID))
        details.exec();
}

bool frmOptionsLanguage::isDirty() const
{
    return m_ui->txtKeywords->document()->isModified();
}

// Those that were not edited keep their line ends.
QString frmOptionsLanguage::keywords() const
{
    return isDirty() ? rawText(*m_ui->txtKeywords) : m_storedKeywords;
}

void frmOptionsLanguage::cmdOK_Click()
{
    const bool saved = trapErrors(m_desktop.questions, u"cmdOK"_s, [this] {
        if (!updateKeywords(m_archive, m_lexerCode, keywords()))
            throw std::runtime_error("The language is no longer in the archive.");
    });
    if (saved)
        accept();
}

void frmOptionsLanguage::reject()
{
    if (isDirty() && !mayDropChanges(m_desktop.questions))
        return;
    QDialog::reject();
}
