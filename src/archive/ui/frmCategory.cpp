// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/ui/frmCategory.h"

#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "archive/cCategory.h"
#include "desktop/Questions.h"
#include "ui/widgets/Icons.h"
#include "ui_frmCategory.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

// The three folder pictures, "memo", "bookmark" and "todo".
QIcon picture(int index)
{
    static const std::array names = {u"folder"_s, u"folder-bookmark"_s, u"view-task"_s};
    return themedIcon(names[size_t(index)]);
}

constexpr int kinds = 3;

} // namespace

frmCategory::frmCategory(cCategory& category, CategoryTree& tree, Questions& questions, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmCategory>()), m_category(category), m_tree(tree),
      m_questions(questions)
{
    m_ui->setupUi(this);
    const std::array options = {m_ui->optType_0, m_ui->optType_1, m_ui->optType_2};
    const std::array pictures = {m_ui->imgType_0, m_ui->imgType_1, m_ui->imgType_2};
    for (int i = 0; i < kinds; ++i) {
        pictures[size_t(i)]->setPixmap(picture(i).pixmap(QSize(16, 16), devicePixelRatioF()));
        connect(options[size_t(i)], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on)
                optType_Click(i);
        });
    }
    connect(m_ui->cmdOK, &QPushButton::clicked, this, &frmCategory::cmdOK_Click);
    connect(m_ui->cmdClose, &QPushButton::clicked, this, &QDialog::reject);
    if (m_category.EditingMode)
        loadExisting();
    else
        prepareNew();
    m_ui->txtName->setFocus();
}

frmCategory::~frmCategory() = default;

void frmCategory::loadExisting()
{
    for (QWidget* widget :
         std::initializer_list<QWidget*>{m_ui->lblType, m_ui->optType_0, m_ui->optType_1, m_ui->optType_2,
                                         m_ui->imgType_0, m_ui->imgType_1, m_ui->imgType_2})
        widget->hide();
    m_category.Load();
    m_ui->txtName->setText(m_category.CategoryName);
    m_ui->txtDescription->setPlainText(m_category.CategoryDescription);
    const ElementKind kind = elementKind(m_category.CategoryType);
    setWindowTitle(windowTitle() + u" - "_s + wordsOf(kind).name);
    showPicture(int(kind));
}

void frmCategory::prepareNew()
{
    const CategoryNode* parent = m_tree.selectedNode();
    m_category.CategoryParentID = parent ? parent->id : 0;
    QRadioButton* const options[] = {m_ui->optType_0, m_ui->optType_1, m_ui->optType_2};
    options[parent ? size_t(parent->kind) : 0]->setChecked(true);
}

void frmCategory::optType_Click(int index)
{
    m_category.CategoryType = qint16(index);
    showPicture(index);
}

void frmCategory::showPicture(int index)
{
    m_ui->imgFolder->setPixmap(picture(index).pixmap(QSize(48, 48), devicePixelRatioF()));
}

void frmCategory::cmdOK_Click()
{
    if (m_ui->txtName->text().trimmed().isEmpty()) {
        m_questions.ask(u"Please choose a name!"_s, MessageStyle::Information);
        return;
    }
    m_category.CategoryName = m_ui->txtName->text();
    m_category.CategoryDescription = m_ui->txtDescription->toPlainText();
    trapErrors(m_questions, u"cmdOK"_s, [&] {
        if (!(m_category.EditingMode ? m_category.Update() : m_category.Save()))
            return; // the message was shown; what was typed stays
        const CategoryNode node{m_category.CategoryID, elementKind(m_category.CategoryType), m_category.CategoryName};
        if (m_category.EditingMode)
            m_tree.renameNode(node.id, node.text);
        else
            m_tree.addNode(m_category.CategoryParentID, node);
        m_tree.clickSelectedNode();
        accept();
    });
}
