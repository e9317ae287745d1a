// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/CoreSupport.h"

#include "vault/cBlowfish.h"
#include "vault/cPassword.h"
#include "vault/modPassword.h"

#include <QtTest>
#include <cstdio>
#include <sys/uio.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

// An unlocked vault, beside what its base has.
template <typename Base>
struct VaultOn : Base {
    VaultOn()
    {
        vault.ChooseMasterPassword(u"master word"_s);
        this->statements.clear();
    }
    qint32 add(const QString& title, const QString& userName, const QString& secret, qint32 category = 0)
    {
        cPassword row(this->archive, vault);
        row.Title = title;
        row.UserName = userName;
        row.Password = secret;
        row.CategoryID = category;
        row.Save();
        return row.PasswordID;
    }
    void execute(const QString& sql) { ArchiveUnit(this->archive).Execute(sql); }
    QString column(const char* name, qint32 id = 1)
    {
        return this->value(u"SELECT %1 FROM tab_password WHERE passwordID = %2"_s.arg(QLatin1String(name)).arg(id));
    }

    cBlowfish cipher;
    modPassword vault{this->archive, cipher};
    cPassword password{this->archive, vault};
};

// To look for a secret in everything that this process may write to, freed memory too. The secret stands nowhere in
// plain but where the program puts it: here its letters are kept turned around.
constexpr unsigned char turn = 0x5A;
inline const char turned[] = {'K' ^ turn, 'q' ^ turn, '7' ^ turn, 'w' ^ turn,
                              'Z' ^ turn, '4' ^ turn, 'm' ^ turn, 'G' ^ turn};

// A secret of 160 letters. Whatever part of it is left somewhere, the eight letters are in it.
inline QString scannedSecret()
{
    QString text(20 * qsizetype(sizeof turned), u' ');
    for (qsizetype i = 0; i < text.size(); ++i)
        text[i] = QChar(uchar(turned[i % qsizetype(sizeof turned)]) ^ turn);
    return text;
}

// As UTF-16 or as bytes.
inline bool isSecretInMemory()
{
    QByteArray wide;
    for (const char c : turned)
        wide.append(c).append(char(turn));
    bool found = false;
    for (const QByteArray& line : bytesOf(u"/proc/self/maps"_s).split('\n')) {
        unsigned long first = 0;
        unsigned long end = 0;
        // A sanitizer's notes are larger than that; on the stack lie registers that a copy went through.
        if (std::sscanf(line.constData(), "%lx-%lx", &first, &end) != 2 || !line.contains(" rw") ||
            end - first > (1UL << 30) || line.endsWith("[stack]"))
            continue;
        QByteArray buffer(qsizetype(end - first), '\0');
        const iovec to{buffer.data(), end - first};
        const iovec from{reinterpret_cast<void*>(first), end - first};
        ::process_vm_readv(::getpid(), &to, 1, &from, 1, 0); // what is not to be had stays zero
        for (char& byte : buffer)
            byte = char(byte ^ turn);
        found = found || buffer.contains(QByteArrayView(turned, sizeof turned)) || buffer.contains(wide);
        buffer.fill('\0');
    }
    return found;
}
