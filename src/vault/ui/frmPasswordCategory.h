// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <functional>
#include <memory>

class Archive;
struct PasswordCategory;

namespace Ui {
class frmPasswordCategory;
}

// Creates, changes and deletes the categories of the password list. Every button works on the fields below the list at
// once; nothing is left to be saved when the window closes.
class frmPasswordCategory : public QDialog {
    Q_OBJECT
public:
    frmPasswordCategory(Archive& archive, QWidget* parent); // the archive outlives it
    ~frmPasswordCategory() override;

    void MakeLvwContents(); // errors are shown; the list keeps what it had then
    void ShowCategoryDetails(); // of the selected one

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void prepareToolbar();
    void Toolbar1_ButtonClick(const std::function<void()>& action);
    void newCategory(); // these three throw
    void modifyCategory();
    void deleteCategory();
    bool isNameTaken(const QString& name);
    bool mayGoOn(const QString& question, const QString& title);
    void complain(const QString& message);

    void fillList(qint32 selectedID);
    qint32 selectedID() const; // 0 without one
    QString selectedName() const;
    PasswordCategory typed() const;
    void showFields(const PasswordCategory& category);

    std::unique_ptr<Ui::frmPasswordCategory> m_ui;
    Archive& m_archive;
};
