// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Tour.h"

#include "app/Startup.h"
#include "app/TourDesktop.h"
#include "app/frmMain.h"
#include "app/modHome.h"
#include "app/modSnipVale.h"
#include "desktop/Clock.h"
#include "explorer/DragDrop.h"

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeView>
#include <cstdio>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

template <typename Object>
Object& find(QWidget& window, const char* name) // "" for any name
{
    auto* widget = window.findChild<Object*>(QString::fromLatin1(name));
    if (!widget)
        throw std::runtime_error(std::string("there is no ") + name);
    return *widget;
}

void require(bool holds, const char* what)
{
    if (!holds)
        throw std::runtime_error(what);
}

class Tour {
public:
    Tour(const QString& folder, const QString& shipped);
    void run();

private:
    void start();
    void picture(QWidget& window, const QString& name);
    void step(const char* command, std::function<void(QWidget& window)> inWindow);
    void selectCategory(const QString& name);
    void newCategory();
    void newMemo();
    void reopenAndEdit(QWidget& window);
    void findInCode(QWidget& window);
    void newBookmark();
    void search();
    void dragMemo();
    void restart();
    QModelIndex category(const QString& name);

    QDir m_folder;
    QString m_shipped;
    QTemporaryDir m_scratch;
    int m_number = 0;
    std::string m_failure; // of a step inside a modal window: nothing may be thrown through its event loop
    TourQuestions m_questions;
    TourFiles m_files;
    TourShell m_shell;
    TourInstance m_previous;
    SystemClock m_clock;
    Desktop m_desktop{m_questions, m_files, m_shell, m_clock};
    std::unique_ptr<modSnipVale> m_program;
    std::unique_ptr<frmMain> m_frame;
};

Tour::Tour(const QString& folder, const QString& shipped) : m_folder(folder), m_shipped(shipped)
{
    require(QDir().mkpath(folder), "the folder for the pictures cannot be made");
    m_questions.onShown = [this](QWidget& box) { picture(box, u"message"_s); };
}

void Tour::picture(QWidget& window, const QString& name)
{
    settle();
    const QString file = u"%1-%2.png"_s.arg(++m_number, 2, 10, QChar(u'0')).arg(name);
    require(window.grab().save(m_folder.filePath(file)), "a picture cannot be written");
}

void Tour::start()
{
    const HomeFolders folders{m_scratch.filePath(u"home"_s), m_shipped};
    prepareHome(folders);
    m_program = std::make_unique<modSnipVale>(m_questions, m_clock, m_shell);
    m_program->AppPath = folders.home;
    m_frame = Main(*m_program, m_desktop, m_previous);
    require(m_frame != nullptr, "the program did not start");
    settle();
}

void Tour::step(const char* command, std::function<void(QWidget& window)> inWindow)
{
    whenModalShows([this, inWindow = std::move(inWindow)](QWidget& window) {
        try {
            inWindow(window);
        } catch (const std::exception& error) {
            m_failure = error.what();
            window.close();
        }
    });
    m_frame->runCommand(QString::fromLatin1(command));
    settle();
    if (!m_failure.empty())
        throw std::runtime_error(m_failure);
}

QModelIndex Tour::category(const QString& name)
{
    const QAbstractItemModel& model = *find<QTreeView>(*m_frame, "tvTreeView").model();
    const QModelIndexList found =
        model.match(model.index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchRecursive);
    require(!found.isEmpty(), "a category is missing in the tree");
    return found.first();
}

void Tour::selectCategory(const QString& name)
{
    find<QTreeView>(*m_frame, "tvTreeView").setCurrentIndex(category(name));
    settle();
}

void Tour::newCategory()
{
    selectCategory(u"Code"_s);
    step("miCategoryNew", [this](QWidget& window) {
        find<QLineEdit>(window, "txtName").setText(u"Text and SQL"_s);
        picture(window, u"new-category"_s);
        find<QPushButton>(window, "cmdOK").click();
    });
    picture(*m_frame, u"category-in-tree"_s);
}

void Tour::newMemo()
{
    m_files.answers.push_back(m_shipped + u"/tour/SqlText.cpp"_s);
    step("miMemoNew", [this](QWidget& window) {
        find<QLineEdit>(window, "txtMemoName").setText(u"Pieces of a statement"_s);
        find<QLineEdit>(window, "txtMemoDescription").setText(u"Quotes, dates and lists of keys as SQL text"_s);
        find<QLineEdit>(window, "txtMemoLink").setText(u"https://www.sqlite.org/lang.html"_s);
        auto& language = find<QComboBox>(window, "cboMemoType");
        const int cpp = language.findText(u"C / C++"_s);
        require(cpp >= 0, "C / C++ is not offered");
        language.setCurrentIndex(cpp);
        emit language.activated(cpp);
        find<QAction>(find<QWidget>(window, "tbToolBarMemo"), "Open").trigger();
        picture(window, u"new-memo"_s);
        find<QPushButton>(window, "cmdOK").click();
    });
    auto& list = find<QTreeView>(*m_frame, "lvwMemo");
    require(list.model()->rowCount() == 1, "the new memo is not in the list");
    picture(*m_frame, u"memo-in-list"_s);
}

