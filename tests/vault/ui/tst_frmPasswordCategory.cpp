// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "vault/ui/VaultWindows.h"

#include "vault/ui/frmPasswordCategory.h"

#include <QtWidgets>

class tst_frmPasswordCategory : public QObject {
    Q_OBJECT
private slots:
    void creating();
    void modifying();
    void deleting();
};

namespace {

struct Manager : VaultWindows {
    Manager()
    {
        addCategory(u"Bank"_s);
        addCategory(u"Work"_s);
        manager = std::make_unique<frmPasswordCategory>(archive, nullptr);
    }
    QTreeWidget& list() { return part<QTreeWidget>(*manager, "lvwCategory"); }
    QLineEdit& name() { return part<QLineEdit>(*manager, "txtName"); }
    QPlainTextEdit& description() { return part<QPlainTextEdit>(*manager, "txtDescription"); }
    void choose(int row) { list().setCurrentItem(list().topLevelItem(row)); }
    void press(const char* action, const QString& message, Answer answer = Answer::Ok)
    {
        questions.expect(message, answer);
        part<QAction>(*manager, action).trigger();
    }
    QString names()
    {
        QStringList all;
        for (int i = 0; i < list().topLevelItemCount(); ++i)
            all << list().topLevelItem(i)->text(0);
        return all.join(u' ');
    }
    std::unique_ptr<frmPasswordCategory> manager;
};

} // namespace

void tst_frmPasswordCategory::creating()
{
    Manager m;
    m.press("New", u"You must specify a name for the new category."_s);
    m.name().setText(u"Bank"_s);
    m.press("New", u"A category named 'Bank' already exists! Chose a different name."_s);
    const QString question = u"Are you sure you want to create the new category '%1' ? "_s;
    m.name().setText(u"bank's"_s);
    m.description().setPlainText(u"d'"_s);
    m.press("New", question.arg(u"bank's"), Answer::No);
    QCOMPARE(m.names(), u"Bank Work"_s);
    m.press("New", question.arg(u"bank's"), Answer::Yes);
    QCOMPARE(m.value(u"SELECT description FROM tab_passwordCategory WHERE passwordCategoryID = 3"_s), u"d'"_s);
    QCOMPARE(m.list().currentItem()->text(0), u"bank's"_s);
    m.name().setText(u"bank"_s); // letter case makes another name
    m.press("New", question.arg(u"bank"), Answer::Yes);
    QCOMPARE(m.names(), u"Bank Work bank's bank"_s);
}

void tst_frmPasswordCategory::modifying()
{
    Manager m;
    m.press("Modify", u"You must select a category in the list to modify it."_s);
    m.choose(1);
    QCOMPARE(m.name().text() + m.description().toPlainText(), u"Worka b"_s);
    m.name().clear();
    m.press("Modify", u"You must specify new category name"_s);
    m.name().setText(u"Bank"_s); // two of one name could not be told apart
    m.press("Modify", u"A category named 'Bank' already exists! Chose a different name."_s);
    m.name().setText(u"it's"_s);
    m.press("Modify", u"Are you sure you want to modify category 'Work' ? "_s, Answer::Yes);
    QCOMPARE(m.names(), u"Bank it's"_s);
    QCOMPARE(m.list().currentItem()->text(0), u"it's"_s);
    m.execute(u"DELETE * FROM tab_passwordCategory WHERE passwordCategoryID = 2"_s); // by another program
    m.questions.expect(u"Are you sure you want to modify category 'it's' ? "_s, Answer::Yes);
    m.press("Modify", u"Error in Toolbar1_ButtonClick: The category is no longer in the archive."_s);
}

void tst_frmPasswordCategory::deleting()
{
    Manager m;
    m.press("Delete", u"You must select a category in the list to delete it."_s);
    m.add(u"t"_s, u"u"_s, u"p"_s, 1);
    m.add(u"t"_s, u"u"_s, u"p"_s, 2);
    m.choose(0);
    const QString question = u"Are you sure you want delete category 'Bank' ? \r\n(Passwords will NOT be deleted)"_s;
    for (const Answer answer : {Answer::No, Answer::Yes}) {
        QCOMPARE(m.names(), u"Bank Work"_s);
        m.press("Delete", question, answer);
    }
    QCOMPARE(m.names(), u"Work"_s);
    QCOMPARE(m.column("passwordCategoryID") + m.column("passwordCategoryID", 2), u"02"_s);
}

SNIPVALE_TEST(tst_frmPasswordCategory)
#include "tst_frmPasswordCategory.moc"
