// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "support/UiSupport.h"

#include "desktop/PreviousInstance.h"
#include "desktop/ui/QtClipboard.h"
#include "desktop/ui/QtDesktop.h"

#include <QClipboard>
#include <QFileDialog>
#include <QMessageBox>
#include <QMimeData>
#include <QtTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

class tst_QtDesktop : public QObject {
    Q_OBJECT
private slots:
    void messageBoxes()
    {
        // And the default of a question.
        constexpr std::pair<MessageStyle, QMessageBox::StandardButton> rows[] = {
            {MessageStyle::Critical, QMessageBox::NoButton},
            {MessageStyle::YesNo, QMessageBox::Yes},
            {MessageStyle::YesNoDefaultNo, QMessageBox::No}};
        QtQuestions questions;
        for (const auto& [style, standard] : rows) {
            whenModal([&, standard = standard](QWidget& window) {
                auto& box = dynamic_cast<QMessageBox&>(window);
                QCOMPARE(box.text(), u"<b>a</b>\nb & c\nd"_s);
                QCOMPARE(box.textFormat(), Qt::PlainText);
                QCOMPARE(box.defaultButton() ? box.standardButton(box.defaultButton()) : QMessageBox::NoButton,
                         standard);
                QTest::keyClick(&box, Qt::Key_Escape);
            });
            const Answer answer = questions.ask(u"<b>a</b>\r\nb & c\rd"_s, style, u"Title "_s);
            QCOMPARE(answer, standard ? Answer::No : Answer::Ok); // Escape never says yes
        }
    }

    void fileDialogs()
    {
        QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
        QtFileDialogs files;
        QTemporaryDir folder;
        whenModal([&](QWidget& window) {
            auto& dialog = dynamic_cast<QFileDialog&>(window);
            dialog.setDirectory(folder.path());
            dialog.selectFile(u"copy"_s);
            QTimer::singleShot(0, &dialog, [&dialog] { QMetaObject::invokeMethod(&dialog, "accept"); });
        });
        QCOMPARE(files.saveFile(u"Save"_s, u"SnipVale Archive (*.SVA) |*.SVA"_s, u"SVA"_s).value_or(QString()),
                 folder.filePath(u"copy.SVA"_s));
        QFileDialog().setDirectory(QDir::rootPath()); // the toolkit remembers the one that was shown last
        whenModal([&](QWidget& window) {
            const auto& dialog = dynamic_cast<QFileDialog&>(window);
            window.close();
            QCOMPARE(dialog.nameFilters(), QStringList({u"All Files (*.*) (*)"_s}));
            QCOMPARE(dialog.directory().path(), folder.path()); // where the last file was chosen
        });
        QVERIFY(!files.openFile(u"Open "_s, u"All Files (*.*) |*.*"_s));
    }

    void instances()
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

    void aSecretIsMarkedAndGoes()
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
        std::make_unique<QtClipboard>()->copySecret(u"at the end"_s);
        QCOMPARE(desktop.text(), QString());
    }
};

SNIPVALE_TEST(tst_QtDesktop)
#include "tst_QtDesktop.moc"
