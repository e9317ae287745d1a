// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/HelpTopics.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr HelpTopic topics[] = {
    {u"frmSnipValeS", u"first-steps.html#window"},
    {u"tvTreeView", u"categories.html#tree"},
    {u"picWelcome", u"first-steps.html#summary"},
    {u"lvwMemo", u"memos.html#list"},
    {u"picBookmark", u"bookmarks.html#list"},
    {u"picToDo", u"to-dos.html#list"},
    {u"picSearch", u"search.html"},
    {u"frmCategory", u"categories.html#new"},
    {u"frmSnipVale", u"memos.html#editor"},
    {u"paneCode", u"memos.html#code"},
    {u"paneNote", u"memos.html#notes"},
    {u"frmScintillaFind", u"memos.html#find"},
    {u"frmPrintPreview", u"memos.html#print"},
    {u"frmBookmark", u"bookmarks.html#editor"},
    {u"frmToDo", u"to-dos.html#editor"},
    {u"frmAlarm", u"reminders.html#popup"},
    {u"frmPasswordS", u"passwords.html#list"},
    {u"frmPassword", u"passwords.html#account"},
    {u"frmPasswordCategory", u"passwords.html#categories"},
    {u"frmPasswordSetting", u"passwords.html#master"},
    {u"frmPasswordChange", u"passwords.html#change"},
    {u"frmPasswordLost", u"passwords.html#lost"},
    {u"frmNoteList", u"notes.html#list"},
    {u"frmNote", u"notes.html#window"},
    {u"frmOptions", u"options.html"},
    {u"lvwLanguage", u"options.html#languages"},
    {u"frmOptionsLanguage", u"options.html#styles"},
    {u"frmOptionsLanguageDetails", u"options.html#style"},
    {u"frmHelp", u"keyboard.html#help"},
    {u"frmAbout", u"trouble.html#report"},
};

QString pageOf(const QString& name)
{
    const auto* topic = std::find_if(std::begin(topics), std::end(topics),
                                     [&](const HelpTopic& row) { return name == QStringView(row.name); });
    return topic == std::end(topics) ? QString() : QStringView(topic->page).toString();
}

QString pageOfViewInFront(const QWidget& frame)
{
    for (const QString& view : {u"frmPasswordS"_s, u"frmNoteList"_s, u"frmSnipValeS"_s}) {
        const auto* widget = frame.findChild<QWidget*>(view);
        if (widget && widget->isVisibleTo(&frame))
            return pageOf(view);
    }
    return {};
}

} // namespace

std::span<const HelpTopic> helpTopics()
{
    return topics;
}

QString helpPageFor(const QWidget* focus)
{
    for (const QWidget* widget = focus; widget; widget = widget->parentWidget()) {
        if (widget->objectName() == "frmMain"_L1)
            return pageOfViewInFront(*widget);
        // The list of styles has the name that the list of languages has elsewhere.
        const bool isList = widget->objectName() == "lvwLanguage"_L1;
        if (isList && widget->window()->objectName() != "frmOptions"_L1)
            continue;
        if (QString page = pageOf(widget->objectName()); !page.isEmpty())
            return page;
    }
    return {};
}

HelpKey::HelpKey(std::function<void()> showHelp, QObject* parent) : QObject(parent), m_showHelp(std::move(showHelp))
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool HelpKey::eventFilter(QObject*, QEvent* event)
{
    if (event->type() != QEvent::KeyPress || QApplication::activePopupWidget())
        return false;
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool isHelp =
        key->matches(QKeySequence::HelpContents) || (key->key() == Qt::Key_Help && key->modifiers() == Qt::NoModifier);
    if (!isHelp)
        return false;
    if (!key->isAutoRepeat())
        m_showHelp();
    return true;
}
