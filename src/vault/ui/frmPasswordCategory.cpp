// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/ui/frmPasswordCategory.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "desktop/Questions.h"
#include "ui/widgets/CellDelegate.h"
#include "ui/widgets/Icons.h"
#include "ui/widgets/RawText.h"
#include "ui_frmPasswordCategory.h"
#include "vault/PasswordCategories.h"

#include <QKeyEvent>
#include <QSignalBlocker>
#include <stdexcept>

using namespace Qt::StringLiterals;

frmPasswordCategory::frmPasswordCategory(Archive& archive, QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPasswordCategory>()), m_archive(archive)
{
    m_ui->setupUi(this);
    QTreeWidget& list = *m_ui->lvwCategory;
    list.setItemDelegate(new CellDelegate(&list, 0));
    list.header()->setSortIndicator(-1, Qt::AscendingOrder); // as in the archive until a header is clicked
    list.setSortingEnabled(true);
    list.header()->resizeSection(0, fontMetrics().averageCharWidth() * 28);
    for (QPlainTextEdit* box : {m_ui->txtDescription, m_ui->txtNotes})
        box->setFixedHeight(fontMetrics().lineSpacing() * 3 + box->frameWidth() * 4);
    connect(&list, &QTreeWidget::itemSelectionChanged, this, &frmPasswordCategory::ShowCategoryDetails);
    prepareToolbar();
    MakeLvwContents();
    m_ui->txtName->setFocus();
}

frmPasswordCategory::~frmPasswordCategory() = default;

void frmPasswordCategory::prepareToolbar()
{
    using Routine = void (frmPasswordCategory::*)();
    const auto button = [this](QAction* action, const QString& icon, Routine routine) {
        action->setIcon(themedIcon(icon));
        connect(action, &QAction::triggered, this,
                [this, routine] { Toolbar1_ButtonClick([&] { (this->*routine)(); }); });
    };
    button(m_ui->New, u"folder-new"_s, &frmPasswordCategory::newCategory);
    button(m_ui->Modify, u"document-edit"_s, &frmPasswordCategory::modifyCategory);
    button(m_ui->Delete, u"edit-delete"_s, &frmPasswordCategory::deleteCategory);
    m_ui->Close->setIcon(themedIcon(u"window-close"_s));
    connect(m_ui->Close, &QAction::triggered, this, &QDialog::reject);
    for (QAction* action : m_ui->Toolbar1->actions()) // the buttons belong to the tab order
        if (QWidget* widget = m_ui->Toolbar1->widgetForAction(action); widget && !action->isSeparator())
            widget->setFocusPolicy(Qt::TabFocus);
}

void frmPasswordCategory::Toolbar1_ButtonClick(const std::function<void()>& action)
{
    trapErrors(m_archive.questions(), u"Toolbar1_ButtonClick"_s, action);
}

void frmPasswordCategory::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Delete && m_ui->lvwCategory->hasFocus())
        m_ui->Delete->trigger();
    else
        QDialog::keyPressEvent(event);
}

void frmPasswordCategory::MakeLvwContents()
{
    trapErrors(m_archive.questions(), u"MakeLvwContents"_s, [this] { fillList(selectedID()); });
}

// Throws; the list keeps what it had then.
void frmPasswordCategory::fillList(qint32 selectedID)
{
    const std::vector<PasswordCategory> categories = passwordCategories(m_archive);
    QTreeWidget& list = *m_ui->lvwCategory;
    {
        const QSignalBlocker quiet(list);
        list.clear();
        for (const PasswordCategory& category : categories) {
            auto* item = new QTreeWidgetItem(&list, {category.name, category.description});
            item->setIcon(0, themedIcon(u"folder"_s));
            item->setData(0, Qt::UserRole, QString(QString::number(category.id) + u" ItemID"_s));
            if (category.id == selectedID)
                list.setCurrentItem(item);
        }
    }
    ShowCategoryDetails();
}

qint32 frmPasswordCategory::selectedID() const
{
    const QList<QTreeWidgetItem*> selected = m_ui->lvwCategory->selectedItems();
    return selected.isEmpty() ? 0 : leadingNumber(selected.constFirst()->data(0, Qt::UserRole).toString());
}

QString frmPasswordCategory::selectedName() const
{
    const QList<QTreeWidgetItem*> selected = m_ui->lvwCategory->selectedItems();
    return selected.isEmpty() ? QString() : selected.constFirst()->text(0);
}

void frmPasswordCategory::ShowCategoryDetails()
{
    trapErrors(m_archive.questions(), u"ShowCategoryDetails"_s, [this] {
        const qint32 id = selectedID();
        if (id == 0) {
            showFields({});
            return;
        }
        const auto category = findPasswordCategory(m_archive, id);
        showFields(category.value_or(PasswordCategory{id, u"Not found"_s, u"Cannot found element"_s, QString()}));
    });
}

void frmPasswordCategory::showFields(const PasswordCategory& category)
{
    m_ui->txtName->setText(category.name);
    m_ui->txtDescription->setPlainText(category.description);
    m_ui->txtNotes->setPlainText(category.notes);
}

PasswordCategory frmPasswordCategory::typed() const
{
    return {selectedID(), m_ui->txtName->text(), rawText(*m_ui->txtDescription), rawText(*m_ui->txtNotes)};
}

void frmPasswordCategory::complain(const QString& message)
{
    m_archive.questions().ask(message, MessageStyle::Exclamation);
}

bool frmPasswordCategory::mayGoOn(const QString& question, const QString& title)
{
    return m_archive.questions().ask(question, MessageStyle::YesNoDefaultNo, title) == Answer::Yes;
}

bool frmPasswordCategory::isNameTaken(const QString& name)
{
    if (!existsPasswordCategory(m_archive, name))
        return false;
    complain(u"A category named '"_s + name + u"' already exists! Chose a different name."_s);
    m_ui->txtName->setFocus();
    return true;
}

void frmPasswordCategory::newCategory()
{
    const PasswordCategory category = typed();
    if (category.name.isEmpty()) {
        complain(u"You must specify a name for the new category."_s);
        m_ui->txtName->setFocus();
    } else if (!isNameTaken(category.name) &&
               mayGoOn(u"Are you sure you want to create the new category '"_s + category.name + u"' ? "_s,
                       u"New category"_s)) {
        fillList(insertPasswordCategory(m_archive, category));
    }
}

void frmPasswordCategory::modifyCategory()
{
    const PasswordCategory category = typed();
    const QString before = selectedName();
    if (category.id == 0) {
        complain(u"You must select a category in the list to modify it."_s);
        return;
    }
    if (category.name.isEmpty()) {
        complain(u"You must specify new category name"_s);
        m_ui->txtName->setFocus();
        return;
    }
    if (category.name != before && isNameTaken(category.name))
        return;
    if (!mayGoOn(u"Are you sure you want to modify category '"_s + before + u"' ? "_s, u"Modify category"_s))
        return;
    if (!updatePasswordCategory(m_archive, category)) // another program deleted it
        throw std::runtime_error("The category is no longer in the archive.");
    fillList(category.id);
}

void frmPasswordCategory::deleteCategory()
{
    const qint32 id = selectedID();
    if (id == 0) {
        complain(u"You must select a category in the list to delete it."_s);
        return;
    }
    if (!mayGoOn(u"Are you sure you want delete category '"_s + selectedName() +
                     u"' ? \r\n(Passwords will NOT be deleted)"_s,
                 u"Delete category"_s))
        return;
    deletePasswordCategory(m_archive, id);
    fillList(0);
}
