// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/DueDates.h"

#include "archive/Archive.h"
#include "archive/SqlText.h"
#include "desktop/Clock.h"

using namespace Qt::StringLiterals;

namespace {

struct GroupRule {
    const char16_t* title;
    const char16_t* image;
    int fromDays;
    int toDays;
    const char16_t* order;
};

constexpr GroupRule rules[] = {
    {u"Out of date", u"urgent", 0, 0, u" ORDER BY tab_todo.dueDate DESC "},
    {u"Today", u"high", 0, 0, u""},
    {u"Next 6 days", u"normal", 1, 7, u" ORDER BY tab_todo.dueDate ASC "},
    {u"Next 3 Weeks", u"low", 7, 28, u" ORDER BY tab_todo.dueDate ASC "},
};

QString statement(const GroupRule& rule, const QDateTime& now)
{
    const auto moment = [&](int days) { return FormatDateSQL(now.addDays(days)); };
    const QString when = &rule == rules ? u" WHERE tab_todo.dueDate  <  #"_s + moment(0) + u"# "_s
                                        : u" WHERE tab_todo.dueDate  BETWEEN #"_s + moment(rule.fromDays) +
            u"#  AND  #"_s + moment(rule.toDays) + u"# "_s;
    return u" SELECT * FROM tab_todo "_s + when + u" AND tab_todo.done = 0 "_s + QStringView(rule.order).toString();
}

DueGroup readGroup(ArchiveUnit& unit, const GroupRule& rule, const QDateTime& now)
{
    DueGroup group{QStringView(rule.title).toString(), QStringView(rule.image).toString(), {}};
    jet::Recordset set = unit.Open(statement(rule, now));
    const int id = set.index(u"todoID"_s);
    const int category = set.index(u"categoryID"_s);
    const int name = set.index(u"name"_s);
    const int due = set.index(u"dueDate"_s);
    for (; !set.eof(); set.moveNext())
        group.toDos.push_back(
            {qint32(set.integer(id)), qint32(set.integer(category)), set.text(name), set.dateTime(due)});
    return group;
}

} // namespace

void readDueGroups(Archive& archive, std::vector<DueGroup>& groups)
{
    ArchiveUnit unit(archive);
    for (const GroupRule& rule : rules)
        groups.push_back(readGroup(unit, rule, archive.clock().now()));
}
