// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>
#include <array>
#include <functional>
#include <stdexcept>
#include <utility>

// The Blowfish block cipher as published (B. Schneier, "Description of a New Variable-Length Key, 64-bit Block Cipher
// (Blowfish)", 1993): 64-bit blocks as two 32-bit halves, 16 rounds.
class cBlowfishBlock {
public:
    using Block = std::pair<quint32, quint32>; // left and right half

    cBlowfishBlock() { standardTables(); }
    ~cBlowfishBlock(); // wipes
    cBlowfishBlock(const cBlowfishBlock&) = delete;
    cBlowfishBlock& operator=(const cBlowfishBlock&) = delete;

    // The key schedule. The bytes are taken cyclically, the first 72 of them count. No bytes give the standard tables.
    void setKey(QByteArrayView key);

    Block encipher(Block block) const;
    Block decipher(Block block) const;

private:
    quint32 round(quint32 half) const;
    void standardTables();

    std::array<quint32, 18> m_p;
    std::array<std::array<quint32, 256>, 4> m_s;
};

// What the file operations throw, with the number that goes with the text.
class CipherFileError : public std::runtime_error {
public:
    CipherFileError(quint32 number, const QString& description)
        : std::runtime_error(description.toStdString()), m_number(number)
    {
    }
    quint32 number() const { return m_number; }

private:
    quint32 m_number;
};

// Blowfish with big-endian words in cipher-block chaining with a zero initial vector, over a frame of its own: two
// random words, the length, the data, zeros up to a multiple of 8 bytes, all numbers little-endian. The frame is
// not authenticated: a wrong key or damaged text gives garbage or nothing, never an error.
//
// A key argument that is not empty becomes the key first; an empty one keeps the key there is. Text is enciphered as
// UTF-8; deciphered bytes that are no UTF-8 are read as Windows-1252. Not for sharing between threads.
class cBlowfish {
public:
    cBlowfish() = default;
    ~cBlowfish(); // wipes
    cBlowfish(const cBlowfish&) = delete;
    cBlowfish& operator=(const cBlowfish&) = delete;

    // `Key`: does nothing when the text is the key already. The first 72 bytes count. The empty key is the state of a
    // new object, the standard tables; setting it also wipes what is left of the key before.
    void setKey(const QString& key);

    void EncryptByte(QByteArray& data, const QString& key = {}); // throws std::length_error above 2 GB
    // Never reads outside `data`. True when the frame was whole: a length that fits and zeros behind the data. After a
    // wrong key that happens by accident once in 10^8 or rarer; what is in `data` does not depend on it.
    bool DecryptByte(QByteArray& data, const QString& key = {});

    QString EncryptString(const QString& text, const QString& key = {}); // one character a byte, U+0000 to U+00FF
    QString DecryptString(const QString& text, const QString& key = {}, bool* wasWhole = nullptr);

    // The destination is replaced as a whole or, when anything fails, left alone. Throw CipherFileError.
    void EncryptFile(const QString& source, const QString& destination, const QString& key = {});
    void DecryptFile(const QString& source, const QString& destination, const QString& key = {});

    std::function<void(qint32)> Progress; // the whole percentage, each time one more is done; may be empty

private:
    void encipherChain(QByteArray& frame);
    void decipherChain(QByteArray& frame);
    void convertFile(const QString& source, const QString& destination, const QString& key, bool encrypt);

    cBlowfishBlock m_block;
    QString m_key;
};
