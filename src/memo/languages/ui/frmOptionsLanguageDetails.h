// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <functional>
#include <memory>
#include <optional>

class Archive;
class QLineEdit;
struct Desktop;
struct StyleRow;

namespace Ui {
class frmOptionsLanguageDetails;
}

// One style of a language, with a sample of how it looks. Closing discards the changes.
class frmOptionsLanguageDetails : public QDialog {
    Q_OBJECT
public:
    // `onSaved` refreshes what shows the style. Archive and desktop outlive the window.
    frmOptionsLanguageDetails(Archive& archive, const Desktop& desktop, const QString& languageName,
                              std::function<void()> onSaved, QWidget* parent);
    ~frmOptionsLanguageDetails() override;

    bool Form_Load(qint32 styleID); // false when the style cannot be read; the message was shown

protected:
    bool eventFilter(QObject* watched, QEvent* event) override; // clicks and keys of the colour boxes

private:
    void fillCombos();
    void wireFields();
    void showStyle(const StyleRow& style);
    void showColor(QLineEdit& box, std::optional<qint64> number);
    void chooseColor(QLineEdit& box);
    std::optional<qint64> colorIn(const QLineEdit& box) const; // nothing when the box is empty
    int letterCase() const;
    StyleRow styleFromFields() const;
    void drawSample();
    void cmdOK_Click();

    std::unique_ptr<Ui::frmOptionsLanguageDetails> m_ui;
    Archive& m_archive;
    const Desktop& m_desktop;
    std::function<void()> m_onSaved;
    qint32 m_styleID = 0;
};
