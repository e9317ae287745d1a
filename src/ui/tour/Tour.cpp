// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tour/Tour.h"

#include "app/ui/Program.h"
#include "explorer/ui/DragDrop.h"
#include "ui/widgets/OptionalDate.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTextEdit>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace {

struct Account {
    const char16_t* title;
    const char16_t* description;
    const char16_t* user;
    const char16_t* password;
    const char16_t* link;
};
constexpr Account accounts[] = {
    {u"Build server", u"The nightly builds", u"builder", u"not a real one", u"https://build.example/"},
    {u"Mailing list", u"Answers and announcements", u"ada@code.example", u"neither is this", u"https://lists.example/"},
};

QList<QWidget*> openNotes()
{
    QList<QWidget*> notes;
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == "frmNote"_L1 && window->isVisible())
            notes.append(window);
    return notes;
}

} // namespace

void require(bool holds, const char* what)
{
    if (!holds)
        throw std::runtime_error(what);
}

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
    m_program->ShippedPath = folders.shipped;
    m_frame = Main(*m_program, m_desktop, m_previous);
    require(m_frame != nullptr, "the program did not start");
    settle();
}

void Tour::inner(const std::function<void()>& open, std::function<void(QWidget& window)> inWindow)
{
    whenModalShows([this, inWindow = std::move(inWindow)](QWidget& window) {
        try {
            inWindow(window);
        } catch (const std::exception& error) {
            m_failure = error.what();
            window.close();
        }
    });
    open();
}

void Tour::step(const char* command, std::function<void(QWidget& window)> inWindow)
{
    inner([&] { m_frame->runCommand(QString::fromLatin1(command)); }, std::move(inWindow));
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

void Tour::newToDo()
{
    selectCategory(u"ToDo"_s);
    step("miToDoNew", [this](QWidget& window) {
        const QDateTime soon = m_clock.now().addDays(7);
        find<QLineEdit>(window, "txtName").setText(u"Try the backup on another machine"_s);
        find<OptionalDate>(window, "dtpDueDate").setValue(soon.date());
        find<QCheckBox>(window, "chkAlarm").setChecked(true);
        find<QDateEdit>(window, "dtpAlarmDay").setDate(m_clock.now().date().addDays(-1)); // due at the next check
        find<QComboBox>(window, "cboPriority").setCurrentIndex(4);
        find<QComboBox>(window, "cboStatus").setCurrentIndex(2);
        find<QLineEdit>(window, "txtPercentComplete").setText(u"40"_s);
        auto& description = find<QTextEdit>(window, "rtfDescription");
        description.setFocus();
        description.insertPlainText(u"Copy the archive there, open it, and compare the numbers of the summary."_s);
        picture(window, u"new-to-do"_s);
        find<QPushButton>(window, "cmdOK").click();
    });
    require(find<QTreeView>(*m_frame, "lvwToDo").model()->rowCount() == 1, "the to-do is not in the list");
    picture(*m_frame, u"to-do-in-list"_s);
}

void Tour::reminder()
{
    QMetaObject::invokeMethod(m_frame->findChild<QTimer*>(u"TimerTask"_s), "timeout");
    settle();
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto popup = std::find_if(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->objectName() == "frmAlarm"_L1 && window->isVisible();
    });
    require(popup != windows.end(), "the reminder did not pop up");
    picture(**popup, u"reminder"_s);
    find<QPushButton>(**popup, "cmdOK").click();
    settle();
    picture(*m_frame, u"reminder-answered"_s);
}

void Tour::passwords()
{
    step("Password", [this](QWidget& window) {
        for (const char* box : {"txtPassword1", "txtPassword2"})
            find<QLineEdit>(window, box).setText(u"correct horse"_s);
        picture(window, u"master-password"_s);
        find<QPushButton>(window, "cmdOK").click();
    });
    for (const Account& account : accounts)
        step("miPasswordNew", [&](QWidget& window) {
            find<QLineEdit>(window, "txtTitle").setText(QStringView(account.title).toString());
            find<QPlainTextEdit>(window, "txtDescription").setPlainText(QStringView(account.description).toString());
            find<QLineEdit>(window, "txtUserName").setText(QStringView(account.user).toString());
            find<QLineEdit>(window, "txtPassword").setText(QStringView(account.password).toString());
            find<QLineEdit>(window, "txtURL").setText(QStringView(account.link).toString());
            if (&account == accounts)
                picture(window, u"new-account"_s);
            find<QPushButton>(window, "cmdOK").click();
        });
    require(find<QTreeView>(*m_frame, "lvwPassword").model()->rowCount() == 2, "the accounts are not in the list");
    picture(*m_frame, u"passwords"_s);
    m_frame->runCommand(u"miPasswordLock"_s);
    require(!m_frame->findChild<QTreeView*>(u"lvwPassword"_s)->isVisible(), "the locked list is still there");
}

