// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/TextFile.h"

#include "desktop/TextForms.h"

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

QString decode(const QByteArray& bytes)
{
    // The decoder takes a byte order mark for what it says, and off.
    const auto marked = QStringDecoder::encodingForData(bytes);
    QStringDecoder decoder(marked.value_or(QStringDecoder::Utf8));
    const QString text = decoder.decode(bytes);
    return decoder.hasError() ? westernText(bytes) : text;
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
