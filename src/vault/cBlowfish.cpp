// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "vault/cBlowfish.h"

#include "desktop/SecretMemory.h"
#include "desktop/TextForms.h"
#include "vault/cBlowfishTables.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QSaveFile>
#include <QStringDecoder>
#include <QtEndian>
#include <algorithm>
#include <cstring>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype blockSize = 8;
constexpr qsizetype headSize = 12; // two random words and the length
constexpr quint32 firstUserError = 0x80040000;

QString textOf(const QByteArray& bytes)
{
    if (QByteArrayView(bytes).isValidUtf8()) {
        // A byte order mark at the beginning is the user's, too.
        QStringDecoder decoder(QStringDecoder::Utf8, QStringConverter::Flag::ConvertInitialBom);
        return decoder(bytes);
    }
    return westernText(bytes); // no byte is lost
}

// Uniform in 0 to 2147483646. The system's generator needs no seed.
quint32 randomWord()
{
    return quint32(QRandomGenerator::system()->generateDouble() * 2147483647.0);
}

void raiseProgress(const std::function<void(qint32)>& raise, qsizetype done, qsizetype total, qint32& last)
{
    const auto percent = qint32(done * 100 / total);
    if (percent > last)
        raise(last = percent);
}

CipherFileError fileError(const QString& what, const QString& path, const QString& why)
{
    return CipherFileError(firstUserError, u"%1 %2: %3"_s.arg(what, path, why));
}

} // namespace

cBlowfishBlock::~cBlowfishBlock()
{
    ::explicit_bzero(m_p.data(), sizeof m_p);
    ::explicit_bzero(m_s.data(), sizeof m_s);
}

void cBlowfishBlock::standardTables()
{
    const quint32* words = blowfishWords;
    std::copy_n(words, m_p.size(), m_p.begin());
    words += m_p.size();
    for (auto& box : m_s) {
        std::copy_n(words, box.size(), box.begin());
        words += box.size();
    }
}

// The sums wrap modulo 2^32.
inline quint32 cBlowfishBlock::round(quint32 half) const
{
    return ((m_s[0][half >> 24] + m_s[1][half >> 16 & 0xFF]) ^ m_s[2][half >> 8 & 0xFF]) + m_s[3][half & 0xFF];
}

cBlowfishBlock::Block cBlowfishBlock::encipher(Block block) const
{
    auto [left, right] = block;
    for (size_t i = 0; i < 16; i += 2) {
        left ^= m_p[i];
        right ^= round(left) ^ m_p[i + 1];
        left ^= round(right);
    }
    return {right ^ m_p[17], left ^ m_p[16]};
}

cBlowfishBlock::Block cBlowfishBlock::decipher(Block block) const
{
    auto [left, right] = block;
    for (size_t i = 16; i > 0; i -= 2) {
        left ^= m_p[i + 1];
        right ^= round(left) ^ m_p[i];
        left ^= round(right);
    }
    return {right ^ m_p[0], left ^ m_p[1]};
}

void cBlowfishBlock::setKey(QByteArrayView key)
{
    standardTables();
    if (key.isEmpty())
        return;
    qsizetype next = 0;
    for (quint32& word : m_p) {
        quint32 four = 0;
        for (int i = 0; i < 4; ++i, next = (next + 1) % key.size())
            four = four << 8 | quint8(key[next]);
        word ^= four;
    }
    Block block{0, 0};
    const auto replace = [&](auto& words) {
        for (size_t i = 0; i < words.size(); i += 2) {
            block = encipher(block);
            words[i] = block.first;
            words[i + 1] = block.second;
        }
    };
    replace(m_p);
    for (auto& box : m_s)
        replace(box);
}

cBlowfish::~cBlowfish()
{
    wipe(m_key);
}

void cBlowfish::setKey(const QString& key)
{
    if (key == m_key)
        return;
    wipe(m_key);
    m_key = secretCopy(key);
    QByteArray bytes = key.toUtf8();
    const WipeAtEnd wiped(bytes);
    m_block.setKey(bytes);
}

void cBlowfish::encipherChain(QByteArray& frame)
{
    cBlowfishBlock::Block previous{0, 0};
    qint32 percent = 0;
    char* block = frame.data();
    const char* end = block + frame.size();
    for (; block < end; block += blockSize) {
        previous = m_block.encipher(
            {qFromBigEndian<quint32>(block) ^ previous.first, qFromBigEndian<quint32>(block + 4) ^ previous.second});
        qToBigEndian(previous.first, block);
        qToBigEndian(previous.second, block + 4);
        if (Progress)
            raiseProgress(Progress, frame.size() - (end - block) + blockSize, frame.size(), percent);
    }
}

