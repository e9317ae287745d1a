// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <memory>

class Archive;
class ElementListener;
class cBookmark;
class cViewFilter;
struct Desktop;

namespace Ui {
class frmBookmark;
}

// What the bookmark editor works on and with. All outlive it.
struct BookmarkContext {
    Archive& archive;
    const Desktop& desktop;
    cViewFilter& viewFilter;
    cBookmark& bookmark;
    ElementListener& listener;
};

// Creates or edits one bookmark: the one whose identifier cViewFilter holds, or a new one when that is 0.
class frmBookmark : public QDialog {
    Q_OBJECT
public:
    frmBookmark(const BookmarkContext& context, QWidget* parent);
    ~frmBookmark() override;

    // Reads the bookmark and shows it. False when it cannot be read (the message was shown): do not show the window
    // then, a save would write the fields of another bookmark.
    bool Form_Load();

    bool isDirty() const { return m_isDirty; }

public slots:
    void reject() override; // asks when there are unsaved changes

private:
    void clearRecord();
    bool loadRecord();
    void showRecord();
    void wireFields();
    QString description() const;
    void markDirty();
    void updateVisitButton();

    bool transfer(); // validates, then controls to record
    bool save();
    void cmdOK_Click();
    void VisitBookmark();

    std::unique_ptr<Ui::frmBookmark> m_ui;
    BookmarkContext m_context;
    QString m_shownDescription; // as it was after loading
    bool m_isDirty = false;
};
