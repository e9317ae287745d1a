// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// The tour's accounts and sticky notes.
#include "ui/tour/TourWalk.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTreeView>

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
