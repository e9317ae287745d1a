// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/modRegistry.h"

#include <QDialog>
#include <memory>

class FrameServices;
class modSnipVale;
struct Desktop;

namespace Ui {
class frmOptions;
}

// The user's preferences: start with the system, the default archive, the look of the bars, and which languages the
// memo editor offers. Nothing is written before OK. While it is open, the frame's command "miOptionsLanguage" is its
// own; it is enabled while a language is selected.
class frmOptions : public QDialog {
    Q_OBJECT
public:
    // All outlive the window.
    frmOptions(modSnipVale& program, const Desktop& desktop, FrameServices& frame, QWidget* parent);
    ~frmOptions() override;

    bool Form_Load(); // false when the languages cannot be read; the message was shown, the rest can be used

    void OpenLanguage(); // the styles of the selected language; nothing when there is none

signals:
    void lookChanged(bool flat); // OK stored the look

private:
    void showSettings();
    void wireFields();
    void updateCommands();
    void cmdSelect_Click();
    void cmdOK_Click();
    bool mayKeepPath(const QString& path); // asks about one that is too long
    void saveDefaultArchive(const QString& path);
    void saveLook();
    void RunAtStart(bool on);

    std::unique_ptr<Ui::frmOptions> m_ui;
    modSnipVale& m_program;
    const Desktop& m_desktop;
    FrameServices& m_frame;
    modRegistry m_registry;
    QString m_storedArchive; // what the settings file said
};
