// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/ui/frmPasswordS.h"

#include "archive/Archive.h"
#include "archive/ElementQuestions.h"
#include "archive/ErrorTrap.h"
#include "archive/SqlText.h"
#include "archive/cViewFilter.h"
#include "desktop/Desktop.h"
#include "desktop/FrameServices.h"
#include "desktop/Questions.h"
#include "ui/widgets/Selection.h"
#include "ui_frmPasswordS.h"
#include "vault/PasswordCategories.h"
#include "vault/cPassword.h"
#include "vault/modPassword.h"
#include "vault/ui/PasswordListModel.h"
#include "vault/ui/frmPassword.h"
#include "vault/ui/frmPasswordCategory.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSet>
#include <QSignalBlocker>
#include <QSortFilterProxyModel>
#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

frmPasswordS::frmPasswordS(const PasswordListContext& context, QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::frmPasswordS>()), m_context(context),
      m_model(new PasswordListModel(this)), m_sorted(new QSortFilterProxyModel(this))
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
    QTreeView& list = *m_ui->lvwPassword;
    m_sorted->setSortCaseSensitivity(Qt::CaseInsensitive);
    m_sorted->setSortLocaleAware(true);
    m_sorted->setSourceModel(m_model);
    list.setModel(m_sorted);
    list.setItemDelegate(new OneLineDelegate(&list));
    list.header()->setSortIndicator(-1, Qt::AscendingOrder); // as in the archive until a header is clicked
    list.setSortingEnabled(true);
    static constexpr int widths[] = {28, 32, 24, 22}; // characters; the address has the rest
    const int unit = list.fontMetrics().averageCharWidth();
    for (int column = 0; column < int(std::size(widths)); ++column)
        list.header()->resizeSection(column, unit * widths[column]);
    list.installEventFilter(this);
    list.viewport()->installEventFilter(this);
    connect(&list, &QTreeView::doubleClicked, this, &frmPasswordS::ModifyPassword);
    connect(list.selectionModel(), &QItemSelectionModel::selectionChanged, this, &frmPasswordS::enableCommands);
}

bool frmPasswordS::isUnlocked() const
{
    return m_context.vault.isUnlocked();
}

bool frmPasswordS::mayCommand() const
{
    return m_isInFront && isUnlocked();
}

void frmPasswordS::setInFront(bool inFront)
{
    m_isInFront = inFront;
    if (inFront) {
        LoadComboCategory();
        MakeLvwContents();
        m_ui->lvwPassword->setFocus();
    } else {
        m_model->setPasswordsShown(false); // nobody expects them open when the list comes back
        m_context.frame.checkCommand(u"miPasswordHideShow"_s, false);
    }
    enableCommands();
}

void frmPasswordS::enableCommands()
{
    const auto enable = [this](const QString& name, bool enabled) { m_context.frame.enableCommand(name, enabled); };
    const bool isOn = mayCommand();
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
    trapErrors(m_context.archive.questions(), u"MakeLvwContents"_s, [&] {
        std::vector<PasswordRow> rows;
        if (isUnlocked())
            readPasswordRows(m_context.archive, m_context.vault, category(), rows);
        const std::vector<qint32> selected = selectedIds();
        const qint32 current = leadingNumber(selectedRow().data(PasswordListModel::KeyRole).toString());
        QScrollBar& bar = *m_ui->lvwPassword->verticalScrollBar();
        const int seen = bar.value();
        m_model->setRows(std::move(rows));
        select(selected, current);
        m_ui->lvwPassword->doItemsLayout();
        bar.setValue(seen);
        UpdateStatusBar();
        enableCommands();
    });
}

void frmPasswordS::UpdateStatusBar()
{
    m_context.frame.setStatus(u"Password -  items: "_s + QString::number(m_model->rowCount()));
}

void frmPasswordS::select(const std::vector<qint32>& ids, qint32 current)
{
    if (ids.empty())
        return;
    const QSet<qint32> wanted(ids.begin(), ids.end());
    QModelIndex focus;
    const QItemSelection selection = selectionOf(*m_sorted, [&](int row) {
        const QModelIndex item = m_sorted->index(row, 0);
        const qint32 id = leadingNumber(item.data(PasswordListModel::KeyRole).toString());
        if (id == current && wanted.contains(id))
            focus = item;
        return wanted.contains(id);
    });
    QItemSelectionModel& model = *m_ui->lvwPassword->selectionModel();
    if (focus.isValid())
        model.setCurrentIndex(focus, QItemSelectionModel::NoUpdate);
    model.select(selection, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

std::vector<qint32> frmPasswordS::selectedIds() const
{
    QModelIndexList rows = m_ui->lvwPassword->selectionModel()->selectedRows();
    std::sort(rows.begin(), rows.end());
    std::vector<qint32> ids;
    for (const QModelIndex& row : rows)
        ids.push_back(leadingNumber(row.data(PasswordListModel::KeyRole).toString()));
    return ids;
}

QModelIndex frmPasswordS::selectedRow() const
{
    const QItemSelectionModel& model = *m_ui->lvwPassword->selectionModel();
    const QModelIndex current = model.currentIndex().siblingAtColumn(0);
    if (current.isValid() && model.isSelected(current))
        return current;
    const QModelIndexList rows = model.selectedRows();
    const auto first = std::min_element(rows.begin(), rows.end());
    return first == rows.end() ? QModelIndex() : *first;
}

QString frmPasswordS::cell(int column) const
{
    const int role = column == PasswordListModel::Password ? int(PasswordListModel::TagRole) : int(Qt::DisplayRole);
    return selectedRow().siblingAtColumn(column).data(role).toString();
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
    const QModelIndex row = selectedRow();
    if (row.isValid())
        openEditor(leadingNumber(row.data(PasswordListModel::KeyRole).toString()));
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
        const qint32 saved = m_context.viewFilter.EditingModePasswordID;
        select({saved}, saved);
        m_ui->lvwPassword->scrollTo(m_ui->lvwPassword->currentIndex());
    });
    m_context.password.clear();
}

