// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFile>
#include <sys/uio.h>
#include <unistd.h>

// Looks for a secret in everything that this process may write to, freed memory too. The secret stands nowhere in
// plain but where the program puts it: here its letters are kept turned around.
namespace memoryscan {

constexpr unsigned char turn = 0x5A;
inline const char turned[] = {'K' ^ turn, 'q' ^ turn, '7' ^ turn, 'w' ^ turn,
                              'Z' ^ turn, '4' ^ turn, 'm' ^ turn, 'G' ^ turn};

// A secret of 160 letters. Whatever part of it is left somewhere, the eight letters are in it.
inline QString secret()
{
    QString text(20 * qsizetype(sizeof turned), u' ');
    for (qsizetype i = 0; i < text.size(); ++i)
        text[i] = QChar(uchar(turned[i % qsizetype(sizeof turned)]) ^ turn);
    return text;
}

// As UTF-16 or as bytes.
inline bool isInMemory()
{
    QFile maps(QStringLiteral("/proc/self/maps"));
    if (!maps.open(QIODevice::ReadOnly))
        qFatal("no list of the memory");
    QByteArray wide;
    for (const char c : turned)
        wide.append(c).append(char(turn));
    bool found = false;
    for (const QByteArray& line : maps.readAll().split('\n')) {
        const QList<QByteArray> words = line.split(' ');
        const QList<QByteArray> ends = words.value(0).split('-');
        const quint64 first = ends.value(0).toULongLong(nullptr, 16);
        const quint64 size = ends.value(1).toULongLong(nullptr, 16) - first;
        // A sanitizer's notes are larger than that; on the stack lie registers that a copy went through.
        if (!words.value(1).startsWith("rw") || size > (quint64(1) << 30) || line.endsWith("[stack]"))
            continue;
        QByteArray buffer(qsizetype(size), '\0');
        const iovec to{buffer.data(), size_t(size)};
        const iovec from{reinterpret_cast<void*>(first), size_t(size)};
        if (::process_vm_readv(::getpid(), &to, 1, &from, 1, 0) <= 0)
            continue;
        for (char& byte : buffer)
            byte = char(byte ^ turn);
        found = found || buffer.contains(QByteArrayView(turned, sizeof turned)) || buffer.contains(wide);
        buffer.fill('\0');
    }
    return found;
}

} // namespace memoryscan
