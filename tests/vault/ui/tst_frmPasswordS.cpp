// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "vault/ui/VaultWindows.h"

#include "vault/ui/frmPasswordS.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>
#include <csignal>
#include <sys/resource.h>

namespace {

// The list in front, with three accounts: two of a category, one of none.
struct List : VaultWindows {
    List()
    {
        addCategory(u"Work"_s);
        addCategory(u"Bank"_s);
        add(u"mail"_s, u"me"_s, u"secret"_s, 1);
        add(u"shop"_s, u"世界"_s, u"a much longer secret"_s);
        add(u"Bank"_s, u"O'Brien"_s, u"x"_s, 2);
        window.resize(800, 400);
        window.show();
        window.setInFront(true);
    }
    QModelIndex cell(int row, int column) { return list.model()->index(row, column); }
    QString titles()
    {
        QStringList all;
        for (int row = 0; row < list.model()->rowCount(); ++row)
            all.append(cell(row, 0).data().toString());
        return all.join(u' ');
    }
    void choose(int first, int last)
    {
        list.setCurrentIndex(cell(first, 0));
        list.selectionModel()->select({cell(first, 0), cell(last, 0)},
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&list, key, modifiers); }
    QString enabled() // "New Lock", in the order of the alphabet
    {
        QStringList names;
        for (auto i = vaultFrame.enabledCommands.cbegin(); i != vaultFrame.enabledCommands.cend(); ++i)
            if (i.value())
                names.append(i.key().mid(10));
        names.sort();
        return names.join(u' ');
    }
    void exportTo(const QString& path, const QString& message)
    {
        vaultFiles.answers = {path};
        questions.expect(message);
        window.ExportPasswordsToTextFile();
    }
    frmPasswordS window{{archive, vaultDesktop, vaultFrame, filter, password, vault}};
    QTreeView& list = part<QTreeView>(window, "lvwPassword");
    QComboBox& category = part<QComboBox>(window, "cboCategory");
};

QByteArray contents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
}

} // namespace

class tst_frmPasswordS : public QObject {
    Q_OBJECT
private slots:
    void listing();
    void showingCopyingVisiting();
    void commands();
    void editing();
    void deleting();
    void exporting();
    void locking();
    void anUnreadableArchiveEmptiesNothing();
};

void tst_frmPasswordS::listing()
{
    List l;
    QCOMPARE(l.titles(), u"mail shop Bank"_s);
    QCOMPARE(l.cell(1, 2).data().toString(), u"世界"_s);
    QCOMPARE(l.cell(1, 0).data(Qt::UserRole).toString(), u"2 ItemID"_s);
    QVERIFY(l.cell(1, 0).data(Qt::DecorationRole).isValid()); // it has no category
    QVERIFY(!l.cell(0, 0).data(Qt::DecorationRole).isValid());
    for (const char* titles : {"Bank mail shop", "shop mail Bank"}) {
        QTest::mouseClick(l.list.header()->viewport(), Qt::LeftButton, {}, {10, 5});
        QCOMPARE(l.titles(), QLatin1String(titles));
    }
    l.choose(1, 1);
    l.window.MakeLvwContents();
    QCOMPARE(l.titles(), u"shop mail Bank"_s);
    QCOMPARE(l.list.currentIndex().data(Qt::UserRole).toString(), u"1 ItemID"_s);
    QCOMPARE(l.category.itemText(0) + l.category.itemText(1) + l.category.itemText(2), u"AllBankWork"_s);
    l.category.setCurrentIndex(1);
    QCOMPARE(l.titles() + l.vaultFrame.status, u"BankPassword -  items: 1"_s);
    l.execute(u"DELETE * FROM tab_passwordCategory WHERE name = 'Work'"_s);
    whenModal([](QWidget& manager) { manager.close(); });
    l.window.showCategories(); // reads both again, and the choice stays
    QCOMPARE(l.category.count(), 2);
    QCOMPARE(l.titles(), u"Bank"_s);
}

