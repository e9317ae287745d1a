// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/languages/StyleRows.h"

#include "archive/Archive.h"
#include "archive/SqlText.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 white = 0xFFFFFF;

std::optional<qint64> numberOrNull(const jet::Recordset& rows, const QString& column)
{
    return rows.isNull(column) ? std::nullopt : std::optional(rows.integer(column));
}

StyleRow styleOf(const jet::Recordset& rows)
{
    StyleRow style;
    style.id = static_cast<qint32>(rows.integer(u"styleID"_s));
    style.number = static_cast<qint32>(rows.integer(u"styleNumber"_s));
    style.description = rows.text(u"styleDescription"_s);
    style.isEnabled = rows.boolean(u"enable"_s);
    style.fontName = rows.text(u"fontName"_s);
    style.fontSize = rows.text(u"fontSize"_s);
    style.foreColor = numberOrNull(rows, u"foreColor"_s);
    style.backColor = numberOrNull(rows, u"backColor"_s);
    style.isBold = rows.boolean(u"bold"_s);
    style.isItalic = rows.boolean(u"italic"_s);
    style.isUnderlined = rows.boolean(u"underline"_s);
    style.isInvisible = rows.boolean(u"invisible"_s);
    style.letterCase = rows.integer(u"case"_s);
    return style;
}

QString flag(bool on)
{
    return on ? u"'1'"_s : u"'0'"_s;
}

QString textOrNull(const QString& text)
{
    return text.isEmpty() ? u"null"_s : u'\'' + quoted(text) + u'\'';
}

} // namespace

std::vector<LanguageRow> readEnabledLanguages(Archive& archive)
{
    ArchiveUnit unit(archive);
    std::vector<LanguageRow> languages;
    jet::Recordset rows =
        unit.Open(u" SELECT * FROM tab_memoType  WHERE tab_memoType.enabled = true  ORDER BY  name "_s);
    for (; !rows.eof(); rows.moveNext())
        languages.push_back({static_cast<qint32>(rows.integer(u"memoTypeID"_s)), rows.text(u"name"_s),
                             rows.text(u"description"_s), rows.text(u"lexerCode"_s), rows.boolean(u"visible"_s)});
    return languages;
}

void saveVisibility(Archive& archive, const std::vector<LanguageRow>& languages)
{
    if (languages.empty())
        return; // an archive that could not be read is not needed to save nothing
    ArchiveUnit unit(archive);
    jet::Connection::Transaction all(unit.connection()); // alone, each would wait for the disk
    for (const LanguageRow& language : languages)
        unit.Execute(u" UPDATE tab_memoType SET  visible  = %1  WHERE memoTypeID = %2 "_s.arg(flag(language.isVisible))
                         .arg(language.id));
    all.commit();
}

jet::Recordset openStyles(ArchiveUnit& unit, qint32 memoTypeID)
{
    return unit.Open(
        u"SELECT tab_memoType.memoTypeID, tab_memoType.name, tab_style.*  FROM tab_memoType INNER JOIN "
        "tab_style ON tab_memoType.lexerCode = tab_style.lexerCode  WHERE tab_memoType.memoTypeID = %1 "_s.arg(
            memoTypeID));
}

std::vector<StyleRow> readStyles(Archive& archive, qint32 memoTypeID)
{
    ArchiveUnit unit(archive);
    std::vector<StyleRow> styles;
    for (jet::Recordset rows = openStyles(unit, memoTypeID); !rows.eof(); rows.moveNext())
        styles.push_back(styleOf(rows));
    std::stable_sort(styles.begin(), styles.end(),
                     [](const StyleRow& a, const StyleRow& b) { return a.number < b.number; });
    return styles;
}

std::optional<StyleRow> readStyle(Archive& archive, qint32 styleID)
{
    ArchiveUnit unit(archive);
    const jet::Recordset rows =
        unit.Open(u"SELECT * FROM tab_style WHERE tab_style.styleID = "_s + QString::number(styleID));
    return rows.eof() ? std::nullopt : std::optional(styleOf(rows));
}

bool updateStyle(Archive& archive, const StyleRow& style)
{
    const qint64 letterCase = style.letterCase == 1 || style.letterCase == 2 ? style.letterCase : 0;
    ArchiveUnit unit(archive);
    return unit.Execute(UpdateText(u"tab_style"_s)
                            .set(u"tab_style.foreColor"_s, style.foreColor.value_or(white))
                            .set(u"tab_style.backColor"_s, style.backColor.value_or(white))
                            .put(u"tab_style.bold"_s, flag(style.isBold))
                            .put(u"tab_style.italic"_s, flag(style.isItalic))
                            .put(u"tab_style.underline"_s, flag(style.isUnderlined))
                            .put(u"tab_style.invisible"_s, flag(style.isInvisible))
                            .set(u"tab_style.case"_s, QString::number(letterCase))
                            .put(u"tab_style.fontName"_s, textOrNull(style.fontName))
                            .put(u"tab_style.fontSize"_s, textOrNull(style.fontSize))
                            .put(u"tab_style.enable"_s, flag(style.isEnabled))
                            .where(u"tab_style.styleID"_s, style.id)) > 0;
}
