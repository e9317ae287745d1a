// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QSet>

class Archive;
class ElementListener;
class ElementRecord;
class QPushButton;
class cViewFilter;
struct Desktop;

// What an editor of the explorer's elements works on and with. All outlive it.
struct EditorContext {
    Archive& archive;
    const Desktop& desktop;
    cViewFilter& viewFilter;
    ElementListener& listener;
};

// A window that edits one element, an existing or a new one, through its record. What all editors do alike is here:
// reading the element, knowing what was changed, saving, and asking before changes are lost. A save that fails is
// reported and leaves the window as it is, with all that was typed.
class ElementEditor : public QDialog {
    Q_OBJECT
public:
    // Reads the element and shows it; once, before the window is shown. False when it cannot be read (the message was
    // shown): the window must not be shown then, a save would write over the element.
    virtual bool Form_Load();

    bool isDirty() const { return m_isDirty; }

public slots:
    void reject() override; // asks when there are unsaved changes

protected:
    // Both outlive the window. `editedID` is 0 for a new element, and becomes its key with the first save.
    ElementEditor(Archive& archive, qint32& editedID, QWidget* parent);

    enum class Cancel { Asks, Closes }; // what the button does about unsaved changes
    void wireButtons(QPushButton* ok, QPushButton* apply, QPushButton* cancel, Cancel kind); // `apply` may be null
    // From here on that signal of the control is a change by the user.
    template <typename Control, typename Signal>
    void watch(const Control* control, Signal change)
    {
        connect(control, change, this, [this, control] { markDirty(control); });
    }
    void markDirty(const QWidget* control);
    bool isEdited(const QWidget* control) const { return m_edited.contains(control); } // since it was read or saved
    // An empty text gives the message, and the box gets the keyboard.
    bool isMissing(const QString& text, QWidget* box, const QString& message);
    bool save();
    void cmdOK_Click();

    virtual ElementRecord& record() = 0;
    virtual void startNew() = 0; // the fields of a new element
    virtual void showRecord(bool isNew) = 0; // record to controls, then what the user does to them is watched
    virtual bool transfer() = 0; // validates, then controls to record; may throw
    virtual void saved() { } // the archive holds the new state
    virtual QString updateRoutine() const { return QStringLiteral("Update"); } // which a failed update is told under

private:
    void setClean();

    Archive& m_archive;
    qint32& m_editedID;
    QPushButton* m_apply = nullptr;
    QSet<const QWidget*> m_edited;
    bool m_isDirty = false;
};