void cBlowfish::decipherChain(QByteArray& frame)
{
    cBlowfishBlock::Block previous{0, 0};
    qint32 percent = 0;
    char* block = frame.data();
    const char* end = block + frame.size();
    for (; block < end; block += blockSize) {
        const cBlowfishBlock::Block cipher{qFromBigEndian<quint32>(block), qFromBigEndian<quint32>(block + 4)};
        const auto plain = m_block.decipher(cipher);
        qToBigEndian(plain.first ^ previous.first, block);
        qToBigEndian(plain.second ^ previous.second, block + 4);
        previous = cipher;
        if (Progress)
            raiseProgress(Progress, frame.size() - (end - block) + blockSize, frame.size(), percent);
    }
}

void cBlowfish::EncryptByte(QByteArray& data, const QString& key)
{
    if (!key.isEmpty())
        setKey(key);
    if (data.size() > std::numeric_limits<qint32>::max() - headSize - blockSize)
        throw std::length_error("The data is too long to be enciphered.");
    const qsizetype total = (data.size() + headSize + blockSize - 1) / blockSize * blockSize;
    QByteArray frame(total, '\0');
    char* head = frame.data();
    qToLittleEndian(randomWord(), head);
    qToLittleEndian(randomWord(), head + 4);
    qToLittleEndian(quint32(data.size()), head + 8);
    std::copy(data.cbegin(), data.cend(), head + headSize);
    encipherChain(frame);
    wipe(data);
    data = frame;
}

bool cBlowfish::DecryptByte(QByteArray& data, const QString& key)
{
    if (!key.isEmpty())
        setKey(key);
    const bool wasCut = data.size() % blockSize != 0;
    data.truncate(data.size() / blockSize * blockSize); // what is left of a last block cannot be deciphered
    if (data.size() < headSize) {
        data.clear();
        return false;
    }
    decipherChain(data);
    const qsizetype length = qFromLittleEndian<quint32>(data.constData() + 8);
    const qsizetype there = data.size() - headSize;
    const qsizetype padding = there - length;
    const bool isWhole = !wasCut && padding >= 0 && padding < blockSize &&
        std::all_of(data.cend() - padding, data.cend(), [](char c) { return c == '\0'; });
    QByteArray plain(data.constData() + headSize, std::min(length, there));
    wipe(data);
    data = plain;
    return isWhole;
}

QString cBlowfish::EncryptString(const QString& text, const QString& key)
{
    QByteArray bytes = text.toUtf8();
    EncryptByte(bytes, key);
    return QString::fromLatin1(bytes);
}

QString cBlowfish::DecryptString(const QString& text, const QString& key, bool* wasWhole)
{
    QByteArray bytes = text.toLatin1();
    const bool isWhole = DecryptByte(bytes, key);
    const WipeAtEnd wiped(bytes);
    if (wasWhole)
        *wasWhole = isWhole;
    return textOf(bytes);
}

void cBlowfish::EncryptFile(const QString& source, const QString& destination, const QString& key)
{
    convertFile(source, destination, key, true);
}

void cBlowfish::DecryptFile(const QString& source, const QString& destination, const QString& key)
{
    convertFile(source, destination, key, false);
}

void cBlowfish::convertFile(const QString& source, const QString& destination, const QString& key, bool encrypt)
{
    QFile from(source);
    if (!from.exists())
        throw CipherFileError(firstUserError,
                              u"Error in Skipjack EncryptFile procedure (Source file does not exist)."_s);
    if (!from.open(QIODevice::ReadOnly))
        throw fileError(u"Cannot read"_s, source, from.errorString());
    QByteArray data = from.readAll();
    const WipeAtEnd wiped(data);
    if (from.error() != QFileDevice::NoError)
        throw fileError(u"Cannot read"_s, source, from.errorString());
    from.close();
    if (const QFileInfo there(destination); there.exists() && !there.isFile()) // a device would give way to a file
        throw fileError(u"Cannot write"_s, destination, u"It is no file."_s);
    encrypt ? EncryptByte(data, key) : void(DecryptByte(data, key));
    QSaveFile to(destination);
    // A full disk shows when the buffer is flushed; commit() alone would not see it.
    if (!to.open(QIODevice::WriteOnly) || to.write(data) != data.size() || !to.flush() || !to.commit())
        throw fileError(u"Cannot write"_s, destination, to.errorString());
}
