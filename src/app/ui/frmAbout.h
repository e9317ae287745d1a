// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QList>
#include <memory>

namespace Ui {
class frmAbout;
}

struct AboutFacts {
    QString archivePath;
    QString programDirectory;
    QString licenceFile; // its text is read when it is asked for
};

struct AboutLibrary {
    QString name;
    QString version; // of the one that runs
    QString licence;
};
QList<AboutLibrary> aboutLibraries();

// The about box: version, licence, libraries, where the archive is. Copy puts these facts on the clipboard, for a mail
// about a problem.
class frmAbout final : public QDialog {
    Q_OBJECT
public:
    explicit frmAbout(AboutFacts facts, QWidget* parent = nullptr);
    ~frmAbout() override;

    QString report() const; // what Copy copies: lines of "name: value"

private:
    void showHeading();
    void showFacts();
    void showLicence();
    void cmdCopy_Click();

    std::unique_ptr<Ui::frmAbout> m_ui;
    AboutFacts m_facts;
};
