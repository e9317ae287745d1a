// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "explorer/Overview.h"

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

Summary readSummary(Archive& archive)
{
    ArchiveUnit unit(archive);
    const auto count = [&unit](const QString& key, const QString& name, const QString& table,
                               const QString& condition = {}) {
        const QString total = u"total"_s + name;
        return unit.Open(u"SELECT COUNT(%1) AS %2 From %3 %4"_s.arg(key, total, table, condition)).integer(total);
    };
    Summary summary;
    for (const ElementKind kind : elementKinds) {
        const ElementWords& words = wordsOf(kind);
        const QString ofKind = u" WHERE tab_category.type = "_s + QString::number(int(kind)) + u' ';
        summary.kinds[size_t(kind)] = {count(words.keyColumn, words.name, words.table),
                                       count(u"categoryID"_s, u"Cat"_s, u"tab_category"_s, ofKind)};
    }
    summary.passwords = count(u"passwordID"_s, u"Password"_s, u"tab_password"_s);
    summary.notes = count(u"noteID"_s, u"Note"_s, u"tab_note"_s);
    return summary;
}

std::vector<DueGroup> readDueGroups(Archive& archive)
{
    ArchiveUnit unit(archive);
    std::vector<DueGroup> groups;
    for (const GroupRule& rule : rules)
        groups.push_back(readGroup(unit, rule, archive.clock().now()));
    return groups;
}
