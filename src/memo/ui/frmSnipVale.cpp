// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/ui/frmSnipVale.h"

#include "archive/Archive.h"
#include "archive/Element.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/TextFile.h"
#include "desktop/TextForms.h"
#include "memo/cMemo.h"
#include "memo/code/ui/ScintillaView.h"
#include "memo/code/ui/frmScintillaFind.h"
#include "memo/ui/MemoPrint.h"
#include "ui/print/RichTextPrint.h"
#include "ui/richtext/RichTextBar.h"
#include "ui/richtext/RichTextBox.h"
#include "ui/widgets/Icons.h"
#include "ui_frmSnipVale.h"

#include <QMenu>

using namespace Qt::StringLiterals;

namespace {

const QString allFiles = u"All Files (*.*) |*.*"_s;

// The opening states of a memo.
enum Panes { Equal = 0, CodeFills = 1, NotesFill = 2 };

} // namespace

frmSnipVale::frmSnipVale(const EditorContext& context, cMemo& memo, QWidget* parent)
    : ElementEditor(context.archive, context.viewFilter.EditingModeMemoID, parent),
      m_ui(std::make_unique<Ui::frmSnipVale>()), m_context(context), m_memo(memo)
{
    m_ui->setupUi(this);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    m_ui->cmdUrl->setIcon(themedIcon(u"internet-services"_s));
    makeNoteBar();
    makeCodeEditor();
    makeCodeBar();
    wirePanes();
    wireButtons(m_ui->cmdOK, m_ui->cmdApply, m_ui->cmdClose, Cancel::Asks);
    connect(m_ui->txtMemoLink, &QLineEdit::textChanged, this, &frmSnipVale::updateLinkButton);
    connect(m_ui->cmdUrl, &QToolButton::clicked, this, [this] { openAddress(m_ui->txtMemoLink->text()); });
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
    m_ui->layCode->addWidget(m_editor);
    m_ui->rtfSnipVale->setFocusProxy(m_editor);
    setTabOrder(m_ui->imgCodeEqual, m_editor); // made last, it stands here
    m_scintilla = std::make_unique<cScintilla>(*m_editor, m_context.archive);
    m_editor->setHandler(m_scintilla.get());
    m_scintilla->Init();
    m_scintilla->SetLexerDefault();
}

ElementRecord& frmSnipVale::record()
{
    return m_memo;
}

// In the language of the memo before, and with its panes.
void frmSnipVale::startNew()
{
    const qint32 language = m_memo.MemoTypeID;
    const qint16 panes = m_memo.MemoOpeningState;
    m_memo.clear();
    m_memo.MemoTypeID = language;
    m_memo.MemoOpeningState = panes;
    m_memo.CategoryID = m_context.listener.selectedCategory();
}

void frmSnipVale::showRecord(bool isNew)
{
    if (!isNew)
        setWindowTitle(u"Memo: "_s + m_memo.MemoName);
    LoadComboMemoType();
    m_ui->txtMemoName->setText(m_memo.MemoName);
    m_ui->txtMemoDescription->setText(m_memo.MemoDescription);
    m_ui->txtMemoLink->setText(m_memo.MemoLink);
    m_ui->rtfMemoNotes->setRtf(m_memo.MemoNotes);
    m_ui->lblDateIn->setText(shortMoment(m_memo.MemoDateIn));
    m_ui->lblLastModified->setText(shortMoment(m_memo.MemoDateLastMod));
    m_editor->setText(m_memo.SnipVale.toUtf8());
    m_scintilla->SetLexer(m_ui->cboMemoType->currentData().toInt());
    updateLinkButton();
    toggleWrap();
    watchFields();
    m_ui->txtMemoName->setFocus();
}