void frmPasswordS::DeletePassword()
{
    trapErrors(m_context.archive.questions(), u"DeletePassword"_s, [&] {
        const std::vector<qint32> ids = selectedIds();
        if (ids.empty() || !isUnlocked())
            return;
        if (!mayDeleteElements(m_context.archive.questions()))
            return;
        deletePasswords(m_context.archive, idList(ids));
        MakeLvwContents();
    });
}

void frmPasswordS::HideShowPwd()
{
    if (!mayCommand())
        return;
    m_model->setPasswordsShown(!m_model->passwordsShown());
    m_context.frame.checkCommand(u"miPasswordHideShow"_s, m_model->passwordsShown());
}

void frmPasswordS::ClipboardUsernameCopy()
{
    if (!selectedRow().isValid())
        return;
    m_context.desktop.clipboard.copySecret(cell(PasswordListModel::UserName));
    m_context.frame.setStatus(u"User name copied. The clipboard is cleared soon."_s);
}

void frmPasswordS::ClipboardPasswordCopy()
{
    if (!selectedRow().isValid())
        return;
    m_context.desktop.clipboard.copySecret(cell(PasswordListModel::Password));
    m_context.frame.setStatus(u"Password copied. The clipboard is cleared soon."_s);
}

void frmPasswordS::VisitURLPassword()
{
    if (!selectedRow().isValid())
        return;
    const QString url = cell(PasswordListModel::Url);
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
    if (selectedIds().empty()) {
        questions.ask(u"You must select passwords to export"_s, MessageStyle::Exclamation);
        return;
    }
    const auto path =
        m_context.desktop.files.saveFile(u"Choose file name..."_s, u"Text file(*.TXT) |*.TXT"_s, u"TXT"_s);
    if (!path)
        return;
    const std::vector<qint32> ids = selectedIds();
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
    m_model->setPasswordsShown(false);
    m_context.frame.checkCommand(u"miPasswordHideShow"_s, false);
    m_context.vault.lock();
    enableCommands();
    m_context.frame.showView(u"Memo"_s);
    m_context.frame.setStatus(u"Passwords locked"_s);
}

// The keys of the list. They come before commands of the frame with the same ones: here Ctrl+N is an account, not a
// memo. Copying is never left to the list, which would put a password on the clipboard for good.
namespace {

using Routine = void (frmPasswordS::*)();

Routine routineOf(const QKeyEvent& key)
{
    switch (key.key() | int(key.modifiers() & ~Qt::KeypadModifier)) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_F2:
        return &frmPasswordS::ModifyPassword;
    case Qt::Key_Delete:
        return &frmPasswordS::DeletePassword;
    case Qt::Key_Insert:
    case int(Qt::CTRL) | Qt::Key_N:
        return &frmPasswordS::NewPassword;
    case int(Qt::CTRL) | Qt::Key_C:
    case int(Qt::CTRL) | Qt::Key_Insert:
        return &frmPasswordS::ClipboardPasswordCopy;
    case int(Qt::CTRL) | Qt::Key_B:
    case int(Qt::CTRL | Qt::SHIFT) | Qt::Key_C:
        return &frmPasswordS::ClipboardUsernameCopy;
    case int(Qt::CTRL) | Qt::Key_U:
        return &frmPasswordS::VisitURLPassword;
    default:
        return nullptr;
    }
}

} // namespace

bool frmPasswordS::runKey(const QKeyEvent& key)
{
    const bool isPress = key.type() == QEvent::KeyPress;
    if (const Routine routine = routineOf(key)) {
        if (isPress)
            (this->*routine)();
        return true;
    }
    // Typing ahead looks through the titles, whatever column was clicked.
    QItemSelectionModel& model = *m_ui->lvwPassword->selectionModel();
    if (isPress && model.currentIndex().column() > 0)
        model.setCurrentIndex(model.currentIndex().siblingAtColumn(0), QItemSelectionModel::NoUpdate);
    return false;
}

void frmPasswordS::popupMenu(const QPoint& screenPosition)
{
    enableCommands();
    m_context.frame.popupMenu(u"mnuPassword"_s, screenPosition);
}

bool frmPasswordS::eventFilter(QObject* watched, QEvent* event)
{
    const QTreeView& list = *m_ui->lvwPassword;
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
        if (!runKey(static_cast<const QKeyEvent&>(*event)))
            return false;
        event->accept();
        return true;
    case QEvent::MouseButtonRelease: // the mouse asks when its button goes up
        if (const auto& mouse = static_cast<const QMouseEvent&>(*event); mouse.button() == Qt::RightButton)
            popupMenu(mouse.globalPosition().toPoint());
        return false;
    case QEvent::ContextMenu:
        if (static_cast<const QContextMenuEvent&>(*event).reason() == QContextMenuEvent::Keyboard) {
            const QModelIndex row = selectedRow();
            popupMenu(list.viewport()->mapToGlobal(row.isValid() ? list.visualRect(row).center() : QPoint(8, 8)));
        }
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}