void Tour::reopenAndEdit(QWidget& window)
{
    auto& notes = find<QTextEdit>(window, "rtfMemoNotes");
    notes.setFocus();
    notes.insertPlainText(u"Used by every record. "_s);
    auto& bar = find<QWidget>(window, "tbToolBarNote");
    find<QAction>(bar, "Bold").trigger();
    notes.insertPlainText(u"Double the quotes!"_s);
    picture(window, u"memo-edited"_s);
    findInCode(window);
    find<QToolButton>(window, "imgCodePlus").click();
    picture(window, u"code-fills-the-window"_s);
    find<QToolButton>(window, "imgCodeEqual").click();
    find<QPushButton>(window, "cmdApply").click();
    require(!find<QPushButton>(window, "cmdApply").isEnabled(), "the memo was not saved");
    find<QPushButton>(window, "cmdOK").click();
}

void Tour::findInCode(QWidget& window)
{
    find<QAction>(find<QWidget>(window, "tbToolBarMemo"), "Find").trigger();
    settle();
    auto& dialog = find<QDialog>(window, "frmScintillaFind");
    find<QLineEdit>(dialog, "txtFind").setText(u"quoted"_s);
    find<QPushButton>(dialog, "cmkFind").click();
    picture(dialog, u"find"_s);
    picture(window, u"found"_s);
    dialog.close();
}

void Tour::restart()
{
    m_frame.reset();
    start();
    picture(*m_frame, u"started-again"_s);
    selectCategory(u"Text and SQL"_s);
    auto& list = find<QTreeView>(*m_frame, "lvwMemo");
    list.setFocus();
    list.keyboardSearch(u"piec"_s); // the beginning of its name finds it
    require(list.currentIndex().data() == u"Pieces of a statement"_s, "the memo was not found again");
    picture(*m_frame, u"found-in-list"_s);
    step("miMemoModify", [this](QWidget& window) {
        require(find<QTextEdit>(window, "rtfMemoNotes").toPlainText().startsWith(u"Used by every record."_s),
                "the notes are gone");
        picture(window, u"memo-is-still-there"_s);
        find<QPushButton>(window, "cmdClose").click();
    });
}

void Tour::newBookmark()
{
    selectCategory(u"Bookmarks"_s);
    step("miBookmarkNew", [this](QWidget& window) {
        find<QLineEdit>(window, "txtName").setText(u"SQL as SQLite understands it"_s);
        find<QLineEdit>(window, "txtKeywords").setText(u"sql statement"_s);
        find<QLineEdit>(window, "txtLink").setText(u"https://www.sqlite.org/lang.html"_s);
        find<QPlainTextEdit>(window, "txtDescription").setPlainText(u"What a statement may hold"_s);
        picture(window, u"new-bookmark"_s);
        find<QPushButton>(window, "cmdOK").click();
    });
    require(find<QTreeView>(*m_frame, "lvwBookmark").model()->rowCount() == 1, "the bookmark is not in the list");
    picture(*m_frame, u"bookmark-in-list"_s);
}

void Tour::search()
{
    m_frame->runCommand(u"Search"_s);
    find<QLineEdit>(*m_frame, "txtSearchText").setText(u"statement"_s);
    find<QPushButton>(*m_frame, "cmdSearch").click();
    settle();
    require(find<QTreeView>(*m_frame, "lvwSearch").model()->rowCount() == 2, "memo and bookmark were not found");
    picture(*m_frame, u"search"_s);
    find<QPushButton>(*m_frame, "cmdCloseSearch").click();
}

void Tour::dragMemo()
{
    selectCategory(u"Text and SQL"_s);
    auto& list = find<QTreeView>(*m_frame, "lvwMemo");
    auto& tree = find<QTreeView>(*m_frame, "tvTreeView");
    list.setCurrentIndex(list.model()->index(0, 0));
    dragItem(find<DragDrop>(*m_frame, ""), list, list.model()->index(0, 0), tree,
             tree.visualRect(category(u"Code"_s)).center(), [this] { picture(*m_frame, u"dragging"_s); });
    settle();
    require(list.model()->rowCount() == 0, "the memo was not moved");
    selectCategory(u"Code"_s);
    require(list.model()->rowCount() == 1, "the memo did not arrive");
    picture(*m_frame, u"dragged"_s);
}

void Tour::run()
{
    start();
    picture(*m_frame, u"welcome"_s);
    newCategory();
    newMemo();
    step("miMemoModify", [this](QWidget& window) { reopenAndEdit(window); });
    restart();
    newBookmark();
    search();
    dragMemo();
    m_frame->CompactArchive();
    m_frame.reset();
}

} // namespace

int runTour(const QString& folder, const QString& shipped)
{
    try {
        Tour(folder, shipped).run();
        std::printf("The tour's pictures are in %s\n", qPrintable(QDir(folder).absolutePath()));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The tour stopped: %s\n", error.what());
        return 1;
    }
}
