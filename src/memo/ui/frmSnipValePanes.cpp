// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The two panes of the memo editor: their sizes, their tool bars and their files.
#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/TextForms.h"
#include "memo/TextFile.h"
#include "memo/cMemo.h"
#include "memo/code/cScintilla.h"
#include "memo/code/ui/ScintillaView.h"
#include "memo/code/ui/frmScintillaFind.h"
#include "memo/ui/MemoPrint.h"
#include "memo/ui/frmSnipVale.h"
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
    m_context.memo.MemoOpeningState = qint16(openingState);
}

void frmSnipVale::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!m_firstLayout)
        return;
    m_firstLayout = false;
    if (m_context.memo.MemoOpeningState >= Equal && m_context.memo.MemoOpeningState <= NotesFill)
        setPanes(m_context.memo.MemoOpeningState);
}

void frmSnipVale::makeCodeBar()
{
    struct Row {
        const char16_t* key;
        const char16_t* tip;
        const char16_t* icon;
        std::function<void()> run;
    };
    const auto message = [this](unsigned number) { return [this, number] { m_editor->send(number); }; };
    const Row rows[] = {
        {u"Open", u"Open File", u"document-open", [this] { openCodeFile(); }},
        {u"Save", u"Save to file", u"document-save", [this] { saveCodeFile(); }},
        {},
        {u"Print", u"Print", u"document-print", nullptr}, // this key does nothing, so it is not shown
        {u"PrintMemo", u"Print the memo", u"document-print", [this] { PrintDoc(); }},
        {},
        {u"Cut", u"Cut", u"edit-cut", message(SCI_CUT)},
        {u"Copy", u"Copy", u"edit-copy", message(SCI_COPY)},
        {u"Paste", u"Paste", u"edit-paste", message(SCI_PASTE)},
        {u"Clear", u"Clear", u"edit-clear",
         [this] {
             m_editor->send(SCI_SELECTALL);
             m_editor->send(SCI_CLEAR);
         }},
        {},
        {u"Undo", u"Undo", u"edit-undo", message(SCI_UNDO)},
        {u"Redo", u"Redo", u"edit-redo", message(SCI_REDO)},
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
    const bool wraps = m_editor->send(SCI_GETWRAPMODE) != 0;
    m_editor->send(SCI_SETWRAPMODE, wraps ? 0 : 1);
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
                m_editor->send(SCI_SETTEXT, 0, text); // as one step that can be undone
            markDirty();
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
    RichTextBar::Setup setup;
    setup.keys = {u"New"_s,    u"Open"_s,    u"Save"_s,       u"Print"_s,  u"|"_s,           u"Cut"_s,
                  u"Copy"_s,   u"Paste"_s,   u"|"_s,          u"Bold"_s,   u"Italic"_s,      u"Underline"_s,
                  u"Color"_s,  u"|"_s,       u"Align Left"_s, u"Center"_s, u"Align Right"_s, u"|"_s,
                  u"Number"_s, u"Bullets"_s, u"Outdent"_s,    u"Indent"_s};
    setup.hidden = {u"New"_s, u"Save"_s, u"Number"_s}; // they do nothing
    setup.icon = themedIcon;
    auto* bar = new RichTextBar(notes, setup, m_ui->noteBody);
    bar->setIconSize(m_ui->tbToolBarMemo->iconSize());
    m_ui->layNoteBody->insertWidget(0, bar);
    bar->join(m_context.desktop, m_ui->imgNoteEqual);
    connect(bar, &RichTextBar::openRequested, this, &frmSnipVale::openNoteFile);
    connect(bar, &RichTextBar::printRequested, this, &frmSnipVale::printNotes);
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

void frmSnipVale::printNotes()
{
    printRichText(*m_ui->rtfMemoNotes->document(), m_ui->txtMemoName->text(), m_context.desktop, this);
}

PrintedMemo frmSnipVale::printed() const
{
    PrintedMemo memo;
    memo.name = m_ui->txtMemoName->text();
    memo.language = m_ui->cboMemoType->currentText();
    memo.category = categoryName(m_context.archive, m_context.memo.CategoryID);
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
