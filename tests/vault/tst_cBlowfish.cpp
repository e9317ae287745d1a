// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "vault/cBlowfish.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>
#include <csignal>
#include <gcrypt.h>
#include <sys/resource.h>

using namespace Qt::StringLiterals;

namespace {

QByteArray hex(const QByteArray& digits)
{
    return QByteArray::fromHex(digits);
}

// One block through the block function.
QByteArray block(const QByteArray& key, const QByteArray& bytes, bool encrypt)
{
    cBlowfishBlock cipher;
    cipher.setKey(key);
    const cBlowfishBlock::Block in{qFromBigEndian<quint32>(bytes.data()), qFromBigEndian<quint32>(bytes.data() + 4)};
    const auto out = encrypt ? cipher.encipher(in) : cipher.decipher(in);
    QByteArray result(8, '\0');
    qToBigEndian(out.first, result.data());
    qToBigEndian(out.second, result.data() + 4);
    return result;
}

// The other implementation: Blowfish in chaining mode with a zero initial vector, without any frame.
QByteArray reference(QByteArray bytes, const QByteArray& key, bool encrypt)
{
    gcry_check_version(nullptr);
    gcry_cipher_hd_t cipher = nullptr;
    gcry_error_t error = gcry_cipher_open(&cipher, GCRY_CIPHER_BLOWFISH, GCRY_CIPHER_MODE_CBC, 0);
    if (!error)
        error = gcry_cipher_setkey(cipher, key.data(), size_t(key.size()));
    if (!error)
        error = gcry_cipher_setiv(cipher, QByteArray(8, '\0').data(), 8);
    if (!error && encrypt)
        error = gcry_cipher_encrypt(cipher, bytes.data(), size_t(bytes.size()), nullptr, 0);
    else if (!error)
        error = gcry_cipher_decrypt(cipher, bytes.data(), size_t(bytes.size()), nullptr, 0);
    gcry_cipher_close(cipher);
    if (error)
        qFatal("%s", gcry_strerror(error));
    return bytes;
}

QByteArray randomBytes(QRandomGenerator& random, int size)
{
    QByteArray bytes(size, '\0');
    for (char& byte : bytes)
        byte = char(random.bounded(256));
    return bytes;
}

void write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size());
}

QByteArray read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("unreadable");
}

// Eric Young's vectors at https://www.schneier.com/code/vectors.txt: key, clear, cipher.
constexpr char ecbVectors[] =
    "0000000000000000 0000000000000000 4EF997456198DD78  FFFFFFFFFFFFFFFF FFFFFFFFFFFFFFFF 51866FD5B85ECB8A  "
    "3000000000000000 1000000000000001 7D856F9A613063F2  1111111111111111 1111111111111111 2466DD878B963C9D  "
    "0123456789ABCDEF 1111111111111111 61F9C3802281B096  1111111111111111 0123456789ABCDEF 7D0CC630AFDA1EC7  "
    "FEDCBA9876543210 0123456789ABCDEF 0ACEAB0FC6A0A28D  7CA110454A1A6E57 01A1D6D039776742 59C68245EB05282B  "
    "0131D9619DC1376E 5CD54CA83DEF57DA B1B8CC0B250F09A0  07A1133E4A0B2686 0248D43806F67172 1730E5778BEA1DA4  "
    "3849674C2602319E 51454B582DDF440A A25E7856CF2651EB  04B915BA43FEB5B6 42FD443059577FA2 353882B109CE8F1A  "
    "0113B970FD34F2CE 059B5E0851CF143A 48F4D0884C379918  0170F175468FB5E6 0756D8E0774761D2 432193B78951FC98  "
    "43297FAD38E373FE 762514B829BF486A 13F04154D69D1AE5  07A7137045DA2A16 3BDD119049372802 2EEDDA93FFD39C79  "
    "04689104C2FD3B2F 26955F6835AF609A D887E0393C2DA6E3  37D06BB516CB7546 164D5E404F275232 5F99D04F5B163969  "
    "1F08260D1AC2465E 6B056E18759F5CCA 4A057A3B24D3977B  584023641ABA6176 004BD6EF09176062 452031C1E4FADA8E  "
    "025816164629B007 480D39006EE762F2 7555AE39F59B87BD  49793EBC79B3258F 437540C8698F3CFA 53C55F9CB49FC019  "
    "4FB05E1515AB73A7 072D43A077075292 7A8E7BFA937E89A3  49E95D6D4CA229BF 02FE55778117F12A CF9C5D7A4986ADB5  "
    "018310DC409B26D6 1D9D5C5018F728C2 D1ABB290658BC778  1C587F1C13924FEF 305532286D6F295A 55CB3774D13EF201  "
    "0101010101010101 0123456789ABCDEF FA34EC4847B268B2  1F1F1F1F0E0E0E0E 0123456789ABCDEF A790795108EA3CAE  "
    "E0FEE0FEF1FEF1FE 0123456789ABCDEF C39E072D9FAC631D  0000000000000000 FFFFFFFFFFFFFFFF 014933E0CDAFF6E4  "
    "FFFFFFFFFFFFFFFF 0000000000000000 F21E9A77B71C49BC  0123456789ABCDEF 0000000000000000 245946885754369A  "
    "FEDCBA9876543210 FFFFFFFFFFFFFFFF 6B5C5A9C5D9E0A5A";

