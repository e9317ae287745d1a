// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/tour/Tour.h"

#include "explorer/ui/DragDrop.h"
#include "ui/tour/TourWalk.h"

#include <QAction>
#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeView>
#include <cstdio>

using namespace Qt::StringLiterals;

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