void tst_frmPasswordS::showingCopyingVisiting()
{
    List l;
    l.execute(u"UPDATE tab_password SET title = 'R&D', tab_password.URL = 'https://x/?a=''1''' WHERE passwordID = 2"_s);
    l.window.MakeLvwContents();
    l.choose(1, 1);
    QVERIFY(l.cell(1, 0).data(Qt::ToolTipRole).toString().contains(">R&amp;D<"_L1)); // escaped once
    QVERIFY(l.cell(1, 3).data(Qt::ToolTipRole).toString().isEmpty());
    for (int row = 0; row < 3; ++row)
        QCOMPARE(l.cell(row, 3).data().toString(), u"********"_s);
    QCOMPARE(l.cell(1, 3).data(Qt::UserRole + 1).toString(), u"a much longer secret"_s);
    l.press(Qt::Key_C, Qt::ControlModifier);
    l.press(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(l.clipboard.secrets, QStringList({u"a much longer secret"_s, u"世界"_s}));
    QVERIFY(QGuiApplication::clipboard()->text().isEmpty()); // the list did not copy by itself
    l.window.HideShowPwd();
    QCOMPARE(l.cell(1, 3).data().toString(), u"a much longer secret"_s);
    QVERIFY(l.vaultFrame.checkedCommands[u"miPasswordHideShow"_s]);
    l.window.setInFront(false);
    l.window.setInFront(true);
    QCOMPARE(l.cell(1, 3).data().toString(), u"********"_s);
    QVERIFY(!l.vaultFrame.checkedCommands[u"miPasswordHideShow"_s]);
    l.window.VisitURLPassword();
    QCOMPARE(l.shell.opened, QStringList({u"https://x/?a='1'"_s}));
    l.shell.hasPrograms = false;
    l.questions.expect(u"Error in VisitURLPassword: No program is set up to open this link."_s);
    l.press(Qt::Key_U, Qt::ControlModifier);
    l.choose(0, 0);
    l.questions.expect(u"URL not specified"_s);
    l.window.VisitURLPassword();
}

void tst_frmPasswordS::commands()
{
    List l;
    QCOMPARE(l.enabled(), u"Category Export HideShow Lock New"_s);
    l.choose(0, 0);
    QTest::mouseClick(l.list.viewport(), Qt::RightButton, {}, {20, 5});
    QCOMPARE(l.vaultFrame.menus, QStringList({u"mnuPassword"_s}));
    QCOMPARE(l.enabled(), u"Category CopyPwd CopyUserName Delete Export HideShow Lock Modify New VisitURL"_s);
    l.window.setInFront(false);
    QCOMPARE(l.enabled(), u"Lock"_s);
}

void tst_frmPasswordS::editing()
{
    List l;
    l.questions.expect(u"Please select the Password you want to modify!"_s);
    l.press(Qt::Key_Return);
    const auto answer = [](const QString& title) {
        whenModal([title](QWidget& editor) {
            for (const char* box : {"txtTitle", "txtUserName", "txtPassword"})
                part<QLineEdit>(editor, box).setText(title);
            part<QPushButton>(editor, "cmdOK").click();
        });
    };
    l.choose(0, 0);
    answer(u"letters"_s);
    QTest::mouseDClick(l.list.viewport(), Qt::LeftButton, {}, l.list.visualRect(l.cell(0, 1)).center());
    QCOMPARE(l.titles(), u"letters shop Bank"_s);
    QVERIFY(l.password.UserName.isEmpty()); // nothing of it stays in the record
    l.category.setCurrentIndex(2);
    answer(u"new"_s);
    l.press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(l.titles(), u"letters new"_s); // in the category that is shown
    QCOMPARE(l.list.currentIndex().data().toString(), u"new"_s);
}

void tst_frmPasswordS::deleting()
{
    List l;
    l.press(Qt::Key_Delete); // nothing is selected
    l.choose(0, 1);
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        QCOMPARE(l.titles(), u"mail shop Bank"_s);
        l.questions.expect(u"Are you sure you want to delete selected elements? "_s, answer);
        l.press(Qt::Key_Delete);
    }
    QVERIFY(l.statements.contains(u"DELETE * FROM tab_Password WHERE tab_Password.PasswordID IN ( 1, 2) "_s));
    QCOMPARE(l.titles(), u"Bank"_s);
    QVERIFY(l.list.selectionModel()->isSelected(l.cell(0, 0))); // the one after them
}