// The same list's keys of 1 to 24 bytes: the beginning of longKey enciphers FEDCBA9876543210 to this.
constexpr char longKey[] = "F0E1D2C3B4A5968778695A4B3C2D1E0F0011223344556677";
constexpr const char* keyLengthVectors[] = {
    "F9AD597C49DB005E", "E91D21C1D961A6D6", "E9C2B70A1BC65CF3", "BE1E639408640F05", "B39E44481BDB1E6E",
    "9457AA83B1928C0D", "8BB77032F960629D", "E87A244E2CC85E82", "15750E7A4F4EC577", "122BA70B3AB64AE0",
    "3A833C9AFFC537F6", "9409DA87A90F6BF2", "884F80625060B8B4", "1F85031C19E11968", "79D9373A714CA34F",
    "93142887EE3BE15C", "03429E838CE2D14B", "A4299E27469FF67B", "AFD5AED1C1BC96A8", "10851C0E3858DA9F",
    "E6F51ED79B9DB21F", "64A6E14AFD36B46F", "80C7D7D45A5479AD", "05044B62FA52D080",
};

} // namespace

class tst_cBlowfish : public QObject {
    Q_OBJECT
private slots:
    void publishedVectors();
    void framesAgreeWithTheReference();
    void keys();
    void handMadeFrames();
    void texts();
    void progress();
    void files();
};

void tst_cBlowfish::publishedVectors()
{
    const auto compare = [](const QByteArray& key, const QByteArray& clear, const QByteArray& cipher) {
        QCOMPARE(block(hex(key), hex(clear), true), hex(cipher));
        QCOMPARE(block(hex(key), hex(cipher), false), hex(clear));
    };
    const QByteArrayList words = QByteArray(ecbVectors).simplified().split(' ');
    for (int i = 0; i + 2 < words.size(); i += 3)
        compare(words[i], words[i + 1], words[i + 2]);
    int digits = 0;
    for (const char* cipher : keyLengthVectors)
        compare(QByteArray(longKey).first(digits += 2), "FEDCBA9876543210", cipher);
}