void Tour::notes()
{
    m_frame->runCommand(u"Note"_s);
    const QString texts[] = {u"Ask Ada about the lexer."_s, u"Release on Friday:\n- tag\n- build\n- announce"_s};
    for (const QString& text : texts) {
        m_frame->runCommand(u"miNoteNew"_s);
        const QList<QWidget*> open = openNotes();
        require(open.size() == 1, "the note did not open");
        find<QPlainTextEdit>(*open.first(), "txtContent").setPlainText(text);
        if (&text == texts)
            picture(*open.first(), u"sticky-note"_s);
        open.first()->close();
        settle();
    }
    auto& list = find<QAbstractItemView>(*m_frame, "lvwNote");
    require(list.model()->rowCount() == 2, "the notes are not in the list");
    list.setCurrentIndex(list.model()->index(1, 0));
    m_frame->runCommand(u"miNoteColorGreen"_s);
    picture(*m_frame, u"notes"_s);
}

void Tour::options()
{
    step("miToolsOptions", [this](QWidget& window) {
        picture(window, u"options"_s);
        find<QTabWidget>(window, "TabStrip1").setCurrentIndex(1);
        auto& list = find<QTreeView>(window, "lvwLanguage");
        const QModelIndexList found = list.model()->match(list.model()->index(0, 0), Qt::DisplayRole, u"C / C++"_s);
        require(!found.isEmpty(), "C / C++ is not in the options");
        list.setCurrentIndex(found.first());
        picture(window, u"options-languages"_s);
        inner([&] { find<QPushButton>(window, "cmdLanguage").click(); },
              [this](QWidget& styles) { languageStyles(styles); });
        find<QTabWidget>(window, "TabStrip1").setCurrentIndex(0);
        find<QRadioButton>(window, "optStileNormale").setChecked(true);
        find<QPushButton>(window, "cmdOK").click();
    });
    picture(*m_frame, u"other-look"_s);
}

void Tour::languageStyles(QWidget& window)
{
    auto& list = find<QTreeView>(window, "lvwLanguage");
    require(list.model()->rowCount() > 5, "the language has no styles");
    list.setCurrentIndex(list.model()->index(5, 0));
    picture(window, u"language-styles"_s);
    inner([&] { m_frame->runCommand(u"miOptionsLanguageDetailsOpen"_s); },
          [this](QWidget& details) {
              find<QCheckBox>(details, "chkItalic").click();
              picture(details, u"style-details"_s);
              find<QPushButton>(details, "cmdOK").click();
          });
    find<QPushButton>(window, "cmdOK").click();
}

void Tour::printPreview()
{
    selectCategory(u"Code"_s);
    auto& list = find<QTreeView>(*m_frame, "lvwMemo");
    list.setCurrentIndex(list.model()->index(0, 0));
    step("miMemoPrintPreview", [this](QWidget& window) {
        picture(window, u"print-preview"_s);
        window.close();
    });
}

void Tour::help()
{
    step("miHelpAbout", [this](QWidget& window) {
        picture(window, u"about"_s);
        window.close();
    });
    m_frame->runCommand(u"miHelpManual"_s);
    settle();
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto manual = std::find_if(windows.begin(), windows.end(),
                                     [](const QWidget* window) { return window->objectName() == "frmHelp"_L1; });
    require(manual != windows.end() && (*manual)->isVisible(), "the manual did not open");
    picture(**manual, u"help"_s);
    (*manual)->close();
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
    newToDo();
    reminder();
    printPreview();
    passwords();
    notes();
    options();
    help();
    m_frame->CompactArchive();
    m_frame.reset();
}

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
