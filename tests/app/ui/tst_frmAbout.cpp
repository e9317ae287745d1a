// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "app/ui/frmAbout.h"

#include <QClipboard>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QtTest>

using namespace Qt::StringLiterals;

class tst_frmAbout : public QObject {
    Q_OBJECT
private slots:
    void factsCanBeCopied();
    void licence();
};

void tst_frmAbout::factsCanBeCopied()
{
    frmAbout box({u"/data/mine & <b>.SVA"_s, u"/home/me"_s, QString()});
    box.findChild<QPushButton*>(u"cmdCopy"_s)->click();
    const QString copied = QGuiApplication::clipboard()->text();
    for (const QString& line : {u"SnipVale: " SNIPVALE_VERSION "\n"_s, u"Archive: /data/mine & <b>.SVA\n"_s,
                                u"Program directory: /home/me\n"_s, u"Qt: "_s + QString::fromLatin1(qVersion())})
        QVERIFY2(copied.contains(line), qPrintable(copied));
    QVERIFY(copied.contains(QRegularExpression(u"SQLite: \\d+\\.\\d+\\.\\d+\n"_s)));
}

void tst_frmAbout::licence()
{
    for (const QString& file : {QStringLiteral(SHIPPED_DIR "/LICENSE"), u"/nowhere"_s}) {
        frmAbout box({QString(), QString(), file});
        box.findChild<QTabWidget*>(u"tabAbout"_s)->setCurrentIndex(1);
        const QString text = box.findChild<QPlainTextEdit*>(u"txtLicence"_s)->toPlainText();
        const bool isWhole = text.contains("GNU GENERAL PUBLIC LICENSE"_L1) && text.size() > 30000;
        QVERIFY(isWhole || (file == "/nowhere"_L1 && text.contains("https://www.gnu.org/licenses/"_L1)));
        box.show();
        QTest::keyClick(&box, Qt::Key_Escape);
        QVERIFY(box.isHidden());
    }
}

SNIPVALE_TEST(tst_frmAbout)
#include "tst_frmAbout.moc"