void frmSnipVale::LoadComboMemoType()
{
    trapErrors(m_context.archive.questions(), u"LoadComboMemoType"_s, [&] {
        QComboBox& combo = *m_ui->cboMemoType;
        combo.clear();
        ArchiveUnit unit(m_context.archive);
        jet::Recordset rows =
            unit.Open(u"SELECT * FROM tab_memoType  WHERE enabled = true  AND visible = true  ORDER BY name"_s);
        for (; !rows.eof(); rows.moveNext())
            combo.addItem(rows.text(u"name"_s), qint32(rows.integer(u"memoTypeID"_s)));
        combo.setCurrentIndex(combo.findData(m_memo.MemoTypeID));
    });
}

void frmSnipVale::watchFields()
{
    for (const QLineEdit* box : {m_ui->txtMemoName, m_ui->txtMemoDescription, m_ui->txtMemoLink})
        watch(box, &QLineEdit::textChanged);
    watch(m_ui->rtfMemoNotes, &RichTextBox::edited);
    watch(m_editor, &ScintillaView::edited);
    connect(m_ui->cboMemoType, &QComboBox::activated, this, &frmSnipVale::cboMemoType_Click);
}

// The lexer colours the text where it stands: it need not be put back, and undo and the caret stay.
void frmSnipVale::cboMemoType_Click()
{
    markDirty(m_ui->cboMemoType);
    m_scintilla->SetLexer(m_ui->cboMemoType->currentData().toInt());
}

void frmSnipVale::updateLinkButton()
{
    const bool isLink = isWebAddress(m_ui->txtMemoLink->text());
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
    if (isMissing(m_ui->txtMemoName->text().trimmed(), m_ui->txtMemoName, u"Please choose a name!"_s))
        return false;
    m_memo.MemoName = m_ui->txtMemoName->text();
    m_memo.MemoDescription = m_ui->txtMemoDescription->text();
    m_memo.MemoLink = m_ui->txtMemoLink->text();
    m_memo.MemoTypeID = m_ui->cboMemoType->currentData().toInt();
    m_memo.SnipVale = QString::fromUtf8(m_editor->text());
    m_memo.MemoNotes = m_ui->rtfMemoNotes->rtf();
    return true;
}

void frmSnipVale::saved()
{
    setWindowTitle(u"Memo: "_s + m_memo.MemoName);
    m_context.listener.elementSaved({ElementKind::Memo, m_memo.MemoID});
}

void frmSnipVale::changeEvent(QEvent* event)
{
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        updateLinkButton();
}

void frmSnipVale::wirePanes()
{
    struct Button {
        QToolButton* button;
        const char16_t* icon;
        Panes panes;
    };
    const Button buttons[] = {
        {m_ui->imgCodePlus, u"window-maximize", CodeFills},    {m_ui->imgCodeMinus, u"window-minimize", NotesFill},
        {m_ui->imgCodeEqual, u"view-split-top-bottom", Equal}, {m_ui->imgNotePlus, u"window-maximize", NotesFill},
        {m_ui->imgNoteMinus, u"window-minimize", CodeFills},   {m_ui->imgNoteEqual, u"view-split-top-bottom", Equal},
    };
    for (const Button& row : buttons) {
        row.button->setIcon(themedIcon(QStringView(row.icon).toString()));
        row.button->setAccessibleName(row.button->toolTip());
        connect(row.button, &QToolButton::clicked, this, [this, panes = row.panes] { setPanes(panes); });
    }
    // A pane can shrink to its header.
    for (const auto& [pane, header] :
         {std::pair{m_ui->paneCode, m_ui->picCode}, std::pair{m_ui->paneNote, m_ui->picNote}}) {
        header->setFixedHeight(header->sizeHint().height());
        header->setBackgroundRole(QPalette::Midlight);
        pane->setMinimumHeight(header->height());
    }
}

void frmSnipVale::setPanes(int openingState)
{
    const int height = m_ui->picContainer->height();
    const int code = openingState == CodeFills ? height - m_ui->picNote->height()
        : openingState == NotesFill            ? m_ui->picCode->height()
                                               : height / 2;
    m_ui->hSplitter->setSizes({code, height - code});
    m_memo.MemoOpeningState = qint16(openingState);
}

