// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/ui/frmPasswordS.h"

#include "archive/Archive.h"
#include "archive/Element.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "desktop/Desktop.h"
#include "desktop/FrameServices.h"
#include "desktop/Questions.h"
#include "ui/widgets/Icons.h"
#include "ui/widgets/ShownText.h"
#include "ui_frmPasswordS.h"
#include "vault/PasswordCategories.h"
#include "vault/PasswordRows.h"
#include "vault/cPassword.h"
#include "vault/modPassword.h"
#include "vault/ui/frmPassword.h"
#include "vault/ui/frmPasswordCategory.h"

#include <QAbstractTableModel>
#include <QHeaderView>
#include <QSignalBlocker>
#include <QSortFilterProxyModel>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString keyOf(qint32 id)
{
    return QString::number(id) + u" ItemID"_s;
}

} // namespace

// The accounts in the archive's order. Passwords show as eight asterisks or, while they are shown, as themselves; the
// tag of a password's cell is the password either way.
class frmPasswordS::Model final : public QAbstractTableModel {
public:
    enum Column { Title, Description, UserName, Password, Url, ColumnCount };
    enum Role { TagRole = Qt::UserRole + 1 };

    using QAbstractTableModel::QAbstractTableModel;
    ~Model() override { wipePasswordRows(m_rows); }

    void setRows(std::vector<PasswordRow> rows); // the rows before are wiped
    void setPasswordsShown(bool shown);
    bool passwordsShown() const { return m_isShown; }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : int(m_rows.size()); }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : int(ColumnCount); }
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString cellText(const PasswordRow& row, int column) const;

    std::vector<PasswordRow> m_rows;
    bool m_isShown = false;
};

void frmPasswordS::Model::setRows(std::vector<PasswordRow> rows)
{
    beginResetModel();
    m_rows.swap(rows);
    endResetModel();
    wipePasswordRows(rows);
}

void frmPasswordS::Model::setPasswordsShown(bool shown)
{
    m_isShown = shown;
    if (!m_rows.empty())
        emit dataChanged(index(0, Password), index(int(m_rows.size()) - 1, Password));
}

QString frmPasswordS::Model::cellText(const PasswordRow& row, int column) const
{
    switch (column) {
    case Title:
        return row.title;
    case Description:
        return row.description;
    case UserName:
        return row.userName;
    case Password:
        return m_isShown ? row.password : u"********"_s;
    default:
        return row.url;
    }
}

QVariant frmPasswordS::Model::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const PasswordRow& row = m_rows[size_t(index.row())];
    const bool isWithoutCategory = index.column() == Title && row.categoryID == 0;
    switch (role) {
    case Qt::DisplayRole:
        return cellText(row, index.column());
    case Qt::ToolTipRole: // asterisks tell nothing
        return index.column() == Password && !m_isShown ? QString() : plainToolTip(cellText(row, index.column()));
    case Qt::DecorationRole:
        return isWithoutCategory ? QVariant(themedIcon(u"question"_s)) : QVariant();
    case Qt::AccessibleDescriptionRole: // what the picture says
        return isWithoutCategory ? u"Category not specified"_s : QString();
    case Qt::UserRole:
        return keyOf(row.id);
    case TagRole:
        return index.column() == Password ? QVariant(row.password) : QVariant();
    default:
        return {};
    }
}

QVariant frmPasswordS::Model::headerData(int section, Qt::Orientation orientation, int role) const
{
    static const QString titles[] = {u"Title"_s, u"Description"_s, u"UserName"_s, u"Password"_s, u"URL"_s};
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole && section >= 0 && section < ColumnCount)
        return titles[section];
    return {};
}

frmPasswordS::frmPasswordS(const PasswordListContext& context, QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::frmPasswordS>()), m_context(context), m_model(new Model(this)),
      m_sorted(new QSortFilterProxyModel(this))
{
    m_ui->setupUi(this);
    prepareList();
    m_ui->cboCategory->addItem(u"All"_s, 0);
    connect(m_ui->cboCategory, &QComboBox::currentIndexChanged, this, &frmPasswordS::MakeLvwContents);
    setFocusProxy(m_ui->lvwPassword);
    enableCommands();
}

frmPasswordS::~frmPasswordS() = default;

