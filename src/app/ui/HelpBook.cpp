// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ui/HelpBook.h"

#include <QFile>
#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <algorithm>
#include <iterator>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

QString readText(const QString& path)
{
    QFile file(path);
    if (!file.open(QFile::ReadOnly))
        throw std::runtime_error(u"Cannot read %1: %2"_s.arg(path, file.errorString()).toStdString());
    return QString::fromUtf8(file.readAll());
}

QString plainText(const QString& html)
{
    static const QRegularExpression picture(u"<img[^>]*>"_s);
    QString text = html;
    return QTextDocumentFragment::fromHtml(text.remove(picture)).toPlainText().simplified();
}

QStringList wordsOf(const QString& text)
{
    return text.split(QRegularExpression(u"\\s+"_s), Qt::SkipEmptyParts);
}

} // namespace

HelpBook::HelpBook(const QString& folder) : m_folder(folder)
{
    static const QRegularExpression link(u"<li><a href=\"([^\"#]+)\">"_s);
    const QString index = readText(m_folder + u"/index.html"_s);
    for (auto match = link.globalMatch(index); match.hasNext();)
        readChapter(match.next().captured(1));
    if (m_sections.empty())
        throw std::runtime_error(u"%1/index.html lists no chapter."_s.arg(m_folder).toStdString());
}

void HelpBook::readChapter(const QString& page)
{
    static const QRegularExpression heading(u"<h1>(.*?)</h1>|<h2><a name=\"([^\"]+)\"></a>(.*?)</h2>"_s);
    const QString html = readText(m_folder + u'/' + page);
    auto match = heading.globalMatch(html);
    while (match.hasNext()) {
        const QRegularExpressionMatch found = match.next();
        const QString anchor = found.captured(2);
        const qsizetype end = match.hasNext() ? match.peekNext().capturedStart() : html.size();
        HelpSection section;
        section.level = anchor.isEmpty() ? 1 : 2;
        section.page = anchor.isEmpty() ? page : page + u'#' + anchor;
        section.title = plainText(found.captured(section.level == 1 ? 1 : 3));
        section.text = plainText(html.sliced(found.capturedEnd(), end - found.capturedEnd()));
        m_sections.push_back(std::move(section));
    }
}

std::vector<HelpSection> HelpBook::find(const QString& words) const
{
    const QStringList wanted = wordsOf(words);
    std::vector<HelpSection> hits;
    std::copy_if(m_sections.begin(), m_sections.end(), std::back_inserter(hits), [&](const HelpSection& section) {
        const QString all = section.title + u' ' + section.text;
        return std::all_of(wanted.begin(), wanted.end(),
                           [&](const QString& word) { return all.contains(word, Qt::CaseInsensitive); });
    });
    // What has the words in its title is what is looked for most likely.
    std::stable_partition(hits.begin(), hits.end(), [&](const HelpSection& section) {
        return std::any_of(wanted.begin(), wanted.end(),
                           [&](const QString& word) { return section.title.contains(word, Qt::CaseInsensitive); });
    });
    return hits;
}

QString helpExcerpt(const HelpSection& section, const QString& words)
{
    constexpr qsizetype around = 60; // characters before and after
    qsizetype at = -1;
    for (const QString& word : wordsOf(words))
        if (at < 0)
            at = section.text.indexOf(word, 0, Qt::CaseInsensitive);
    const qsizetype from = std::max<qsizetype>(at - around, 0);
    QString excerpt = section.text.mid(from, 2 * around);
    if (from > 0)
        excerpt.prepend(u'\u2026');
    if (from + 2 * around < section.text.size())
        excerpt.append(u'\u2026');
    return excerpt;
}
