// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/languages/ui/frmOptionsLanguageDetails.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "memo/languages/StyleRows.h"
#include "ui/widgets/Colors.h"
#include "ui_frmOptionsLanguageDetails.h"

#include <QFontDatabase>
#include <QIntValidator>
#include <QKeyEvent>
#include <algorithm>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr int largestSize = 400; // points; the editor takes no more
constexpr int largestSampleSize = 72; // points; what is larger would show one letter
constexpr int sampleLines = 4; // of the window's font, the least height of the sample

const QString goneText = u"The style is no longer in the archive."_s;

} // namespace

frmOptionsLanguageDetails::frmOptionsLanguageDetails(Archive& archive, const Desktop& desktop,
                                                     const QString& languageName, std::function<void()> onSaved,
                                                     QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmOptionsLanguageDetails>()), m_archive(archive), m_desktop(desktop),
      m_onSaved(std::move(onSaved))
{
    m_ui->setupUi(this);
    setWindowTitle(u"Styles for "_s + languageName + u' ');
    m_ui->lblSampleText->setMinimumHeight(sampleLines * fontMetrics().lineSpacing());
    fillCombos();
}

frmOptionsLanguageDetails::~frmOptionsLanguageDetails() = default;

void frmOptionsLanguageDetails::fillCombos()
{
    m_ui->cmbFontName->addItem(QString());
    m_ui->cmbFontName->addItems(QFontDatabase::families());
    m_ui->cmbFontName->lineEdit()->setPlaceholderText(u"Default"_s);
    m_ui->cmbFontSize->addItem(QString());
    for (const int size : {6, 7, 8, 9, 10, 11, 12, 13, 14, 16, 18, 20, 22, 24, 28, 32, 36, 48, 72})
        m_ui->cmbFontSize->addItem(QString::number(size));
    m_ui->cmbFontSize->lineEdit()->setPlaceholderText(u"Default"_s);
    m_ui->cmbFontSize->setCompleter(nullptr); // a typed 1 is not meant for a 10, and Enter goes to OK at once
    m_ui->cmbFontSize->setValidator(new QIntValidator(1, largestSize, this));
}

bool frmOptionsLanguageDetails::Form_Load(qint32 styleID)
{
    m_styleID = styleID;
    const bool loaded = trapErrors(m_desktop.questions, u"Form_Load"_s, [this] {
        const std::optional<StyleRow> style = readStyle(m_archive, m_styleID);
        if (!style)
            throw std::runtime_error(goneText.toStdString());
        showStyle(*style);
    });
    if (!loaded)
        return false;
    wireFields();
    drawSample();
    m_ui->cmbFontName->setFocus();
    return true;
}

void frmOptionsLanguageDetails::showStyle(const StyleRow& style)
{
    m_ui->lblStyle->setText(QString::number(style.number) + u"  "_s + style.description);
    m_ui->chkEnable->setChecked(style.isEnabled);
    // A font that this computer lacks keeps its name.
    m_ui->cmbFontName->setCurrentText(style.fontName);
    m_ui->cmbFontSize->setCurrentText(style.fontSize);
    showColor(*m_ui->txtForeColor, style.foreColor);
    showColor(*m_ui->txtBackColor, style.backColor);
    m_ui->chkBold->setChecked(style.isBold);
    m_ui->chkItalic->setChecked(style.isItalic);
    m_ui->chkUnderline->setChecked(style.isUnderlined);
    m_ui->chkInvisible->setChecked(style.isInvisible);
    QRadioButton* chosen = style.letterCase == 1 ? m_ui->optCase_1
        : style.letterCase == 2                  ? m_ui->optCase_2
                                                 : m_ui->optCase_0;
    chosen->setChecked(true);
}

void frmOptionsLanguageDetails::wireFields()
{
    for (QCheckBox* box : {m_ui->chkEnable, m_ui->chkBold, m_ui->chkItalic, m_ui->chkUnderline, m_ui->chkInvisible})
        connect(box, &QCheckBox::toggled, this, &frmOptionsLanguageDetails::drawSample);
    for (QRadioButton* option : {m_ui->optCase_0, m_ui->optCase_1, m_ui->optCase_2})
        connect(option, &QRadioButton::toggled, this, &frmOptionsLanguageDetails::drawSample);
    for (QComboBox* combo : {m_ui->cmbFontName, m_ui->cmbFontSize})
        connect(combo, &QComboBox::currentTextChanged, this, &frmOptionsLanguageDetails::drawSample);
    for (QLineEdit* box : {m_ui->txtForeColor, m_ui->txtBackColor})
        box->installEventFilter(this);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmOptionsLanguageDetails::cmdOK_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
}

