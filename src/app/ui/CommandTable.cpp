// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/CommandTable.h"

namespace {

constexpr CommandRow commands[] = {
    {"Memo", u"&Memos", "view-list-tree", "Ctrl+1", true},
    {"Password", u"&Passwords", "dialog-password", "Ctrl+2", true},
    {"Note", u"Sticky &notes", "note", "Ctrl+3", true},
    {"Search", u"&Search", "edit-find", "Ctrl+F", true},
    {"miFileOpen", u"&Open Archive...", "document-open", "Ctrl+O"},
    {"miFileSaveAs", u"&Save a Copy As...", "document-save-as", "Ctrl+Shift+S"},
    {"miFileCompactDB", u"&Compact and Repair Archive...", "tools-wizard", ""},
    {"miFileExit", u"E&xit", "application-exit", "Ctrl+Q"},
    {"miViewTools", u"Si&de Bar", "", "", true},
    {"miViewToolBar", u"&Tool Bar", "", "", true},
    {"miViewStatusBar", u"Status &Bar", "", "", true},
    {"miToolsOptions", u"&Options...", "configure", "Ctrl+,"},
    {"miOptionsLanguage", u"&Language Styles...", "preferences-desktop-font", ""},
    {"miOptionsLanguageDetailsOpen", u"&Edit Style...", "document-edit", ""},
    {"miHelpWeb", u"&Web Page", "internet-services", ""},
    {"miHelpManual", u"&Manual", "help-contents", "F1"},
    {"miHelpAbout", u"&About SnipVale", "help-about", ""},
    {"miHelp", u"&Help", "help-contents", ""},
    {"miCategoryNew", u"&New Category...", "folder-new", "Ctrl+Shift+N"},
    {"miCategoryModify", u"&Modify Category...", "document-edit", ""},
    {"miCategoryDelete", u"&Delete Category...", "edit-delete", ""},
    {"miCategoryExpandAll", u"&Expand All", "view-list-tree", ""},
    {"miCategoryCollapseAll", u"&Collapse All", "view-list-details", ""},
    {"miMemoNew", u"&New Memo...", "document-new", "Ctrl+N"},
    {"miMemoModify", u"&Open Memo...", "document-edit", ""},
    {"miMemoDelete", u"&Delete Memo...", "edit-delete", ""},
    {"miMemoPrint", u"&Print Memo...", "document-print", "Ctrl+P"},
    {"miMemoPrintPreview", u"Print Pre&view...", "document-print-preview", "Ctrl+Shift+P"},
    {"miSearchOpenElement", u"&Open Element...", "document-edit", ""},
    {"miSearchDeleteMemo", u"&Delete...", "edit-delete", ""},
    {"miSearchSelectElementInTreeView", u"&Select in Tree", "view-list-tree", ""},
    {"miBookmarkNew", u"&New Bookmark...", "bookmark-new", "Ctrl+B"},
    {"miBookmarkModify", u"&Open Bookmark...", "document-edit", ""},
    {"miBookmarkVisit", u"&Visit", "internet-services", ""},
    {"miBookmarkDelete", u"&Delete Bookmark...", "edit-delete", ""},
    {"miToDoNew", u"&New ToDo...", "view-task-add", "Ctrl+T"},
    {"miToDoModify", u"&Open ToDo...", "document-edit", ""},
    {"miToDoDelete", u"&Delete ToDo...", "edit-delete", ""},
    {"miToDoIncreasePriority", u"&Increase Priority", "go-up", ""},
    {"miToDoDecreasePriority", u"De&crease Priority", "go-down", ""},
    {"miPasswordNew", u"&New Account...", "list-add", ""},
    {"miPasswordModify", u"&Open Account...", "document-edit", ""},
    {"miPasswordDelete", u"&Delete Account...", "edit-delete", ""},
    {"miPasswordCopyPwd", u"&Copy Password", "password-copy", "Ctrl+C"},
    {"miPasswordCopyUserName", u"Copy &User Name", "username-copy", "Ctrl+Shift+C"},
    {"miPasswordHideShow", u"&Show Passwords", "view-visible", "", true},
    {"miPasswordVisitURL", u"&Visit Link", "internet-services", ""},
    {"miPasswordExport", u"&Export...", "document-export", ""},
    {"miPasswordCategory", u"Ca&tegories...", "folder", ""},
    {"miPasswordChange", u"Change &Master Password...", "dialog-password", ""},
    {"miPasswordLock", u"Loc&k", "object-locked", "Ctrl+Shift+L"},
    {"miPasswordLost", u"Master Password &Lost...", "dialog-warning", ""},
    {"miNoteNew", u"&New Note", "note", "Ctrl+Shift+M"},
    {"miNoteModify", u"&Open Note", "document-edit", ""},
    {"miNoteDelete", u"&Delete Note...", "edit-delete", ""},
    {"miNoteColorYellow", u"&Yellow", "", ""},
    {"miNoteColorRed", u"&Red", "", ""},
    {"miNoteColorGreen", u"&Green", "", ""},
    {"miNoteColorBlue", u"&Blue", "", ""},
    {"miNoteColorWhite", u"&White", "", ""},
};

constexpr MenuRow menus[] = {
    {"mnuFile", u"&File", "miFileOpen miFileSaveAs - miFileCompactDB - miFileExit"},
    {"mnuView", u"&View", "Memo Password Note Search - miViewTools miViewToolBar miViewStatusBar"},
    {"mnuCategory", u"&Category",
     "miCategoryNew miCategoryModify miCategoryDelete - miCategoryExpandAll miCategoryCollapseAll"},
    {"mnuMemo", u"&Memo", "miMemoNew miMemoModify miMemoDelete - miMemoPrint miMemoPrintPreview"},
    {"mnuBookmark", u"&Bookmark", "miBookmarkNew miBookmarkModify miBookmarkVisit miBookmarkDelete"},
    {"mnuToDo", u"To&Do", "miToDoNew miToDoModify miToDoDelete - miToDoIncreasePriority miToDoDecreasePriority"},
    {"mnuPassword", u"&Password",
     "miPasswordNew miPasswordModify miPasswordDelete - miPasswordCopyPwd miPasswordCopyUserName miPasswordVisitURL",
     false},
    {"mnuVault", u"&Password",
     "Password - miPasswordNew miPasswordModify miPasswordDelete - miPasswordCopyUserName miPasswordCopyPwd "
     "miPasswordHideShow miPasswordVisitURL - miPasswordCategory miPasswordExport - miPasswordChange miPasswordLost "
     "miPasswordLock"},
    {"mnuNoteColor", u"&Colour", "miNoteColorYellow miNoteColorRed miNoteColorGreen miNoteColorBlue miNoteColorWhite",
     false},
    {"mnuNote", u"&Note", "miNoteNew miNoteModify miNoteDelete - mnuNoteColor"},
    {"mnuSearch", u"&Search", "miSearchOpenElement miSearchDeleteMemo - miSearchSelectElementInTreeView", false},
    {"mnuOptions", u"&Options", "miOptionsLanguage", false},
    {"mnuOptionsLanguage", u"&Language", "miOptionsLanguageDetailsOpen", false},
    {"mnuTools", u"&Tools", "miToolsOptions"},
    {"mnuHelp", u"&Help", "miHelpManual miHelpWeb - miHelpAbout"},
};

constexpr BarRow bars[] = {
    {"barOutlook", u"Side bar", "Memo Password Note Search"},
    {"barMemo", u"Memos, bookmarks and to-dos",
     "miCategoryNew - miMemoNew miMemoDelete - miBookmarkNew miBookmarkDelete - miToDoNew miToDoDelete - miHelp"},
    {"barPassword", u"Passwords",
     "miPasswordNew miPasswordModify miPasswordDelete - miPasswordCopyUserName miPasswordCopyPwd miPasswordHideShow "
     "miPasswordVisitURL - miPasswordCategory - miPasswordLock"},
    {"barNote", u"Sticky notes", "miNoteNew miNoteModify miNoteDelete"},
};

constexpr NeedRow needs[] = {
    {"miCategoryModify miCategoryDelete", u"Click on a category in the tree first"},
    {"miMemoNew", u"Click on a category of memos in the tree first"},
    {"miMemoModify miMemoDelete miMemoPrint miMemoPrintPreview", u"Select a memo first"},
    {"miBookmarkNew", u"Click on a category of bookmarks in the tree first"},
    {"miBookmarkModify miBookmarkVisit miBookmarkDelete", u"Select a bookmark first"},
    {"miToDoNew", u"Click on a category of to-dos in the tree first"},
    {"miToDoModify miToDoDelete miToDoIncreasePriority miToDoDecreasePriority", u"Select a to-do first"},
    {"miSearchOpenElement miSearchDeleteMemo miSearchSelectElementInTreeView", u"Select a hit first"},
    {"miPasswordNew miPasswordHideShow miPasswordCategory miPasswordExport miPasswordLock",
     u"Open the passwords first"},
    {"miPasswordModify miPasswordDelete miPasswordCopyPwd miPasswordCopyUserName miPasswordVisitURL",
     u"Open the passwords and select an account first"},
    {"miNoteModify miNoteDelete miNoteColorYellow miNoteColorRed miNoteColorGreen miNoteColorBlue miNoteColorWhite",
     u"Open the sticky notes and select one first"},
    {"miOptionsLanguage miOptionsLanguageDetailsOpen", u"Select a language in the options first"},
};

} // namespace

std::span<const CommandRow> commandTable()
{
    return commands;
}

std::span<const MenuRow> menuTable()
{
    return menus;
}

std::span<const BarRow> barTable()
{
    return bars;
}

std::span<const NeedRow> needTable()
{
    return needs;
}
