// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <vector>

// A chapter of the manual (level 1), or one of the sections that follow it (level 2).
struct HelpSection {
    QString page; // "memos.html", "memos.html#find"
    QString title;
    QString text; // what is read there, as one line of plain text
    int level = 1;
};

// The manual in a folder: HTML files, one a chapter. "index.html" lists them in reading order as <li><a href="...">. A
// chapter has its title as <h1>, each section begins with <h2><a name="..."></a>title</h2>.
class HelpBook {
public:
    explicit HelpBook(const QString& folder); // throws std::runtime_error when the manual cannot be read

    const QString& folder() const { return m_folder; }
    const std::vector<HelpSection>& sections() const { return m_sections; }
    // The sections that hold all of these words, or their beginnings, in any case and order.
    std::vector<HelpSection> find(const QString& words) const;

private:
    void readChapter(const QString& page);

    QString m_folder;
    std::vector<HelpSection> m_sections;
};

// A line around the first of the words: what a reader sees of a hit.
QString helpExcerpt(const HelpSection& section, const QString& words);
