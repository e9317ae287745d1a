// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"

#include "desktop/TextFile.h"

#include <QTemporaryDir>
#include <QtTest>

using namespace Qt::StringLiterals;

class tst_TextFile : public QObject {
    Q_OBJECT
private slots:
    void everyCoding()
    {
        QTemporaryDir folder;
        const QString name = folder.filePath(u"данные.txt"_s);
        const std::pair<QByteArray, QString> cases[] = {
            {"a\r\nb\n\nc\n", u"a\nb\n\nc"_s},
            {"\xEF\xBB\xBFПривет", u"Привет"_s},
            {QByteArray("\xFF\xFEh\0i\0", 6), u"hi"_s},
            {"caf\xE9 \x80 \x93q\x94", u"café € “q”"_s},
            {"", QString()},
        };
        for (const auto& [bytes, text] : cases) {
            writeTextFile(name, bytes);
            QCOMPARE(readTextFile(name), text);
        }
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, readTextFile(folder.filePath(u"missing"_s)));
        QVERIFY_THROWS_EXCEPTION(std::runtime_error, writeTextFile(folder.filePath(u"no/folder"_s), "x"));
    }
};

SNIPVALE_TEST(tst_TextFile)
#include "tst_TextFile.moc"