void tst_cBlowfish::framesAgreeWithTheReference()
{
    QRandomGenerator random(20260304);
    cBlowfish cipher;
    for (int size = 0; size < 90; ++size) {
        QString key;
        for (int i = random.bounded(1, 40); i > 0; --i)
            key += QChar(random.bounded(1, 0xFF)); // up to 78 bytes: more than the published 56, more than the used 72
        const QByteArray keyBytes = key.toUtf8().first(qMin(key.toUtf8().size(), 72));
        const QByteArray plain = randomBytes(random, size);
        QByteArray data = plain;
        cipher.EncryptByte(data, key);
        QCOMPARE(data.size(), (size + 12 + 7) / 8 * 8);
        const QByteArray frame = reference(data, keyBytes, false);
        QVERIFY(qFromLittleEndian<quint32>(frame.data()) < 0x7FFFFFFF);
        QVERIFY(qFromLittleEndian<quint32>(frame.data() + 4) < 0x7FFFFFFF);
        QCOMPARE(qFromLittleEndian<qint32>(frame.data() + 8), size);
        QCOMPARE(frame.mid(12), plain + QByteArray(frame.size() - 12 - size, '\0'));
        QByteArray again = plain;
        cipher.EncryptByte(again); // the key stays
        QVERIFY(again != data && again.first(8) != data.first(8));
        QVERIFY(cipher.DecryptByte(data) && cipher.DecryptByte(again));
        QCOMPARE(data, plain);
        QCOMPARE(again, plain);
    }
}

void tst_cBlowfish::keys()
{
    cBlowfish cipher;
    const QString start = cipher.EncryptString(u"standard tables"_s);
    cipher.setKey(u"ключ"_s);
    const QString first = cipher.EncryptString(u"text"_s);
    cipher.setKey(QString(u'k').repeated(200));
    const QString longText = cipher.EncryptString(u"text"_s);
    QVERIFY(cipher.DecryptString(first) != u"text"_s);
    QCOMPARE(cipher.DecryptString(first, u"ключ"_s), u"text"_s); // the tables start anew for each key
    QCOMPARE(cipher.DecryptString(longText, QString(u'k').repeated(72)), u"text"_s);
    cipher.setKey(QString());
    QCOMPARE(cipher.DecryptString(start), u"standard tables"_s);
}

void tst_cBlowfish::handMadeFrames()
{
    const QByteArray four = "data";
    const QByteArray padded("five!\0\0\0\0\0\0\0", 12);
    const struct {
        const char* length; // little-endian
        QByteArray rest;
        const char* plain;
        bool isWhole;
    } frames[] = {
        {"05000000", padded, "five!", true},
        {"04000000", four, "data", true},
        {"05000000", four, "data", false}, // longer than what is there
        {"FFFFFF7F", four, "data", false},
        {"FFFFFFFF", four, "data", false}, // the largest, and a negative one
        {"00000004", four, "data", false}, // big-endian
        {"00000000", padded, "", false}, // a block too much
        {"02000000", four, "da", false}, // no zeros behind
        {"", {}, "", false}, // one block
    };
    cBlowfish cipher;
    cipher.setKey(u"hand made"_s);
    for (const auto& frame : frames) {
        const QByteArray data = reference("randword" + hex(frame.length) + frame.rest, "hand made", true);
        QByteArray deciphered = data;
        QCOMPARE(cipher.DecryptByte(deciphered), frame.isWhole);
        QCOMPARE(deciphered, QByteArray(frame.plain));
        for (int size = 0; size < data.size(); ++size) { // cut anywhere: less or nothing, never more than there is
            QByteArray cut(data.constData(), size);
            QVERIFY(!cipher.DecryptByte(cut) || size % 8 == 0);
            QVERIFY(cut.size() <= qMax(0, size - 12));
        }
    }
}

