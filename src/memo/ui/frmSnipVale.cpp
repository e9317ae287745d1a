// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/ui/frmSnipVale.h"

#include "archive/Archive.h"
#include "archive/Element.h"
#include "archive/ElementQuestions.h"
#include "archive/ErrorTrap.h"
#include "archive/cViewFilter.h"
#include "desktop/Desktop.h"
#include "desktop/Questions.h"
#include "desktop/TextForms.h"
#include "memo/cMemo.h"
#include "memo/code/cScintilla.h"
#include "memo/code/ui/ScintillaView.h"
#include "memo/code/ui/frmScintillaFind.h"
#include "ui/richtext/RichTextBox.h"
#include "ui/widgets/Icons.h"
#include "ui_frmSnipVale.h"

#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

} // namespace

frmSnipVale::frmSnipVale(const MemoContext& context, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmSnipVale>()), m_context(context)
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_ui->cmdUrl->setIcon(themedIcon(u"internet-services"_s));
    makeNoteBar();
    makeCodeEditor();
    makeCodeBar();
    wirePanes();
}

frmSnipVale::~frmSnipVale()
{
    if (m_editor)
        m_editor->setHandler(nullptr); // it is deleted after its behaviour
}

void frmSnipVale::makeCodeEditor()
{
    m_editor = new ScintillaView(m_ui->rtfSnipVale);
    m_editor->setObjectName(u"codeEditor"_s);
    m_ui->rtfSnipVale->host(m_editor);
    setTabOrder(m_ui->imgCodeEqual, m_editor); // made last, it stands here
    m_scintilla = std::make_unique<cScintilla>(*m_editor, m_context.archive);
    m_editor->setHandler(m_scintilla.get());
    m_scintilla->Init();
    m_scintilla->SetLexerDefault();
}

bool frmSnipVale::Form_Load()
{
    cMemo& memo = m_context.memo;
    if (m_context.viewFilter.EditingModeMemoID != 0) {
        if (!loadRecord())
            return false;
        LoadComboMemoType();
        showRecord();
    } else {
        memo.MemoID = 0;
        memo.CategoryID = m_context.listener.selectedCategory();
        LoadComboMemoType();
    }
    m_scintilla->SetLexer(m_ui->cboMemoType->currentData().toInt());
    updateLinkButton();
    toggleWrap();
    wireFields(); // from here on a change is the user's
    m_ui->cmdApply->setEnabled(false);
    m_ui->txtMemoName->setFocus();
    return true;
}

bool frmSnipVale::loadRecord()
{
    cMemo& memo = m_context.memo;
    // Load leaves the fields alone where the row has nothing to say; none of another memo may stay.
    memo.MemoID = m_context.viewFilter.EditingModeMemoID;
    memo.CategoryID = 0;
    memo.MemoTypeID = 0;
    memo.MemoDateIn = memo.MemoDateLastMod = QDateTime();
    if (!memo.Load()) {
        reportError(m_context.archive.questions(), u"Load"_s, memo.lastError());
        return false;
    }
    if (memo.CategoryID == 0) {
        reportError(m_context.archive.questions(), u"Load"_s, u"The memo is no longer in the archive."_s);
        return false;
    }
    return true;
}

void frmSnipVale::showRecord()
{
    const cMemo& memo = m_context.memo;
    setWindowTitle(u"Memo: "_s + memo.MemoName);
    m_ui->txtMemoName->setText(memo.MemoName);
    m_ui->txtMemoDescription->setText(memo.MemoDescription);
    m_ui->txtMemoLink->setText(memo.MemoLink);
    m_ui->rtfSnipVale->setText(memo.SnipVale);
    m_ui->rtfMemoNotes->setRtf(memo.MemoNotes);
    m_ui->lblDateIn->setText(shortMoment(memo.MemoDateIn));
    m_ui->lblLastModified->setText(shortMoment(memo.MemoDateLastMod));
    m_editor->setText(memo.SnipVale.toUtf8());
}

void frmSnipVale::LoadComboMemoType()
{
    trapErrors(m_context.archive.questions(), u"LoadComboMemoType"_s, [&] {
        QComboBox& combo = *m_ui->cboMemoType;
        combo.clear();
        ArchiveUnit unit(m_context.archive);
        jet::Recordset rows = unit.Open(u"SELECT * FROM tab_memoType "_s + u" WHERE enabled = true "_s +
                                        u" AND visible = true "_s + u" ORDER BY name"_s);
        for (; !rows.eof(); rows.moveNext())
            combo.addItem(rows.text(u"name"_s), qint32(rows.integer(u"memoTypeID"_s)));
        combo.setCurrentIndex(combo.findData(m_context.memo.MemoTypeID));
    });
}

