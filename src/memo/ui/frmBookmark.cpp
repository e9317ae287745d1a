// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/ui/frmBookmark.h"

#include "archive/Archive.h"
#include "archive/Element.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/TextForms.h"
#include "memo/cBookmark.h"
#include "ui/widgets/Icons.h"
#include "ui/widgets/RawText.h"
#include "ui_frmBookmark.h"

using namespace Qt::StringLiterals;

frmBookmark::frmBookmark(const EditorContext& context, cBookmark& bookmark, QWidget* parent)
    : ElementEditor(context.archive, context.viewFilter.EditingModeBookmarkID, parent),
      m_ui(std::make_unique<Ui::frmBookmark>()), m_context(context), m_bookmark(bookmark)
{
    m_ui->setupUi(this);
    m_ui->cmdGo->setIcon(themedIcon(u"internet-services"_s));
    wireButtons(m_ui->cmdOK, m_ui->cmdApply, m_ui->cmdClose, Cancel::Closes);
    connect(m_ui->txtName, &QLineEdit::returnPressed, this, &frmBookmark::cmdOK_Click);
    connect(m_ui->txtLink, &QLineEdit::textChanged, this, &frmBookmark::updateVisitButton);
    connect(m_ui->cmdGo, &QPushButton::clicked, this, &frmBookmark::VisitBookmark);
}

frmBookmark::~frmBookmark() = default;

ElementRecord& frmBookmark::record()
{
    return m_bookmark;
}

void frmBookmark::startNew()
{
    m_bookmark.clear();
    m_bookmark.CategoryID = m_context.listener.selectedCategory();
}

void frmBookmark::showRecord(bool isNew)
{
    m_ui->txtName->setText(m_bookmark.BookmarkName);
    m_ui->txtKeywords->setText(m_bookmark.BookmarkKeywords);
    m_ui->txtDescription->setPlainText(m_bookmark.BookmarkDescription);
    m_ui->txtLink->setText(m_bookmark.BookmarkLink);
    m_ui->lblCreationDate->setText(shortMoment(m_bookmark.BookmarkDateIn));
    m_ui->layFields->setRowVisible(m_ui->lblCreationDate, !isNew);
    updateVisitButton();
    for (QLineEdit* box : {m_ui->txtName, m_ui->txtKeywords, m_ui->txtLink}) {
        box->setCursorPosition(0); // a long text shows its beginning
        watch(box, &QLineEdit::textChanged);
    }
    watch(m_ui->txtDescription, &QPlainTextEdit::textChanged);
    m_ui->txtName->setFocus();
}

void frmBookmark::updateVisitButton()
{
    m_ui->cmdGo->setEnabled(!m_ui->txtLink->text().isEmpty());
}

bool frmBookmark::transfer()
{
    if (isMissing(m_ui->txtName->text().trimmed(), m_ui->txtName, u"Please choose a name!"_s))
        return false;
    m_bookmark.BookmarkName = m_ui->txtName->text();
    m_bookmark.BookmarkKeywords = m_ui->txtKeywords->text();
    m_bookmark.BookmarkLink = m_ui->txtLink->text();
    if (isEdited(m_ui->txtDescription)) // one that was not keeps its line ends
        m_bookmark.BookmarkDescription = rawText(*m_ui->txtDescription);
    return true;
}

void frmBookmark::saved()
{
    m_context.listener.elementSaved({ElementKind::Bookmark, m_bookmark.BookmarkID});
}

void frmBookmark::VisitBookmark()
{
    const QString link = m_ui->txtLink->text();
    if (!link.isEmpty())
        trapErrors(m_context.archive.questions(), u"VisitBookmark"_s, [&] { m_context.desktop.shell.openLink(link); });
}
