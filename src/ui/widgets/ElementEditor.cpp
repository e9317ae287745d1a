// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/widgets/ElementEditor.h"

#include "archive/Archive.h"
#include "archive/ElementRecord.h"
#include "archive/ErrorTrap.h"
#include "desktop/Questions.h"

#include <QPushButton>
#include <QShortcut>

using namespace Qt::StringLiterals;

namespace {

// The hourglass, and nothing to click meanwhile.
class Busy {
public:
    explicit Busy(QWidget& window) : m_window(window), m_focus(window.focusWidget())
    {
        window.setCursor(Qt::WaitCursor);
        window.setEnabled(false);
    }
    ~Busy()
    {
        m_window.setEnabled(true);
        m_window.unsetCursor();
        if (m_focus)
            m_focus->setFocus();
    }
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;

private:
    QWidget& m_window;
    QWidget* m_focus;
};

} // namespace

ElementEditor::ElementEditor(Archive& archive, qint32& editedID, QWidget* parent)
    : QDialog(parent), m_archive(archive), m_editedID(editedID)
{
}

bool ElementEditor::Form_Load()
{
    if (m_editedID == 0) {
        startNew();
    } else {
        // Load leaves a field alone where the row has nothing to say: none of the element before may stay.
        record().clear();
        record().key() = m_editedID;
        record().Load();
        if (!record().lastError().isEmpty()) {
            reportError(m_archive.questions(), u"Load"_s, record().lastError());
            return false;
        }
    }
    showRecord(m_editedID == 0);
    setClean();
    return true;
}

void ElementEditor::wireButtons(QPushButton* ok, QPushButton* apply, QPushButton* cancel, Cancel kind)
{
    m_apply = apply;
    connect(ok, &QPushButton::clicked, this, &ElementEditor::cmdOK_Click);
    if (apply)
        connect(apply, &QPushButton::clicked, this, &ElementEditor::save);
    if (kind == Cancel::Asks)
        connect(cancel, &QPushButton::clicked, this, &ElementEditor::reject);
    else
        connect(cancel, &QPushButton::clicked, this, [this] { QDialog::reject(); });
    connect(new QShortcut(QKeySequence::Save, this), &QShortcut::activated, this, [this] {
        if (m_isDirty)
            save();
    });
}

void ElementEditor::markDirty(const QWidget* control)
{
    m_edited.insert(control);
    m_isDirty = true;
    if (m_apply)
        m_apply->setEnabled(true);
}

void ElementEditor::setClean()
{
    m_edited.clear();
    m_isDirty = false;
    if (m_apply)
        m_apply->setEnabled(false);
}

bool ElementEditor::isMissing(const QString& text, QWidget* box, const QString& message)
{
    if (!text.isEmpty())
        return false;
    m_archive.questions().ask(message, MessageStyle::Information);
    box->setFocus();
    return true;
}

bool ElementEditor::save()
{
    bool isValid = false;
    trapErrors(m_archive.questions(), u"Save"_s, [&] { isValid = transfer(); });
    if (!isValid)
        return false;
    const Busy busy(*this);
    record().key() = m_editedID;
    if (m_editedID == 0) {
        if (!record().Save())
            return false; // the message was shown
        m_editedID = record().key();
    } else if (!record().Update()) {
        // The record keeps silent about a failed update; the user must not.
        reportError(m_archive.questions(), updateRoutine(), record().lastError());
        return false;
    }
    setClean();
    saved();
    return true;
}

void ElementEditor::cmdOK_Click()
{
    if (save())
        accept();
}

// Escape or the close box: perhaps by accident.
void ElementEditor::reject()
{
    if (m_isDirty && !mayDropChanges(m_archive.questions()))
        return;
    QDialog::reject();
}
