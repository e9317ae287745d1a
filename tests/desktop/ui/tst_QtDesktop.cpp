// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "desktop/PreviousInstance.h"
#include "desktop/ui/QtDesktop.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QtTest>

using namespace Qt::StringLiterals;

class tst_QtDesktop : public QObject {
    Q_OBJECT
private slots:
    void messageBoxes_data();
    void messageBoxes();
    void fileDialogs();
    void instances();
};

void tst_QtDesktop::messageBoxes_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<int>("icon");
    QTest::addColumn<int>("defaultButton");
    QTest::newRow("plain") << 0 << int(QMessageBox::NoIcon) << 0;
    QTest::newRow("critical") << 16 << int(QMessageBox::Critical) << 0;
    QTest::newRow("exclamation") << 48 << int(QMessageBox::Warning) << 0;
    QTest::newRow("information") << 64 << int(QMessageBox::Information) << 0;
    QTest::newRow("question") << 36 << int(QMessageBox::Question) << int(QMessageBox::Yes);
    QTest::newRow("question, no") << 292 << int(QMessageBox::Question) << int(QMessageBox::No);
}

void tst_QtDesktop::messageBoxes()
{
    QFETCH(int, style);
    QFETCH(int, icon);
    QFETCH(int, defaultButton);
    QtQuestions questions;
    whenModal([&](QWidget& window) {
        auto& box = dynamic_cast<QMessageBox&>(window);
        QCOMPARE(box.text(), u"<b>a</b>\nb & c\nd"_s);
        QCOMPARE(box.textFormat(), Qt::PlainText);
        QCOMPARE(box.windowTitle(), u"Title "_s);
        QCOMPARE(int(box.icon()), icon);
        QCOMPARE(box.defaultButton() ? int(box.standardButton(box.defaultButton())) : 0, defaultButton);
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    const Answer answer = questions.ask(u"<b>a</b>\r\nb & c\rd"_s, MessageStyle(style), u"Title "_s);
    QCOMPARE(answer, defaultButton ? Answer::No : Answer::Ok); // Escape never says yes
}

void tst_QtDesktop::fileDialogs()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QtFileDialogs files;
    QTemporaryDir folder;
    whenModal([](QWidget& window) {
        QCOMPARE(window.windowTitle(), u"Open "_s);
        QCOMPARE(dynamic_cast<QFileDialog&>(window).nameFilters(), QStringList({u"All Files (*.*) (*)"_s}));
        window.close();
    });
    QVERIFY(!files.openFile(u"Open "_s, u"All Files (*.*) |*.*"_s));
    whenModal([&](QWidget& window) {
        auto& dialog = dynamic_cast<QFileDialog&>(window);
        dialog.setDirectory(folder.path());
        dialog.selectFile(u"copy"_s);
        QTimer::singleShot(0, &dialog, [&dialog] { QMetaObject::invokeMethod(&dialog, "accept"); });
    });
    QCOMPARE(files.saveFile(u"Save"_s, u"SnipVale Archive (*.SVA) |*.SVA"_s, u"SVA"_s).value_or(QString()),
             folder.filePath(u"copy.SVA"_s));
}

void tst_QtDesktop::instances()
{
    QTemporaryDir home, other;
    auto first = std::make_unique<SocketInstance>(home.path());
    QVERIFY(!first->isRunning());
    QVERIFY(!SocketInstance(other.path()).isRunning());
    bool asked = false;
    first->onBringToFront = [&asked] { asked = true; };
    SocketInstance second(home.path() + u"/."_s); // the same folder by another name
    QVERIFY(second.isRunning());
    second.bringToFront();
    QTRY_VERIFY(asked);
    first.reset();
    QVERIFY(!SocketInstance(home.path()).isRunning());
}

SNIPVALE_TEST(tst_QtDesktop)
#include "tst_QtDesktop.moc"