void frmSnipVale::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!m_firstLayout)
        return;
    m_firstLayout = false;
    if (m_memo.MemoOpeningState >= Equal && m_memo.MemoOpeningState <= NotesFill)
        setPanes(m_memo.MemoOpeningState);
}

void frmSnipVale::makeCodeBar()
{
    struct Row {
        const char16_t* key;
        const char16_t* tip;
        const char16_t* icon;
        std::function<void()> run;
    };
    const auto message = [this](const EditorMessage& what) { return [this, &what] { m_editor->send(what); }; };
    const Row rows[] = {
        {u"Open", u"Open File", u"document-open", [this] { openCodeFile(); }},
        {u"Save", u"Save to file", u"document-save", [this] { saveCodeFile(); }},
        {},
        {u"Print", u"Print", u"document-print", nullptr}, // this key does nothing, so it is not shown
        {u"PrintMemo", u"Print the memo", u"document-print", [this] { PrintDoc(); }},
        {},
        {u"Cut", u"Cut", u"edit-cut", message(SCI.CUT)},
        {u"Copy", u"Copy", u"edit-copy", message(SCI.COPY)},
        {u"Paste", u"Paste", u"edit-paste", message(SCI.PASTE)},
        {u"Clear", u"Clear", u"edit-clear",
         [this] {
             m_editor->send(SCI.SELECTALL);
             m_editor->send(SCI.CLEAR);
         }},
        {},
        {u"Undo", u"Undo", u"edit-undo", message(SCI.UNDO)},
        {u"Redo", u"Redo", u"edit-redo", message(SCI.REDO)},
        {},
        {u"Find", u"Find and Replace", u"edit-find-replace", [this] { showFind(); }},
        {u"WrapLine", u"Wrap line", u"text-wrap", [this] { toggleWrap(); }},
    };
    for (const Row& row : rows) {
        if (!row.key) {
            m_ui->tbToolBarMemo->addSeparator();
            continue;
        }
        auto* action = new QAction(themedIcon(QStringView(row.icon).toString()), QStringView(row.tip).toString(),
                                   m_ui->tbToolBarMemo);
        action->setObjectName(QStringView(row.key).toString());
        action->setEnabled(bool(row.run));
        action->setVisible(bool(row.run));
        m_ui->tbToolBarMemo->addAction(action);
        if (row.run)
            connect(action, &QAction::triggered, this, row.run);
    }
    m_wrap = m_ui->tbToolBarMemo->findChild<QAction*>(u"WrapLine"_s);
    m_wrap->setCheckable(true);
    QAction* find = m_ui->tbToolBarMemo->findChild<QAction*>(u"Find"_s);
    find->setShortcuts({QKeySequence(QKeySequence::Find), QKeySequence(QKeySequence::Replace)});
    find->setToolTip(u"Find and Replace (Ctrl+F)"_s);
    makePrintMenu();
}

// The button prints; its arrow offers the preview as well.
void frmSnipVale::makePrintMenu()
{
    auto* print = m_ui->tbToolBarMemo->findChild<QAction*>(u"PrintMemo"_s);
    print->setShortcut(QKeySequence::Print);
    print->setToolTip(u"Print the memo (%1)"_s.arg(print->shortcut().toString(QKeySequence::NativeText)));
    auto* menu = new QMenu(this);
    auto* preview = new QAction(themedIcon(u"document-print-preview"_s), u"Print Pre&view..."_s, this);
    preview->setObjectName(u"PrintPreview"_s);
    preview->setShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_P);
    connect(preview, &QAction::triggered, this, &frmSnipVale::PreviewDoc);
    addAction(preview); // its key works while the menu is closed
    connect(menu->addAction(print->icon(), u"&Print..."_s), &QAction::triggered, print, &QAction::trigger);
    menu->addAction(preview);
    auto* button = qobject_cast<QToolButton*>(m_ui->tbToolBarMemo->widgetForAction(print));
    button->setMenu(menu);
    button->setPopupMode(QToolButton::MenuButtonPopup);
}