void frmPasswordS::prepareList()
{
    ListView& list = *m_ui->lvwPassword;
    m_sorted->setSortCaseSensitivity(Qt::CaseInsensitive);
    m_sorted->setSortLocaleAware(true);
    m_sorted->setSourceModel(m_model);
    list.setList(m_sorted);
    list.header()->setSortIndicator(-1, Qt::AscendingOrder); // as in the archive until a header is clicked
    list.setSortingEnabled(true);
    static constexpr int widths[] = {28, 32, 24, 22}; // characters; the address has the rest
    const int unit = list.fontMetrics().averageCharWidth();
    for (int column = 0; column < int(std::size(widths)); ++column)
        list.header()->resizeSection(column, unit * widths[column]);
    connect(&list, &ListView::openRequested, this, &frmPasswordS::ModifyPassword);
    connect(&list, &ListView::newRequested, this, &frmPasswordS::NewPassword);
    connect(&list, &ListView::deleteRequested, this, &frmPasswordS::DeletePassword);
    connect(&list, &ListView::selectionMade, this, &frmPasswordS::enableCommands);
    connect(&list, &ListView::menuRequested, this,
            [this](const QPoint& position) { m_context.frame.popupMenu(u"mnuPassword"_s, position); });
    addKeys();
}

// Here Ctrl+N is an account, not a memo. Copying is never left to the list, which would put a password on the clipboard
// for good.
void frmPasswordS::addKeys()
{
    const auto add = [this](QKeyCombination key, void (frmPasswordS::*routine)()) {
        m_ui->lvwPassword->addKey(key, [this, routine] { (this->*routine)(); });
    };
    add(Qt::CTRL | Qt::Key_N, &frmPasswordS::NewPassword);
    add(Qt::CTRL | Qt::Key_C, &frmPasswordS::ClipboardPasswordCopy);
    add(Qt::CTRL | Qt::Key_Insert, &frmPasswordS::ClipboardPasswordCopy);
    add(Qt::CTRL | Qt::Key_B, &frmPasswordS::ClipboardUsernameCopy);
    add(Qt::CTRL | Qt::SHIFT | Qt::Key_C, &frmPasswordS::ClipboardUsernameCopy);
    add(Qt::CTRL | Qt::Key_U, &frmPasswordS::VisitURLPassword);
}

bool frmPasswordS::isUnlocked() const
{
    return m_context.vault.isUnlocked();
}

void frmPasswordS::setInFront(bool inFront)
{
    m_isInFront = inFront;
    if (inFront) {
        LoadComboCategory();
        MakeLvwContents();
        m_ui->lvwPassword->setFocus();
    } else {
        showPasswords(false); // nobody expects them open when the list comes back
    }
    enableCommands();
}

void frmPasswordS::enableCommands()
{
    const auto enable = [this](const QString& name, bool enabled) { m_context.frame.enableCommand(name, enabled); };
    const bool isOn = m_isInFront && isUnlocked();
    for (const QString& name :
         {u"miPasswordNew"_s, u"miPasswordHideShow"_s, u"miPasswordExport"_s, u"miPasswordCategory"_s})
        enable(name, isOn);
    const bool hasItem = isOn && m_ui->lvwPassword->selectionModel()->hasSelection();
    for (const QString& name : {u"miPasswordModify"_s, u"miPasswordDelete"_s, u"miPasswordCopyPwd"_s,
                                u"miPasswordCopyUserName"_s, u"miPasswordVisitURL"_s})
        enable(name, hasItem);
    enable(u"miPasswordLock"_s, isUnlocked()); // from any view
}

void frmPasswordS::LoadComboCategory()
{
    trapErrors(m_context.archive.questions(), u"LoadComboCategory"_s, [&] {
        const std::vector<PasswordCategory> categories = passwordCategoriesByName(m_context.archive);
        const qint32 chosen = category();
        QComboBox& box = *m_ui->cboCategory;
        const QSignalBlocker quiet(box);
        box.clear();
        box.addItem(u"All"_s, 0);
        for (const PasswordCategory& row : categories)
            box.addItem(row.name, row.id);
        box.setCurrentIndex(std::max(box.findData(chosen), 0)); // "All" when it was deleted
    });
}

qint32 frmPasswordS::category() const
{
    return m_ui->cboCategory->currentData().toInt();
}

void frmPasswordS::MakeLvwContents()
{
    fill(&ListView::refill);
}

void frmPasswordS::fill(void (ListView::*refill)(const std::function<void()>&))
{
    trapErrors(m_context.archive.questions(), u"MakeLvwContents"_s, [&] {
        (m_ui->lvwPassword->*refill)([this] {
            m_model->setRows(isUnlocked() ? readPasswordRows(m_context.archive, m_context.vault, category())
                                          : std::vector<PasswordRow>());
        });
        UpdateStatusBar();
    });
}

void frmPasswordS::UpdateStatusBar()
{
    m_context.frame.setStatus(u"Password -  items: "_s + QString::number(m_model->rowCount()));
}

