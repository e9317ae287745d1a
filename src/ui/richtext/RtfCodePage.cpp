// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/richtext/RtfCodePage.h"

#include "desktop/TextForms.h"

#include <QStringDecoder>
#include <algorithm>
#include <iterator>

namespace rtf {

namespace {

constexpr int symbolCodePage = 42;
constexpr int macintoshCodePage = 10000;

// The symbol fonts have no table of their own here: their two usual bullets are known, the rest goes to the
// private area, where such fonts keep it.
QString decodeSymbol(const QByteArray& bytes)
{
    QString text;
    for (const char byte : bytes) {
        const auto c = static_cast<uchar>(byte);
        if (c == 0xB7)
            text += QChar(0x2022);
        else if (c == 0xA7)
            text += QChar(0x25AA);
        else
            text += QChar(c < 0x80 ? c : 0xF000 + c);
    }
    return text;
}

} // namespace

int codePageOfCharset(int charset)
{
    struct Pair {
        int charset, codePage;
    };
    static constexpr Pair pairs[] = {{0, 1252},   {2, 42},     {77, 10000}, {128, 932},  {129, 949},
                                     {130, 1361}, {134, 936},  {136, 950},  {161, 1253}, {162, 1254},
                                     {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251},
                                     {222, 874},  {238, 1250}, {254, 437},  {255, 850}};
    const auto* it =
        std::find_if(std::begin(pairs), std::end(pairs), [charset](Pair p) { return p.charset == charset; });
    return it == std::end(pairs) ? 0 : it->codePage;
}

bool isDoubleByte(int codePage)
{
    return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950 || codePage == 1361;
}

QString decode(int codePage, const QByteArray& bytes)
{
    if (codePage == westernCodePage)
        return westernText(bytes);
    if (codePage == symbolCodePage)
        return decodeSymbol(bytes);
    if (codePage == utf8CodePage)
        return QString::fromUtf8(bytes);
    const QByteArray name =
        codePage == macintoshCodePage ? QByteArray("macintosh") : "cp" + QByteArray::number(codePage);
    QStringDecoder decoder(name.constData());
    return decoder.isValid() ? QString(decoder.decode(bytes)) : westernText(bytes);
}

int westernByte(char16_t character)
{
    if (character >= 0xA0 && character <= 0xFF)
        return character;
    static const QString high = [] {
        QByteArray bytes;
        for (int byte = 0x80; byte < 0xA0; ++byte)
            bytes += static_cast<char>(byte);
        return westernText(bytes);
    }();
    const qsizetype place = character < 0x100 ? -1 : high.indexOf(QChar(character));
    return place < 0 ? 0 : 0x80 + static_cast<int>(place);
}

} // namespace rtf
