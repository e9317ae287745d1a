// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "notes/ui/frmNoteList.h"

#include "archive/Archive.h"
#include "archive/ErrorTrap.h"
#include "desktop/Desktop.h"
#include "desktop/Questions.h"
#include "desktop/TextForms.h"
#include "notes/ui/NoteColors.h"
#include "notes/ui/NoteWindows.h"
#include "ui/widgets/CellDelegate.h"
#include "ui/widgets/ShownText.h"
#include "ui_frmNoteList.h"

#include <QAbstractListModel>

using namespace Qt::StringLiterals;

namespace {

QString keyOf(qint32 id)
{
    return QString::number(id) + u" ItemID"_s;
}

class HeadingCells final : public CellDelegate {
public:
    explicit HeadingCells(QObject* parent) : CellDelegate(parent, 0) { }
    QString displayText(const QVariant& value, const QLocale&) const override { return shownHeading(value.toString()); }
    // As wide as the list; what does not fit ends with dots.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override
    {
        constexpr int gap = 8; // pixels of air between two lines
        return {1, std::max(option.fontMetrics.height(), option.decorationSize.height()) + gap};
    }
};

} // namespace

// The whole text of each note and a sheet in its colour.
class frmNoteList::Model final : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

    void setRows(std::vector<NoteRow> rows)
    {
        beginResetModel();
        m_rows = std::move(rows);
        endResetModel();
    }
    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : int(m_rows.size()); }
    QVariant data(const QModelIndex& index, int role) const override;

private:
    std::vector<NoteRow> m_rows;
};

QVariant frmNoteList::Model::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return {};
    const NoteRow& row = m_rows[size_t(index.row())];
    switch (role) {
    case Qt::DisplayRole:
        return row.content;
    case Qt::AccessibleTextRole:
        return shownHeading(row.content);
    case Qt::ToolTipRole:
        return QString(plainToolTip(row.content) + u"<p><i>"_s + shortMoment(row.date.date, row.date.time) +
                       u"</i></p>"_s);
    case Qt::DecorationRole:
        return noteIcon(row.color);
    case Qt::UserRole:
        return keyOf(row.id);
    default:
        return {};
    }
}

frmNoteList::frmNoteList(const NoteListContext& context, QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::frmNoteList>()), m_context(context), m_model(new Model(this))
{
    m_ui->setupUi(this);
    m_ui->lvwNote->setList(m_model);
    m_ui->lvwNote->setItemDelegate(new HeadingCells(m_ui->lvwNote));
    wire();
    MakeLvwContents();
}

frmNoteList::~frmNoteList()
{
    m_isInFront = false;
    enableCommands();
}

void frmNoteList::wire()
{
    const ListView* list = m_ui->lvwNote;
    connect(list, &ListView::openRequested, this, &frmNoteList::ModifyNote);
    connect(list, &ListView::newRequested, this, &frmNoteList::NewNote);
    connect(list, &ListView::deleteRequested, this, &frmNoteList::DeleteNote);
    connect(list, &ListView::selectionMade, this, &frmNoteList::enableCommands);
    connect(list, &ListView::menuRequested, this,
            [this](const QPoint& position) { m_context.frame.popupMenu(u"mnuNote"_s, position); });
    connect(&m_context.windows, &NoteWindows::notesWritten, this, &frmNoteList::notesWritten);
}

void frmNoteList::MakeLvwContents()
{
    fill(&ListView::refill);
}

void frmNoteList::fill(void (ListView::*refill)(const std::function<void()>&))
{
    trapErrors(m_context.desktop.questions, u"MakeLvwContents"_s, [&] {
        (m_ui->lvwNote->*refill)([this] { m_model->setRows(readNoteRows(m_context.archive)); });
        if (m_isInFront)
            UpdateStatusBar();
    });
}

void frmNoteList::UpdateStatusBar()
{
    m_context.frame.setStatus(u"Note -  items: "_s + QString::number(m_model->rowCount()));
}