void tst_frmPasswordS::exporting()
{
    List l;
    const QString path = l.scratch.path(u"out.TXT"_s);
    l.questions.expect(u"You must select passwords to export"_s);
    l.window.ExportPasswordsToTextFile();
    l.choose(0, 1);
    l.execute(u"UPDATE tab_password SET tab_password.userName = Null WHERE passwordID = 2"_s);
    const QByteArray lines = "me|secret|\r\n------|a much longer secret|\r\n";
    for (const int earlierSize : {-1, 3, 300}) {
        if (earlierSize >= 0) // a file that everyone may read: the passwords they must not
            QVERIFY(QFile::resize(path, earlierSize) && QFile::setPermissions(path, QFile::Permissions(0x6644)));
        l.exportTo(path, u"Export to file completed."_s);
        QCOMPARE(contents(path), lines);
        QCOMPARE(int(QFile::permissions(path) & 0x77), 0); // group and others
    }
    QCOMPARE(l.vaultFiles.asked.first(), u"Choose file name...|Text file(*.TXT) |*.TXT"_s);
    // A disk that is full after 10 bytes.
    const QStringList files = QDir(l.scratch.folder()).entryList(QDir::Files);
    rlimit usual{};
    getrlimit(RLIMIT_FSIZE, &usual);
    const rlimit small{10, usual.rlim_max};
    std::signal(SIGXFSZ, SIG_IGN);
    setrlimit(RLIMIT_FSIZE, &small);
    l.exportTo(path, u"Errors were found exporting passwords to file."_s);
    setrlimit(RLIMIT_FSIZE, &usual);
    QCOMPARE(l.questions.asked.last().style, MessageStyle::Critical);
    QCOMPARE(contents(path), lines);
    QCOMPARE(QDir(l.scratch.folder()).entryList(QDir::Files), files);
    l.vaultFiles.behind = [&] { l.list.clearSelection(); };
    l.exportTo(path, u"Select password to export on file."_s);
}

void tst_frmPasswordS::locking()
{
    List l;
    l.choose(0, 0);
    l.window.HideShowPwd();
    l.press(Qt::Key_C, Qt::ControlModifier);
    l.window.Lock();
    QVERIFY(!l.vault.isUnlocked());
    QCOMPARE(l.titles() + l.clipboard.secrets.join(u' ') + l.enabled(), QString());
    QCOMPARE(l.vaultFrame.views, QStringList({u"Memo"_s}));
    for (const Qt::Key key : {Qt::Key_Insert, Qt::Key_Return, Qt::Key_Delete})
        l.press(key); // no question, no editor
    l.window.ExportPasswordsToTextFile();
    l.window.showCategories();
    l.window.setInFront(true);
    QCOMPARE(l.titles() + l.enabled(), QString());
    QVERIFY(l.vault.ResetMasterPwd()); // it was lost: the accounts are garbage now
    QCOMPARE(l.vault.ChooseMasterPassword(u"another password"_s), modPassword::Choice::Saved);
    l.window.setInFront(true);
    QCOMPARE(l.titles(), u"mail shop Bank"_s);
    QVERIFY(l.cell(0, 2).data().toString() != u"me"_s);
}

void tst_frmPasswordS::anUnreadableArchiveEmptiesNothing()
{
    List l;
    QVERIFY(QFile::rename(l.archive.ArchivePath(), l.scratch.path(u"moved.SVA"_s)));
    l.questions.expect(QString());
    l.questions.expect(QString());
    l.window.setInFront(true);
    QVERIFY(l.questions.asked.first().text.startsWith("Error in LoadComboCategory: "_L1));
    QVERIFY(l.questions.asked.last().text.startsWith("Error in MakeLvwContents: "_L1));
    QCOMPARE(l.titles(), u"mail shop Bank"_s);
    QCOMPARE(l.category.count(), 3);
}

SNIPVALE_TEST(tst_frmPasswordS)
#include "tst_frmPasswordS.moc"
