// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/ui/frmNote.h"

#include "archive/Archive.h"
#include "desktop/Clock.h"
#include "desktop/TextForms.h"
#include "notes/ui/NoteColors.h"
#include "ui/widgets/ShownText.h"
#include "ui_frmNote.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QInputMethod>
#include <QLocale>
#include <QShortcut>
#include <QTextBlock>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int columns = 44; // average letters, and lines, of a note that was just opened
constexpr int lines = 13;
constexpr int dateLetters = 15; // of the shortest form of a date, with the air around it

QString colorCaption(const QString& name)
{
    return name.left(1).toUpper() + name.mid(1);
}

} // namespace

frmNote::frmNote(Archive& archive) : m_ui(std::make_unique<Ui::frmNote>()), m_archive(archive), m_note(archive)
{
    m_ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_QuitOnClose, false); // the main window may be hidden
    setAutoFillBackground(true);
    m_ui->txtContent->document()->setDocumentMargin(fontMetrics().averageCharWidth());
    m_note.Color = u"yellow"_s;
    makeColorButtons();
    const int letter = fontMetrics().averageCharWidth();
    const int bar = m_ui->fraBar->sizeHint().width() + dateLetters * letter; // the date is no part of the hint
    resize(std::max(columns * letter, bar), lines * fontMetrics().lineSpacing());
    wire();
    showColor();
    showHeading();
}

frmNote::~frmNote() = default;

void frmNote::makeColorButtons()
{
    for (int i = 0; i < noteColorNames().size(); ++i) {
        const QString& name = noteColorNames()[i];
        auto* button = new QToolButton(m_ui->fraBar);
        button->setObjectName(u"optColor_%1"_s.arg(i));
        button->setIcon(noteIcon(name));
        button->setCheckable(true);
        button->setAutoExclusive(true);
        button->setAutoRaise(true);
        button->setFocusPolicy(Qt::NoFocus); // the text keeps it
        const QKeySequence keys(Qt::CTRL | Qt::Key(Qt::Key_1 + i));
        // Not the button's own shortcut, which takes a moment to press it: the next key may close the window.
        connect(new QShortcut(keys, this), &QShortcut::activated, button, &QToolButton::click);
        button->setAccessibleName(colorCaption(name));
        button->setToolTip(u"%1 (%2)"_s.arg(colorCaption(name), keys.toString(QKeySequence::NativeText)));
        connect(button, &QToolButton::clicked, this, [this, name] { recolor(name); });
        m_ui->layBar->insertWidget(i, button);
    }
}

void frmNote::wire()
{
    const auto shortcut = [this](const QKeySequence& keys, auto action) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
    };
    shortcut(QKeySequence(Qt::Key_Escape), &QWidget::close);
    shortcut(QKeySequence::Close, &QWidget::close);
    shortcut(QKeySequence::Save, &frmNote::save);
    shortcut(QKeySequence(Qt::CTRL | Qt::Key_D), &frmNote::deleteRequested);
    connect(m_ui->cmdDelete, &QToolButton::clicked, this, &frmNote::deleteRequested);
    connect(m_ui->txtContent, &QPlainTextEdit::textChanged, this, &frmNote::showHeading);
}

bool frmNote::Load(qint32 id)
{
    if (!m_note.Load(id))
        return false;
    m_ui->txtContent->showText(m_note.Content);
    m_shownText = m_ui->txtContent->text();
    showColor();
    showDate();
    return true;
}

bool frmNote::isBlank() const
{
    return m_ui->txtContent->text().trimmed().isEmpty();
}

bool frmNote::isEdited() const
{
    return !isBlank() && (!m_note.EditingMode || m_ui->txtContent->text() != m_shownText);
}

bool frmNote::store()
{
    if (m_ui->txtContent->hasFocus())
        QGuiApplication::inputMethod()->commit(); // a word that is still being composed
    const QString text = m_ui->txtContent->text();
    if (text.trimmed().isEmpty())
        return true;
    // A text that was not edited keeps its line ends.
    if (text != m_shownText)
        m_note.Content = m_shownText = text;
    m_note.NoteDate = m_archive.clock().now();
    const bool isUpdated = m_note.EditingMode && m_note.Update();
    // A note whose row was deleted by others is a new one again: what was typed must not be lost.
    if (!isUpdated && (m_note.EditingMode || !m_note.Save()))
        return false;
    showDate();
    emit written(isUpdated ? 0 : m_note.EditingID);
    return true;
}

void frmNote::save()
{
    if (!store())
        reportFailure();
}

void frmNote::recolor(const QString& color)
{
    m_note.Color = color;
    showColor();
}

void frmNote::discard()
{
    m_isDiscarded = true;
    close();
}

void frmNote::showColor()
{
    setPalette(paperPalette(m_note.Color, QGuiApplication::palette()));
    m_ui->fraBar->setPalette(barPalette(m_note.Color));
    setWindowIcon(noteIcon(m_note.Color));
    const auto index = std::max<qsizetype>(0, noteColorNames().indexOf(m_note.Color));
    m_ui->fraBar->findChild<QToolButton*>(u"optColor_%1"_s.arg(index))->setChecked(true);
}

void frmNote::showDate()
{
    const QLocale locale;
    const QDateTime& date = m_note.NoteDate;
    m_ui->lblNoteDate->setText(shortDate(date.date()));
    m_ui->lblNoteDate->setToolTip(date.isValid() ? u"Written "_s + locale.toString(date, QLocale::LongFormat)
                                                 : QString());
}

// The first line that is not blank is the title: it tells the windows apart in the desktop's list of windows.
void frmNote::showHeading()
{
    QString heading;
    for (QTextBlock block = m_ui->txtContent->document()->begin(); block.isValid() && heading.isEmpty();
         block = block.next())
        heading = shownHeading(block.text());
    if (heading.isEmpty())
        heading = u"New note"_s;
    setWindowTitle(heading.replace("[*]"_L1, "[*][*]"_L1)); // which would be the mark of a modified window
}

bool frmNote::event(QEvent* event)
{
    if (event->type() == QEvent::ApplicationPaletteChange)
        showColor();
    return QWidget::event(event);
}

void frmNote::closeEvent(QCloseEvent* event)
{
    if (!m_isDiscarded && !store()) {
        event->ignore();
        reportFailure();
        return;
    }
    event->accept();
    emit closed();
}