void frmSnipVale::wireFields()
{
    for (QLineEdit* box : {m_ui->txtMemoName, m_ui->txtMemoDescription, m_ui->txtMemoLink})
        connect(box, &QLineEdit::textChanged, this, &frmSnipVale::markDirty);
    connect(m_ui->txtMemoLink, &QLineEdit::textChanged, this, &frmSnipVale::updateLinkButton);
    connect(m_ui->cboMemoType, &QComboBox::activated, this, &frmSnipVale::cboMemoType_Click);
    connect(m_ui->rtfMemoNotes, &RichTextBox::edited, this, &frmSnipVale::markDirty);
    connect(m_editor, &ScintillaView::edited, this, &frmSnipVale::markDirty);
    connect(m_ui->cmdUrl, &QToolButton::clicked, this, [this] { openAddress(m_ui->txtMemoLink->text()); });
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmSnipVale::cmdOK_Click);
    connect(m_ui->cmdApply, &QPushButton::clicked, this, &frmSnipVale::cmdApply_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &frmSnipVale::reject);
    const auto* apply = new QShortcut(QKeySequence::Save, this);
    connect(apply, &QShortcut::activated, m_ui->cmdApply, &QPushButton::click);
}

// The lexer dresses the text where it stands: it need not be put back, and undo and the caret stay.
void frmSnipVale::cboMemoType_Click()
{
    markDirty();
    m_scintilla->SetLexer(m_ui->cboMemoType->currentData().toInt());
}

void frmSnipVale::markDirty()
{
    m_isDirty = true;
    m_ui->cmdApply->setEnabled(true);
}

void frmSnipVale::updateLinkButton()
{
    const QString link = m_ui->txtMemoLink->text();
    const bool isLink = isWebAddress(link);
    m_ui->cmdUrl->setEnabled(isLink);
    QPalette colours;
    if (isLink)
        colours.setColor(QPalette::Text, palette().color(QPalette::Link));
    m_ui->txtMemoLink->setPalette(colours);
}

void frmSnipVale::openAddress(const QString& address)
{
    trapErrors(m_context.archive.questions(), u"cmdUrl_Click"_s, [&] { m_context.desktop.shell.openLink(address); });
}

bool frmSnipVale::transfer()
{
    if (m_ui->txtMemoName->text().trimmed().isEmpty()) {
        m_context.archive.questions().ask(u"Please choose a name!"_s, MessageStyle::Information);
        m_ui->txtMemoName->setFocus();
        return false;
    }
    cMemo& memo = m_context.memo;
    memo.MemoName = m_ui->txtMemoName->text();
    memo.MemoDescription = m_ui->txtMemoDescription->text();
    memo.MemoLink = m_ui->txtMemoLink->text();
    memo.MemoTypeID = m_ui->cboMemoType->currentData().toInt();
    m_ui->rtfSnipVale->setText(QString::fromUtf8(m_editor->text()));
    memo.SnipVale = m_ui->rtfSnipVale->text();
    memo.MemoNotes = m_ui->rtfMemoNotes->rtf();
    return true;
}

bool frmSnipVale::save()
{
    if (!transfer())
        return false;
    cMemo& memo = m_context.memo;
    if (m_context.viewFilter.EditingModeMemoID != 0) {
        if (!memo.Update()) {
            // The record keeps silent about a failed update; the user must not.
            reportError(m_context.archive.questions(), u"Update"_s, memo.lastError());
            return false;
        }
    } else {
        if (!memo.Save())
            return false;
        m_context.viewFilter.EditingModeMemoID = memo.MemoID;
    }
    m_context.listener.elementSaved({ElementKind::Memo, memo.MemoID});
    m_isDirty = false;
    m_ui->cmdApply->setEnabled(false);
    return true;
}

bool frmSnipVale::saveWithHourglass()
{
    QWidget* focus = focusWidget();
    setCursor(Qt::WaitCursor);
    setEnabled(false);
    const bool saved = save();
    setEnabled(true);
    unsetCursor();
    if (focus)
        focus->setFocus();
    return saved;
}

void frmSnipVale::cmdOK_Click()
{
    if (saveWithHourglass())
        accept();
}

void frmSnipVale::cmdApply_Click()
{
    if (saveWithHourglass())
        setWindowTitle(u"Memo: "_s + m_context.memo.MemoName);
}

void frmSnipVale::reject()
{
    if (m_isDirty && !mayDropChanges(m_context.archive.questions()))
        return;
    QDialog::reject();
}

void frmSnipVale::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        updateLinkButton();
}
