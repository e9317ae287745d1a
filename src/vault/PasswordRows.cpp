// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/PasswordRows.h"

#include "archive/Archive.h"
#include "desktop/SecretMemory.h"
#include "jet/Files.h"
#include "vault/modPassword.h"

#include <QFileInfo>
#include <QTemporaryFile>
#include <stdexcept>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QString statement(qint32 categoryID)
{
    if (categoryID == 0)
        return u"SELECT * FROM tab_password "_s;
    return u"SELECT tab_password.*  FROM tab_password INNER JOIN tab_passwordCategory ON tab_password.passwordCategoryID = tab_passwordCategory.passwordCategoryID   WHERE ( tab_password.passwordCategoryID = %1 )"_s
        .arg(categoryID);
}

// A buffer that grows by itself leaves copies of what it held.
void appendSecret(QByteArray& lines, QByteArrayView more)
{
    if (lines.size() + more.size() > lines.capacity()) {
        QByteArray larger;
        larger.reserve(2 * (lines.size() + more.size()));
        larger.append(lines);
        wipe(lines);
        lines.swap(larger);
    }
    lines.append(more);
}

QByteArray exportLines(Archive& archive, modPassword& vault, const QString& ids)
{
    ArchiveUnit unit(archive);
    jet::Recordset set = unit.Open(u" SELECT * FROM tab_password WHERE passwordID IN ("_s + ids + u")"_s);
    const int columns[] = {set.index(u"userName"_s), set.index(u"password"_s)};
    QByteArray lines;
    for (; !set.eof(); set.moveNext()) {
        for (const int column : columns) {
            QString text = set.isNull(column) ? u"------"_s : vault.DecryptEntry(set.text(column));
            QByteArray bytes = text.toUtf8();
            appendSecret(lines, bytes);
            appendSecret(lines, "|");
            wipe(text);
            wipe(bytes);
        }
        appendSecret(lines, "\r\n");
    }
    return lines;
}

// Past the toolkit's buffer, which nobody could wipe.
bool writeAll(int file, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const ssize_t written = ::write(file, bytes.data(), size_t(bytes.size()));
        if (written <= 0)
            return false;
        bytes = bytes.sliced(written);
    }
    return true;
}

// Beside the file first, then in its place: so it is whole, and no other user could ever open it.
void writeForOwnerOnly(const QString& path, const QByteArray& bytes)
{
    const QString target = jet::realPath(path);
    const QFileInfo there(target);
    if (there.exists() && !there.isFile()) // a folder or a device
        throw std::runtime_error("This is not a file.");
    QTemporaryFile file(target + u".XXXXXX"_s); // made for its owner only, and removed when this fails
    if (!file.open() || !writeAll(file.handle(), bytes) || ::fsync(file.handle()) != 0)
        throw std::runtime_error("The file could not be written.");
    const QString name = file.fileName();
    file.close();
    jet::replaceFile(name, target);
    file.setAutoRemove(false);
    jet::syncFolderOf(target);
}

} // namespace

std::vector<PasswordRow> readPasswordRows(Archive& archive, modPassword& vault, qint32 categoryID)
{
    ArchiveUnit unit(archive);
    jet::Recordset set = unit.Open(statement(categoryID));
    const int id = set.index(u"passwordID"_s);
    const int category = set.index(u"passwordCategoryID"_s);
    const int title = set.index(u"title"_s);
    const int description = set.index(u"description"_s);
    const int userName = set.index(u"userName"_s);
    const int password = set.index(u"password"_s);
    const int url = set.index(u"URL"_s);
    std::vector<PasswordRow> rows;
    try {
        for (; !set.eof(); set.moveNext())
            rows.push_back({qint32(set.integer(id)), qint32(set.integer(category)), set.text(title),
                            set.text(description), vault.DecryptEntry(set.text(userName)),
                            vault.DecryptEntry(set.text(password)), set.text(url)});
    } catch (...) {
        wipePasswordRows(rows);
        throw;
    }
    return rows;
}

void wipePasswordRows(std::vector<PasswordRow>& rows)
{
    for (PasswordRow& row : rows) {
        wipe(row.userName);
        wipe(row.password);
    }
    rows.clear();
}

void deletePasswords(Archive& archive, const QString& ids)
{
    ArchiveUnit unit(archive);
    unit.Execute(u"DELETE * FROM tab_Password WHERE tab_Password.PasswordID IN ("_s + ids + u") "_s);
}

void exportPasswords(Archive& archive, modPassword& vault, const QString& ids, const QString& path)
{
    QByteArray lines = exportLines(archive, vault, ids);
    const WipeAtEnd wiped(lines);
    writeForOwnerOnly(path, lines);
}
