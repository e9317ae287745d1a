// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/CoreSupport.h"
#include "support/Registry.h"
#include "vault/cBlowfish.h"

#include <QRandomGenerator>
#include <QtTest>
#include <gcrypt.h>

using namespace Qt::StringLiterals;

namespace {

// The other implementation: Blowfish in chaining mode with a zero initial vector, without any frame.
QByteArray reference(QByteArray bytes, const QByteArray& key, bool encrypt)
{
    gcry_check_version(nullptr);
    gcry_cipher_hd_t cipher = nullptr;
    const auto convert = encrypt ? gcry_cipher_encrypt : gcry_cipher_decrypt;
    if (gcry_cipher_open(&cipher, GCRY_CIPHER_BLOWFISH, GCRY_CIPHER_MODE_CBC, 0) ||
        gcry_cipher_setkey(cipher, key.data(), size_t(key.size())) ||
        convert(cipher, bytes.data(), size_t(bytes.size()), nullptr, 0))
        qFatal("the other implementation failed");
    gcry_cipher_close(cipher);
    return bytes;
}

} // namespace

class tst_cBlowfish : public QObject {
    Q_OBJECT
private slots:
    // Eric Young's at https://www.schneier.com/code/vectors.txt.
    void publishedVectors()
    {
        const std::tuple<const char*, quint64, quint64> vectors[] = {
            {"0000000000000000", 0x0000000000000000, 0x4EF997456198DD78},
            {"FFFFFFFFFFFFFFFF", 0xFFFFFFFFFFFFFFFF, 0x51866FD5B85ECB8A},
            {"0123456789ABCDEF", 0x1111111111111111, 0x61F9C3802281B096},
            {"7CA110454A1A6E57", 0x01A1D6D039776742, 0x59C68245EB05282B},
            {"F0", 0xFEDCBA9876543210, 0xF9AD597C49DB005E},
            {"F0E1D2C3B4", 0xFEDCBA9876543210, 0xB39E44481BDB1E6E},
            {"F0E1D2C3B4A5968778695A4B3C2D1E0F0011223344556677", 0xFEDCBA9876543210, 0x05044B62FA52D080},
        };
        const auto block = [](quint64 bits) { return cBlowfishBlock::Block(quint32(bits >> 32), quint32(bits)); };
        for (const auto& [key, clear, enciphered] : vectors) {
            cBlowfishBlock cipher;
            cipher.setKey(QByteArray::fromHex(key));
            QCOMPARE(cipher.encipher(block(clear)), block(enciphered));
            QCOMPARE(cipher.decipher(block(enciphered)), block(clear));
        }
    }

    void framesAgreeWithTheReference()
    {
        QRandomGenerator random(20260304);
        cBlowfish cipher;
        for (int size = 0; size < 90; ++size) {
            QString key;
            for (int i = random.bounded(1, 40); i > 0; --i)
                key +=
                    QChar(random.bounded(1, 0xFF)); // up to 78 bytes: more than the published 56, more than the used 72
            const QByteArray keyBytes = key.toUtf8().first(qMin(key.toUtf8().size(), 72));
            QByteArray plain(size, '\0');
            std::generate(plain.begin(), plain.end(), [&] { return char(random.bounded(256)); });
            QByteArray data = plain;
            cipher.EncryptByte(data, key);
            const QByteArray frame = reference(data, keyBytes, false);
            QCOMPARE(qFromLittleEndian<qint32>(frame.data() + 8), size);
            QCOMPARE(frame.mid(12), plain + QByteArray(frame.size() - 12 - size, '\0'));
            QByteArray again = plain;
            cipher.EncryptByte(again); // the key stays
            QVERIFY(again != data && again.first(8) != data.first(8));
            QVERIFY(cipher.DecryptByte(data) && cipher.DecryptByte(again));
            QVERIFY(data == plain && again == plain);
        }
    }

    void handMadeFrames()
    {
        const std::pair<QByteArray, QByteArray> frames[] = {
            {"\5\0\0\0data"_ba, "data"_ba}, // longer than what is there
            {"\377\377\377\377data"_ba, "data"_ba}, // negative
            {"\0\0\0\0five!\0\0\0\0\0\0\0"_ba, {}}, // a block too much
            {"\2\0\0\0data"_ba, "da"_ba}, // no zeros behind
        };
        cBlowfish cipher;
        cipher.setKey(u"hand made"_s);
        for (const auto& [frame, plain] : frames) {
            const QByteArray data = reference("randword" + frame, "hand made", true);
            QByteArray deciphered = data;
            QVERIFY(!cipher.DecryptByte(deciphered));
            QCOMPARE(deciphered, plain);
            for (int size = 0; size < data.size(); ++size) { // cut anywhere: less or nothing, never more than there is
                QByteArray cut(data.constData(), size);
                QVERIFY(!cipher.DecryptByte(cut) || size % 8 == 0);
                QVERIFY(cut.size() <= qMax(0, size - 12));
            }
        }
    }

    void keysAndTexts()
    {
        cBlowfish cipher;
        const QString standard = cipher.EncryptString(u"standard tables"_s);
        cipher.setKey(u"ключ"_s);
        for (const QString& text :
             {QString(), u"four"_s, u"\uFEFFПривет 世界\0\U0001F600"_s, u"\u00E9\u0080'\"|\r\n"_s}) {
            const QString enciphered = cipher.EncryptString(text);
            QCOMPARE(enciphered.size(), (text.toUtf8().size() + 12 + 7) / 8 * 8); // one character a byte
            QCOMPARE(QString::fromLatin1(enciphered.toLatin1()), enciphered);
            bool isWhole = false;
            QCOMPARE(cipher.DecryptString(enciphered, {}, &isWhole), text);
            bool isRight = true;
            cipher.DecryptString(enciphered, u"wrong"_s, &isRight);
            QVERIFY(isWhole && !isRight);
            QCOMPARE(cipher.DecryptString(enciphered, u"ключ"_s), text); // the tables start anew for each key
        }
        QByteArray western = "\x80\xE9\xFF"; // no UTF-8
        cipher.EncryptByte(western);
        QCOMPARE(cipher.DecryptString(QString::fromLatin1(western)), u"€éÿ"_s);
        cipher.setKey(QString());
        QCOMPARE(cipher.DecryptString(standard), u"standard tables"_s);
    }
};

SNIPVALE_TEST(tst_cBlowfish)
#include "tst_cBlowfish.moc"
