// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ui/QtClipboard.h"
#include "support/Registry.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QMimeData>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class tst_QtClipboard : public QObject {
    Q_OBJECT
private slots:
    void aSecretIsMarkedAndGoes();
};

void tst_QtClipboard::aSecretIsMarkedAndGoes()
{
    QClipboard& desktop = *QGuiApplication::clipboard();
    QtClipboard clipboard(200ms);
    clipboard.copySecret(u"first"_s);
    QTest::qWait(120);
    clipboard.copySecret(u"пароль"_s);
    QCOMPARE(desktop.mimeData()->data(u"x-kde-passwordManagerHint"_s), "secret");
    QTest::qWait(120); // the second one has a period of its own
    QCOMPARE(desktop.text(), u"пароль"_s);
    QTRY_COMPARE(desktop.text(), QString());
    clipboard.copySecret(u"secret"_s);
    desktop.setText(u"copied later"_s);
    QTest::qWait(250);
    QCOMPARE(desktop.text(), u"copied later"_s);
    QImage picture(1, 1, QImage::Format_RGB32);
    picture.fill(Qt::red);
    clipboard.copySecret(QString()); // has the text of a picture
    desktop.setImage(picture);
    clipboard.wipe();
    QVERIFY(!desktop.image().isNull());
    std::make_unique<QtClipboard>()->copySecret(u"at the end"_s);
    QCOMPARE(desktop.text(), QString());
}

SNIPVALE_TEST(tst_QtClipboard)
#include "tst_QtClipboard.moc"