void frmSnipVale::toggleWrap()
{
    const bool wraps = m_editor->send(SCI.GETWRAPMODE) != 0;
    m_editor->send(SCI.SETWRAPMODE, wraps ? 0 : 1);
    m_wrap->setChecked(!wraps);
}

void frmSnipVale::showFind()
{
    if (!m_find)
        m_find = new frmScintillaFind(*m_scintilla, m_context.archive.questions(), this);
    m_find->show();
    m_find->activateWindow();
}

void frmSnipVale::openCodeFile()
{
    trapErrors(m_context.archive.questions(), u"OpenFile"_s, [&] {
        if (const auto name = m_context.desktop.files.openFile(u"Open"_s, allFiles)) {
            const QByteArray text = readTextFile(*name).toUtf8();
            if (text.contains('\0'))
                m_editor->setText(text);
            else
                m_editor->send(SCI.SETTEXT, 0, text); // as one step that can be undone
            markDirty(m_editor);
        }
    });
}

void frmSnipVale::saveCodeFile()
{
    trapErrors(m_context.archive.questions(), u"SaveFile"_s, [&] {
        if (const auto name = m_context.desktop.files.saveFile(u"Save Memo to File..."_s, allFiles, QString()))
            writeTextFile(*name, m_editor->text());
    });
}

void frmSnipVale::makeNoteBar()
{
    RichTextBox& notes = *m_ui->rtfMemoNotes;
    const QString keys = u"New,Open,Save,Print,|,Cut,Copy,Paste,|,Bold,Italic,Underline,Color,|,Align Left,Center,"
                         "Align Right,|,Number,Bullets,Outdent,Indent"_s;
    auto* bar = new RichTextBar(notes, keys.split(u','), m_ui->noteBody);
    bar->setIconSize(m_ui->tbToolBarMemo->iconSize());
    m_ui->layNoteBody->insertWidget(0, bar);
    bar->join(m_context.desktop, m_ui->imgNoteEqual);
    connect(bar, &RichTextBar::openRequested, this, &frmSnipVale::openNoteFile);
    connect(bar, &RichTextBar::printRequested, this,
            [this, &notes] { printRichText(*notes.document(), m_ui->txtMemoName->text(), m_context.desktop, this); });
    notes.setMenuNames({u"mnuMemoNote"_s, u"mnuMemoNoteCut"_s, u"mnuMemoNoteCopy"_s, u"mnuMemoNotePaste"_s});
    connect(&notes, &RichTextBox::linkActivated, this, [this](const QString& address) {
        if (isWebAddress(address))
            openAddress(address);
    });
}

void frmSnipVale::openNoteFile()
{
    trapErrors(m_context.archive.questions(), u"OpenFile"_s, [&] {
        if (const auto name = m_context.desktop.files.openFile(u"Open "_s, allFiles))
            m_ui->rtfMemoNotes->replaceText(readTextFile(*name));
    });
}

PrintedMemo frmSnipVale::printed() const
{
    PrintedMemo memo;
    memo.name = m_ui->txtMemoName->text();
    memo.language = m_ui->cboMemoType->currentText();
    memo.category = categoryName(m_context.archive, m_memo.CategoryID);
    memo.created = m_ui->lblDateIn->text();
    memo.lastModified = m_ui->lblLastModified->text();
    memo.link = m_ui->txtMemoLink->text();
    memo.description = m_ui->txtMemoDescription->text();
    memo.code = styledCodeOf(*m_editor);
    memo.notes = m_ui->rtfMemoNotes->rtf();
    return memo;
}

void frmSnipVale::PrintDoc()
{
    trapErrors(m_context.archive.questions(), u"PrintDoc"_s, [&] { printMemo(this, m_context.desktop, printed()); });
}

void frmSnipVale::PreviewDoc()
{
    trapErrors(m_context.archive.questions(), u"PrintDoc"_s, [&] { previewMemo(this, m_context.desktop, printed()); });
}
