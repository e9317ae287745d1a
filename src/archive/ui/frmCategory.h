// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <memory>

class CategoryTree;
class Questions;
class cCategory;

namespace Ui {
class frmCategory;
}

// Creates a category below the tree's selected node, or changes the current one, by the category's EditingMode. On
// OK it writes the record, patches the tree and shows the category.
class frmCategory : public QDialog {
    Q_OBJECT
public:
    frmCategory(cCategory& category, CategoryTree& tree, Questions& questions, QWidget* parent);
    ~frmCategory() override;

private:
    void loadExisting();
    void prepareNew();
    void optType_Click(int index);
    void cmdOK_Click();
    void showPicture(int index);

    std::unique_ptr<Ui::frmCategory> m_ui;
    cCategory& m_category;
    CategoryTree& m_tree;
    Questions& m_questions;
};
