// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/PasswordGenerator.h"

#include <QRandomGenerator>
#include <algorithm>
#include <iterator>

namespace {

constexpr QStringView kinds[] = {u"abcdefghijkmnopqrstuvwxyz", u"ABCDEFGHJKLMNPQRSTUVWXYZ", u"23456789",
                                 u"!#%+-.:=?@_"};

bool hasEveryKind(const QString& text)
{
    return std::all_of(std::begin(kinds), std::end(kinds), [&](QStringView kind) {
        return std::any_of(text.begin(), text.end(), [&](QChar c) { return kind.contains(c); });
    });
}

} // namespace

QString generatePassword(qsizetype length)
{
    QString letters;
    for (const QStringView kind : kinds)
        letters += kind;
    QString password(std::max<qsizetype>(length, std::size(kinds)), u' ');
    // Drawn anew as a whole: a place kept free for a kind would make the others easier to guess.
    while (!hasEveryKind(password))
        for (QChar& c : password)
            c = letters[QRandomGenerator::system()->bounded(letters.size())];
    return password;
}