void tst_cBlowfish::texts()
{
    cBlowfish cipher;
    cipher.setKey(u"k"_s);
    for (const QString& text : {QString(), u"four"_s, u"five5"_s, u"Ünïcode Привет 世界 שלום नमस्ते \U0001F600"_s,
                                u"\uFEFFbom"_s, QString(u"a\0b"_s), u"\u00E9\u0080\u00FF"_s, u"'\"|\r\n\t"_s}) {
        const QString enciphered = cipher.EncryptString(text);
        QCOMPARE(enciphered.size(), (text.toUtf8().size() + 12 + 7) / 8 * 8); // one character a byte
        QVERIFY(std::all_of(enciphered.begin(), enciphered.end(), [](QChar c) { return c.unicode() < 256; }));
        bool isWhole = false;
        QCOMPARE(cipher.DecryptString(enciphered, {}, &isWhole), text);
        QVERIFY(isWhole);
    }
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte)
        all += char(byte);
    cipher.EncryptByte(all);
    const QString western = cipher.DecryptString(QString::fromLatin1(all));
    QCOMPARE(western.size(), 256);
    QCOMPARE(QSet<QChar>(western.begin(), western.end()).size(), 256);
    QCOMPARE(western.mid(0x7F, 6), u"\u007F€\u0081‚ƒ„"_s);
    QCOMPARE(western.right(3), u"ýþÿ"_s);
    bool isWhole = true;
    cipher.DecryptString(QString::fromLatin1(all), u"wrong"_s, &isWhole);
    QVERIFY(!isWhole);
}

void tst_cBlowfish::progress()
{
    cBlowfish cipher;
    QList<qint32> raised;
    cipher.Progress = [&](qint32 percent) { raised.append(percent); };
    QList<qint32> each(100);
    std::iota(each.begin(), each.end(), 1);
    QByteArray data(10000, 'x');
    cipher.EncryptByte(data, u"k"_s);
    cipher.DecryptByte(data);
    QCOMPARE(raised, each + each);
    raised.clear();
    data = "4444";
    cipher.EncryptByte(data);
    QCOMPARE(raised, QList<qint32>({50, 100}));
}

void tst_cBlowfish::files()
{
    QTemporaryDir folder;
    const auto path = [&](const char* name) { return folder.filePath(QString::fromLatin1(name)); };
    cBlowfish cipher;
    const QByteArray content = QByteArray("\0bin\xFF", 5).repeated(1000);
    write(path("plain"), content);
    write(path("secret"), QByteArray(50000, 'o')); // replaced, not overwritten
    cipher.EncryptFile(path("plain"), path("secret"), u"k"_s);
    QCOMPARE(read(path("secret")).size(), (5000 + 12 + 7) / 8 * 8);
    QCOMPARE(read(path("plain")), content);
    cipher.DecryptFile(path("secret"), path("secret")); // onto itself
    QCOMPARE(read(path("secret")), content);

    const auto errorOf = [&](auto operation, const QString& source, const QString& destination) -> QString {
        try {
            (cipher.*operation)(source, destination, u"k"_s);
        } catch (const CipherFileError& error) {
            return error.number() == 0x80040000 ? QString::fromUtf8(error.what()) : u"wrong number"_s;
        }
        return u"no error"_s;
    };
    for (const auto operation : {&cBlowfish::EncryptFile, &cBlowfish::DecryptFile}) {
        QCOMPARE(errorOf(operation, path("none"), path("plain")),
                 u"Error in Skipjack EncryptFile procedure (Source file does not exist)."_s);
        QVERIFY(errorOf(operation, path("plain"), path("none/x")).startsWith("Cannot write "_L1));
        QVERIFY(errorOf(operation, folder.path(), path("plain")).startsWith("Cannot read "_L1));
        QVERIFY(errorOf(operation, path("plain"), folder.path()).startsWith("Cannot write "_L1));
    }
    ::signal(SIGXFSZ, SIG_IGN); // as on a full disk: writing stops in the middle
    rlimit size{};
    ::getrlimit(RLIMIT_FSIZE, &size);
    const rlimit small{1000, size.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &small);
    const QString full = errorOf(&cBlowfish::EncryptFile, path("secret"), path("plain"));
    ::setrlimit(RLIMIT_FSIZE, &size);
    QVERIFY(full.startsWith("Cannot write "_L1));
    QCOMPARE(read(path("plain")), content);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList({u"plain"_s, u"secret"_s}));
}

SNIPVALE_TEST(tst_cBlowfish)
#include "tst_cBlowfish.moc"
