// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/ui/frmBookmark.h"

#include "archive/Archive.h"
#include "archive/Element.h"
#include "archive/ElementQuestions.h"
#include "archive/ErrorTrap.h"
#include "archive/cViewFilter.h"
#include "desktop/Desktop.h"
#include "desktop/Questions.h"
#include "desktop/TextForms.h"
#include "memo/cBookmark.h"
#include "ui/widgets/Icons.h"
#include "ui_frmBookmark.h"

#include <QShortcut>

using namespace Qt::StringLiterals;

frmBookmark::frmBookmark(const BookmarkContext& context, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmBookmark>()), m_context(context)
{
    m_ui->setupUi(this);
    m_ui->cmdGo->setIcon(themedIcon(u"internet-services"_s));
}

frmBookmark::~frmBookmark() = default;

bool frmBookmark::Form_Load()
{
    clearRecord();
    const bool isNew = m_context.viewFilter.EditingModeBookmarkID == 0;
    if (isNew)
        m_context.bookmark.CategoryID = m_context.listener.selectedCategory();
    else if (!loadRecord())
        return false;
    showRecord();
    m_ui->layFields->setRowVisible(m_ui->lblCreationDate, !isNew);
    updateVisitButton();
    wireFields(); // from here on a change is the user's
    m_ui->cmdApply->setEnabled(false);
    m_ui->txtName->setFocus();
    return true;
}

// The record is shared by all editors of bookmarks, and Load leaves a field alone where the row has nothing to say:
// none of the bookmark before may stay.
void frmBookmark::clearRecord()
{
    cBookmark& bookmark = m_context.bookmark;
    bookmark.BookmarkID = m_context.viewFilter.EditingModeBookmarkID;
    bookmark.CategoryID = 0;
    for (QString* field :
         {&bookmark.BookmarkName, &bookmark.BookmarkKeywords, &bookmark.BookmarkDescription, &bookmark.BookmarkLink})
        field->clear();
    bookmark.BookmarkDateIn = bookmark.BookmarkDateLastMod = QDateTime();
}

bool frmBookmark::loadRecord()
{
    cBookmark& bookmark = m_context.bookmark;
    if (!bookmark.Load()) {
        reportError(m_context.archive.questions(), u"Load"_s, bookmark.lastError());
        return false;
    }
    if (bookmark.CategoryID == 0) {
        reportError(m_context.archive.questions(), u"Load"_s, u"The bookmark is no longer in the archive."_s);
        return false;
    }
    return true;
}

void frmBookmark::showRecord()
{
    const cBookmark& bookmark = m_context.bookmark;
    m_ui->txtName->setText(bookmark.BookmarkName);
    m_ui->txtKeywords->setText(bookmark.BookmarkKeywords);
    m_ui->txtDescription->setPlainText(bookmark.BookmarkDescription);
    m_ui->txtLink->setText(bookmark.BookmarkLink);
    for (QLineEdit* box : {m_ui->txtName, m_ui->txtKeywords, m_ui->txtLink})
        box->setCursorPosition(0); // a long text shows its beginning
    m_shownDescription = description();
    const QDateTime& created = bookmark.BookmarkDateIn;
    m_ui->lblCreationDate->setText(shortMoment(created));
}

// The text as it stands in the box: toPlainText() would turn no-break spaces into plain ones.
QString frmBookmark::description() const
{
    QString text = m_ui->txtDescription->document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

void frmBookmark::wireFields()
{
    for (QLineEdit* box : {m_ui->txtName, m_ui->txtKeywords, m_ui->txtLink})
        connect(box, &QLineEdit::textChanged, this, &frmBookmark::markDirty);
    connect(m_ui->txtDescription, &QPlainTextEdit::textChanged, this, &frmBookmark::markDirty);
    connect(m_ui->txtLink, &QLineEdit::textChanged, this, &frmBookmark::updateVisitButton);
    connect(m_ui->txtName, &QLineEdit::returnPressed, this, &frmBookmark::cmdOK_Click);
    connect(m_ui->cmdGo, &QPushButton::clicked, this, &frmBookmark::VisitBookmark);
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmBookmark::cmdOK_Click);
    connect(m_ui->cmdApply, &QPushButton::clicked, this, &frmBookmark::save);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, [this] { QDialog::reject(); }); // says what it does
    const auto* apply = new QShortcut(QKeySequence::Save, this);
    connect(apply, &QShortcut::activated, m_ui->cmdApply, &QPushButton::click);
}

void frmBookmark::markDirty()
{
    m_isDirty = true;
    m_ui->cmdApply->setEnabled(true);
}

void frmBookmark::updateVisitButton()
{
    m_ui->cmdGo->setEnabled(!m_ui->txtLink->text().isEmpty());
}

bool frmBookmark::transfer()
{
    if (m_ui->txtName->text().trimmed().isEmpty()) {
        m_context.archive.questions().ask(u"Please choose a name!"_s, MessageStyle::Information);
        m_ui->txtName->setFocus();
        return false;
    }
    cBookmark& bookmark = m_context.bookmark;
    bookmark.BookmarkName = m_ui->txtName->text();
    bookmark.BookmarkKeywords = m_ui->txtKeywords->text();
    bookmark.BookmarkLink = m_ui->txtLink->text();
    // A description that was not edited keeps its line ends.
    if (const QString text = description(); text != m_shownDescription)
        bookmark.BookmarkDescription = m_shownDescription = text;
    return true;
}

bool frmBookmark::save()
{
    if (!transfer())
        return false;
    cBookmark& bookmark = m_context.bookmark;
    if (m_context.viewFilter.EditingModeBookmarkID != 0) {
        if (!bookmark.Update()) {
            // The record keeps silent about a failed update; the user must not.
            reportError(m_context.archive.questions(), u"Update"_s, bookmark.lastError());
            return false;
        }
    } else {
        if (!bookmark.Save())
            return false; // the message was shown; what was typed stays
        m_context.viewFilter.EditingModeBookmarkID = bookmark.BookmarkID;
    }
    m_isDirty = false;
    m_ui->cmdApply->setEnabled(false);
    m_context.listener.elementSaved({ElementKind::Bookmark, bookmark.BookmarkID});
    return true;
}

void frmBookmark::cmdOK_Click()
{
    if (save())
        accept();
}

void frmBookmark::VisitBookmark()
{
    const QString link = m_ui->txtLink->text();
    if (link.isEmpty())
        return;
    trapErrors(m_context.archive.questions(), u"VisitBookmark"_s, [&] { m_context.desktop.shell.openLink(link); });
}

// Escape or the close box: perhaps by accident.
void frmBookmark::reject()
{
    if (m_isDirty && !mayDropChanges(m_context.archive.questions()))
        return;
    QDialog::reject();
}
