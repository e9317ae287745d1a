// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/TextFile.h"

#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 largestFile = 64LL * 1024 * 1024; // more than an editor is pleasant with

[[noreturn]] void fail(const QString& name, const QString& reason)
{
    throw std::runtime_error((name + u": "_s + reason).toStdString());
}

// What 0x80 to 0x9F mean in Windows-1252; 0 for the five bytes that mean nothing.
constexpr char16_t western[32] = {0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                  0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0,      0x017D, 0,
                                  0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                  0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

QString fromWestern(const QByteArray& bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar& c : text)
        if (c >= QChar(0x80) && c < QChar(0xA0) && western[c.unicode() - 0x80])
            c = QChar(western[c.unicode() - 0x80]);
    return text;
}

QString decode(const QByteArray& bytes)
{
    // The decoder takes a byte order mark for what it says, and off.
    const auto marked = QStringDecoder::encodingForData(bytes);
    QStringDecoder decoder(marked.value_or(QStringDecoder::Utf8));
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? fromWestern(bytes) : text;
}

} // namespace

QString readTextFile(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        fail(name, file.errorString());
    if (file.size() > largestFile)
        fail(name, u"the file is larger than 64 MB."_s);
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        fail(name, file.errorString());
    QString text = decode(bytes).replace(u"\r\n"_s, u"\n"_s);
    if (text.endsWith(u'\n'))
        text.chop(1); // the end of the last line, not one more line
    return text;
}

void writeTextFile(const QString& name, const QByteArray& bytes)
{
    QSaveFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush() || !file.commit())
        fail(name, file.errorString());
}