void frmNoteList::enableCommands()
{
    const bool isSelected = m_isInFront && m_ui->lvwNote->selectionModel()->hasSelection();
    m_context.frame.enableCommand(u"miNoteNew"_s, true);
    m_context.frame.enableCommand(u"miNoteModify"_s, isSelected);
    m_context.frame.enableCommand(u"miNoteDelete"_s, isSelected);
    for (const char* color : {"Yellow", "Red", "Green", "Blue", "White"})
        m_context.frame.enableCommand(u"miNoteColor"_s + QLatin1StringView(color), isSelected);
}

void frmNoteList::setInFront(bool inFront)
{
    m_isInFront = inFront;
    enableCommands();
    if (inFront)
        UpdateStatusBar();
}

void frmNoteList::notesWritten(qint32 newNote)
{
    MakeLvwContents();
    if (newNote != 0)
        m_ui->lvwNote->selectKey(keyOf(newNote));
}

void frmNoteList::NewNote()
{
    trapErrors(m_context.desktop.questions, u"NewNote"_s, [&] { m_context.windows.openNew(); });
}

void frmNoteList::ModifyNote()
{
    trapErrors(m_context.desktop.questions, u"ModifyNote"_s, [&] {
        if (const qint32 id = m_ui->lvwNote->selectedId())
            m_context.windows.open(id);
        else
            m_context.desktop.questions.ask(u"Please select the note you want to modifie!"_s,
                                            MessageStyle::Information);
    });
}

void frmNoteList::DeleteNote()
{
    trapErrors(m_context.desktop.questions, u"DeleteNote"_s, [&] {
        const std::vector<qint32> ids = m_ui->lvwNote->selectedIds();
        if (ids.empty() ||
            m_context.desktop.questions.ask(u"Are you sure you want to delete selected notes? "_s,
                                            MessageStyle::YesNoDefaultNo, u"Deleting"_s) != Answer::Yes)
            return;
        QStringList keys;
        for (const qint32 id : ids)
            keys.append(QString::number(id));
        if (!m_context.note.Delete(keys.join(u", "_s))) {
            m_context.note.reportFailure();
            return;
        }
        for (const qint32 id : ids)
            m_context.windows.discard(id);
        fill(&ListView::refillAfterDelete);
    });
}

void frmNoteList::SetColor(const QString& color)
{
    trapErrors(m_context.desktop.questions, u"SetColor"_s, [&] {
        for (const qint32 id : m_ui->lvwNote->selectedIds()) {
            if (!m_context.note.SetColor(id, color)) {
                m_context.note.reportFailure();
                break; // the next ones would fail the same way
            }
            m_context.windows.recolor(id, color);
        }
        MakeLvwContents();
    });
}

NotesView::NotesView(Archive& archive, const Desktop& desktop, FrameServices& frame, QWidget& window,
                     NoteWindows& notes)
    : FrameView(frame, window, u"Note"_s, u"barNote"_s),
      m_note(archive), m_context{archive, desktop, frame, m_note, notes}
{
}

void NotesView::registerCommands()
{
    const auto command = [this](const QString& tool, const char* routine, std::function<void(frmNoteList&)> action) {
        handle(tool.toLatin1().constData(), routine, [this, action = std::move(action)] { action(*m_window); });
    };
    command(u"miNoteNew"_s, "NewNote", &frmNoteList::NewNote);
    command(u"miNoteModify"_s, "ModifyNote", &frmNoteList::ModifyNote);
    command(u"miNoteDelete"_s, "DeleteNote", &frmNoteList::DeleteNote);
    for (const QString& tool : {u"miNoteModify"_s, u"miNoteDelete"_s})
        m_frame.enableCommand(tool, false); // the list enables them with its selection, as the colours
    for (const QString& color : {u"Yellow"_s, u"Red"_s, u"Green"_s, u"Blue"_s, u"White"_s}) {
        const QString tool = u"miNoteColor"_s + color;
        command(tool, "SetColor", [color](frmNoteList& notes) { notes.SetColor(color.toLower()); });
        m_frame.setCommandIcon(tool, noteIcon(color.toLower()));
        m_frame.enableCommand(tool, false);
    }
}

QWidget* NotesView::open()
{
    if (!m_window)
        m_window = new frmNoteList(m_context, &m_frameWindow);
    return m_window;
}

void NotesView::readAgain()
{
    if (m_window)
        m_window->MakeLvwContents();
}

void NotesView::close()
{
    delete std::exchange(m_window, nullptr);
}
