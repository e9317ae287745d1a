// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <memory>

class Archive;
class FrameServices;
class QStandardItemModel;
struct Desktop;
struct StyleRow;

namespace Ui {
class frmOptionsLanguage;
}

// The styles and the keywords of one language. A style is saved by its own window, the keywords by this one's OK.
// While a style is selected, the frame's command "miOptionsLanguageDetailsOpen" is enabled.
class frmOptionsLanguage : public QDialog {
    Q_OBJECT
public:
    // All outlive the window.
    frmOptionsLanguage(Archive& archive, const Desktop& desktop, FrameServices& frame, QWidget* parent);
    ~frmOptionsLanguage() override;

    // False when the language cannot be read (the message was shown): do not show the window then, its OK would
    // write over the keywords.
    bool Form_Load(qint32 memoTypeID, const QString& name);

    bool MakelvwLanguageContents(); // fills the list again; the selected style stays selected
    void OpenDetails(); // of the selected style; nothing when there is none

    bool isDirty() const; // the keywords were changed

public slots:
    void reject() override; // asks when there are unsaved keywords

private:
    void fitColumns();
    void addStyle(const StyleRow& style);
    void updateCommands();
    void loadKeywords();
    QString keywords() const;
    void cmdOK_Click();

    std::unique_ptr<Ui::frmOptionsLanguage> m_ui;
    Archive& m_archive;
    const Desktop& m_desktop;
    FrameServices& m_frame;
    QStandardItemModel* m_styles;
    qint32 m_memoTypeID = 0;
    QString m_name;
    QString m_lexerCode;
    QString m_storedKeywords;
};