bool frmOptionsLanguageDetails::eventFilter(QObject* watched, QEvent* event)
{
    auto* box = qobject_cast<QLineEdit*>(watched);
    if (!box)
        return QDialog::eventFilter(watched, event);
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto* mouse = static_cast<QMouseEvent*>(event);
        if (mouse->button() == Qt::LeftButton && box->rect().contains(mouse->position().toPoint()))
            chooseColor(*box);
    } else if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space) {
            chooseColor(*box);
            return true; // OK does not get it
        }
    }
    return QDialog::eventFilter(watched, event);
}

void frmOptionsLanguageDetails::chooseColor(QLineEdit& box)
{
    const qint64 initial = colorIn(box).value_or(0xFFFFFF);
    if (const auto chosen = m_desktop.files.pickColor(static_cast<std::uint32_t>(initial & 0xFFFFFF))) {
        showColor(box, *chosen);
        drawSample();
    }
}

void frmOptionsLanguageDetails::showColor(QLineEdit& box, std::optional<qint64> number)
{
    box.setText(number ? QString::number(*number) : QString());
    QPalette colors = palette();
    if (const std::optional<QColor> color = colorOfNumber(number)) {
        colors.setColor(QPalette::Base, *color);
        colors.setColor(QPalette::Text, blackOrWhiteOn(*color));
    }
    box.setPalette(colors);
}

std::optional<qint64> frmOptionsLanguageDetails::colorIn(const QLineEdit& box) const
{
    bool isNumber = false;
    const qint64 number = box.text().toLongLong(&isNumber);
    return isNumber ? std::optional(number) : std::nullopt;
}

int frmOptionsLanguageDetails::letterCase() const
{
    return m_ui->optCase_1->isChecked() ? 1 : m_ui->optCase_2->isChecked() ? 2 : 0;
}

StyleRow frmOptionsLanguageDetails::styleFromFields() const
{
    StyleRow style;
    style.id = m_styleID;
    style.isEnabled = m_ui->chkEnable->isChecked();
    style.fontName = m_ui->cmbFontName->currentText();
    style.fontSize = m_ui->cmbFontSize->currentText();
    style.foreColor = colorIn(*m_ui->txtForeColor);
    style.backColor = colorIn(*m_ui->txtBackColor);
    style.isBold = m_ui->chkBold->isChecked();
    style.isItalic = m_ui->chkItalic->isChecked();
    style.isUnderlined = m_ui->chkUnderline->isChecked();
    style.isInvisible = m_ui->chkInvisible->isChecked();
    style.letterCase = letterCase();
    return style;
}

// An empty colour box is shown as it will be saved.
void frmOptionsLanguageDetails::drawSample()
{
    const StyleRow style = styleFromFields();
    QFont font(style.fontName.isEmpty() ? u"Arial"_s : style.fontName);
    const int size = style.fontSize.toInt();
    font.setPointSize(size > 0 ? std::min(size, largestSampleSize) : 10);
    font.setBold(style.isBold);
    font.setItalic(style.isItalic);
    font.setUnderline(style.isUnderlined);
    QPalette colors = palette();
    colors.setColor(QPalette::WindowText, colorOfNumber(style.foreColor).value_or(Qt::white));
    colors.setColor(QPalette::Window, colorOfNumber(style.backColor).value_or(Qt::white));
    const QString text = u"Sample Text"_s;
    m_ui->lblSampleText->setFont(font);
    m_ui->lblSampleText->setPalette(colors);
    m_ui->lblSampleText->setText(style.letterCase == 1       ? text.toUpper()
                                     : style.letterCase == 2 ? text.toLower()
                                                             : text);
}

void frmOptionsLanguageDetails::cmdOK_Click()
{
    const bool saved = trapErrors(m_desktop.questions, u"cmdOK"_s, [this] {
        if (!updateStyle(m_archive, styleFromFields()))
            throw std::runtime_error(goneText.toStdString());
    });
    if (!saved)
        return;
    m_onSaved();
    accept();
}
