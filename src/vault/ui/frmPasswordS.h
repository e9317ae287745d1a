// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>
#include <functional>
#include <memory>

class Archive;
class FrameServices;
class ListView;
class QSortFilterProxyModel;
class cPassword;
class cViewFilter;
class modPassword;
struct Desktop;

namespace Ui {
class frmPasswordS;
}

// What the password list works on and with. All outlive it.
struct PasswordListContext {
    Archive& archive;
    const Desktop& desktop;
    FrameServices& frame;
    cViewFilter& viewFilter;
    cPassword& password;
    modPassword& vault;
};

// The accounts of the vault, one view of the frame. It lists nothing and commands nothing while the vault is locked.
class frmPasswordS final : public QWidget {
    Q_OBJECT
public:
    frmPasswordS(const PasswordListContext& context, QWidget* parent = nullptr);
    ~frmPasswordS() override;

    // The frame brought the view to the front: reads everything anew and takes the focus. Or put another view before
    // it: hides the passwords. The commands follow.
    void setInFront(bool inFront);
    // Which commands make sense now. Also whenever something else than this view locked or unlocked the vault.
    void enableCommands();

    void LoadComboCategory();
    void MakeLvwContents(); // of the chosen category; what was selected stays so
    void UpdateStatusBar();
    void NewPassword();
    void ModifyPassword(); // the selected one
    void DeletePassword(); // all selected ones, after a question
    void HideShowPwd();
    void ClipboardUsernameCopy();
    void ClipboardPasswordCopy();
    void VisitURLPassword();
    void ExportPasswordsToTextFile(); // the selected ones
    void showCategories();
    void Lock(); // forgets and wipes everything, and goes to the memos

private:
    class Model;

    void prepareList();
    void addKeys();
    void fill(void (ListView::*refill)(const std::function<void()>&));
    bool isUnlocked() const;
    void showPasswords(bool shown);
    void copyCell(int column, const QString& word);
    void openEditor(qint32 id);
    QString cell(int column) const; // of the selected row
    qint32 category() const;

    std::unique_ptr<Ui::frmPasswordS> m_ui;
    PasswordListContext m_context;
    Model* m_model;
    QSortFilterProxyModel* m_sorted;
    bool m_isInFront = false;
};
