// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/richtext/RtfCodePage.h"

#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <iterator>

namespace rtf {

namespace {

constexpr int symbolCodePage = 42;
constexpr int macintoshCodePage = 10000;

// The bytes 0x80 to 0x9F. Five have no character and stand for the C1 control of their number.
constexpr std::array<char16_t, 32> westernHigh{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                               0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                               0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                               0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

QString decodeWestern(const QByteArray& bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar& c : text) {
        if (c.unicode() >= 0x80 && c.unicode() < 0xA0)
            c = QChar(westernHigh[c.unicode() - 0x80U]);
    }
    return text;
}

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
        return decodeWestern(bytes);
    if (codePage == symbolCodePage)
        return decodeSymbol(bytes);
    if (codePage == utf8CodePage)
        return QString::fromUtf8(bytes);
    const QByteArray name =
        codePage == macintoshCodePage ? QByteArray("macintosh") : "cp" + QByteArray::number(codePage);
    QStringDecoder decoder(name.constData());
    return decoder.isValid() ? QString(decoder.decode(bytes)) : decodeWestern(bytes);
}

int westernByte(char16_t character)
{
    if (character >= 0xA0 && character <= 0xFF)
        return character;
    const auto it = std::find(westernHigh.begin(), westernHigh.end(), character);
    if (it == westernHigh.end() || character < 0x100)
        return 0;
    return 0x80 + static_cast<int>(it - westernHigh.begin());
}

} // namespace rtf