QString frmPasswordS::cell(int column) const
{
    const int role = column == Model::Password ? int(Model::TagRole) : int(Qt::DisplayRole);
    return m_ui->lvwPassword->selectedRow().siblingAtColumn(column).data(role).toString();
}

void frmPasswordS::NewPassword()
{
    if (isUnlocked())
        openEditor(0);
}

void frmPasswordS::ModifyPassword()
{
    if (!isUnlocked())
        return;
    if (const qint32 id = m_ui->lvwPassword->selectedId())
        openEditor(id);
    else
        m_context.archive.questions().ask(u"Please select the Password you want to modify!"_s,
                                          MessageStyle::Information);
}

void frmPasswordS::openEditor(qint32 id)
{
    m_context.viewFilter.EditingModePasswordID = id;
    trapErrors(m_context.archive.questions(), id == 0 ? u"NewPassword"_s : u"ModifyPassword"_s, [&] {
        frmPassword editor({m_context.archive, m_context.desktop, m_context.viewFilter, m_context.password, category()},
                           window());
        if (!editor.Form_Load() || editor.exec() != QDialog::Accepted)
            return;
        MakeLvwContents();
        m_ui->lvwPassword->selectKey(keyOf(m_context.viewFilter.EditingModePasswordID));
    });
    m_context.password.clear();
}

void frmPasswordS::DeletePassword()
{
    trapErrors(m_context.archive.questions(), u"DeletePassword"_s, [&] {
        const std::vector<qint32> ids = m_ui->lvwPassword->selectedIds();
        if (ids.empty() || !isUnlocked())
            return;
        if (!mayDeleteElements(m_context.archive.questions()))
            return;
        deletePasswords(m_context.archive, idList(ids));
        fill(&ListView::refillAfterDelete);
    });
}

void frmPasswordS::showPasswords(bool shown)
{
    m_model->setPasswordsShown(shown);
    m_context.frame.checkCommand(u"miPasswordHideShow"_s, shown);
}

void frmPasswordS::HideShowPwd()
{
    if (m_isInFront && isUnlocked())
        showPasswords(!m_model->passwordsShown());
}

void frmPasswordS::copyCell(int column, const QString& word)
{
    if (!m_ui->lvwPassword->selectedRow().isValid())
        return;
    m_context.desktop.clipboard.copySecret(cell(column));
    m_context.frame.setStatus(word + u" copied. The clipboard is cleared soon."_s);
}

void frmPasswordS::ClipboardUsernameCopy()
{
    copyCell(Model::UserName, u"User name"_s);
}

void frmPasswordS::ClipboardPasswordCopy()
{
    copyCell(Model::Password, u"Password"_s);
}

void frmPasswordS::VisitURLPassword()
{
    if (!m_ui->lvwPassword->selectedRow().isValid())
        return;
    const QString url = cell(Model::Url);
    if (url.isEmpty()) {
        m_context.archive.questions().ask(u"URL not specified"_s, MessageStyle::Information);
        return;
    }
    trapErrors(m_context.archive.questions(), u"VisitURLPassword"_s, [&] { m_context.desktop.shell.openLink(url); });
}

void frmPasswordS::ExportPasswordsToTextFile()
{
    if (!isUnlocked())
        return;
    Questions& questions = m_context.archive.questions();
    if (!m_ui->lvwPassword->selectedRow().isValid()) {
        questions.ask(u"You must select passwords to export"_s, MessageStyle::Exclamation);
        return;
    }
    const auto path =
        m_context.desktop.files.saveFile(u"Choose file name..."_s, u"Text file(*.TXT) |*.TXT"_s, u"TXT"_s);
    if (!path)
        return;
    const std::vector<qint32> ids = m_ui->lvwPassword->selectedIds();
    if (ids.empty()) {
        questions.ask(u"Select password to export on file."_s, MessageStyle::Exclamation);
        return;
    }
    try {
        exportPasswords(m_context.archive, m_context.vault, idList(ids), *path);
        questions.ask(u"Export to file completed."_s, MessageStyle::Information);
    } catch (const std::exception&) {
        questions.ask(u"Errors were found exporting passwords to file."_s, MessageStyle::Critical);
    }
}

void frmPasswordS::showCategories()
{
    if (!isUnlocked())
        return;
    frmPasswordCategory manager(m_context.archive, window());
    manager.exec();
    LoadComboCategory();
    MakeLvwContents();
}

void frmPasswordS::Lock()
{
    m_isInFront = false;
    m_context.desktop.clipboard.wipe();
    m_context.password.clear();
    m_model->setRows({});
    showPasswords(false);
    m_context.vault.lock();
    enableCommands();
    m_context.frame.showView(u"Memo"_s);
    m_context.frame.setStatus(u"Passwords locked"_s);
}
