// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Registry.h"
#include "vault/ui/VaultWindows.h"

#include "vault/ui/frmPasswordCategory.h"

#include <QAction>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTreeWidget>

namespace {

struct Manager : VaultWindows {
    Manager()
    {
        addCategory(u"Bank"_s);
        addCategory(u"Work"_s);
        window = std::make_unique<frmPasswordCategory>(archive, nullptr);
        window->show();
    }
    QTreeWidget& list() { return part<QTreeWidget>(*window, "lvwCategory"); }
    QLineEdit& name() { return part<QLineEdit>(*window, "txtName"); }
    QPlainTextEdit& description() { return part<QPlainTextEdit>(*window, "txtDescription"); }
    void choose(int row) { list().setCurrentItem(list().topLevelItem(row)); }
    void click(const char* action) { part<QAction>(*window, action).trigger(); }
    void click(const char* action, const QString& message, const QString& title = u"SnipVale"_s,
               Answer answer = Answer::Ok)
    {
        questions.expect(message, answer);
        click(action);
        QCOMPARE(questions.asked.last().title, title);
    }
    QString names()
    {
        QStringList all;
        for (int i = 0; i < list().topLevelItemCount(); ++i)
            all << list().topLevelItem(i)->text(0);
        return all.join(u' ');
    }
    std::unique_ptr<frmPasswordCategory> window;
};

} // namespace

class tst_frmPasswordCategory : public QObject {
    Q_OBJECT
private slots:
    void creating();
    void modifying();
    void deleting();
};

void tst_frmPasswordCategory::creating()
{
    Manager m;
    QCOMPARE(m.list().topLevelItem(1)->data(0, Qt::UserRole).toString(), u"2 ItemID"_s);
    m.click("New", u"You must specify a name for the new category."_s);
    m.name().setText(u"Bank"_s);
    m.click("New", u"A category named 'Bank' already exists! Chose a different name."_s);
    const QString question = u"Are you sure you want to create the new category 'bank's' ? "_s;
    m.name().setText(u"bank's"_s);
    m.description().setPlainText(u"d'"_s);
    m.click("New", question, u"New category"_s, Answer::No);
    QCOMPARE(m.names(), u"Bank Work"_s);
    m.click("New", question, u"New category"_s, Answer::Yes);
    QCOMPARE(m.names(), u"Bank Work bank's"_s);
    QCOMPARE(m.value(u"SELECT description FROM tab_passwordCategory WHERE passwordCategoryID = 3"_s), u"d'"_s);
    QCOMPARE(m.list().currentItem()->text(0), u"bank's"_s);
    m.name().setText(u"bank"_s); // letter case makes another name
    m.click("New", u"Are you sure you want to create the new category 'bank' ? "_s, u"New category"_s, Answer::Yes);
    QCOMPARE(m.names(), u"Bank Work bank's bank"_s);
    m.click("Close");
    QVERIFY(!m.window->isVisible());
}

void tst_frmPasswordCategory::modifying()
{
    Manager m;
    m.click("Modify", u"You must select a category in the list to modify it."_s);
    m.choose(1);
    QCOMPARE(m.name().text() + m.description().toPlainText(), u"Worka b"_s);
    m.name().clear();
    m.click("Modify", u"You must specify new category name"_s);
    m.name().setText(u"Bank"_s); // two of one name could not be told apart
    m.click("Modify", u"A category named 'Bank' already exists! Chose a different name."_s);
    m.name().setText(u"it's"_s);
    const QString question = u"Are you sure you want to modify category 'Work' ? "_s;
    m.click("Modify", question, u"Modify category"_s, Answer::Yes);
    QCOMPARE(m.names(), u"Bank it's"_s);
    QCOMPARE(m.list().currentItem()->text(0), u"it's"_s);
}

void tst_frmPasswordCategory::deleting()
{
    Manager m;
    m.click("Delete", u"You must select a category in the list to delete it."_s);
    m.add(u"t"_s, u"u"_s, u"p"_s, 1);
    m.choose(0);
    const QString question = u"Are you sure you want delete category 'Bank' ? \r\n(Passwords will NOT be deleted)"_s;
    m.click("Delete", question, u"Delete category"_s, Answer::Yes);
    QCOMPARE(m.names(), u"Work"_s);
    QCOMPARE(m.column("title") + m.column("passwordCategoryID"), u"t0"_s);
    // Another program deletes one.
    m.execute(u"DELETE * FROM tab_passwordCategory WHERE name = 'Work'"_s);
    m.choose(0);
    QCOMPARE(m.name().text(), u"Not found"_s);
    QCOMPARE(m.description().toPlainText(), u"Cannot found element"_s);
    m.questions.expect(u"Are you sure you want to modify category 'Work' ? "_s, Answer::Yes);
    m.questions.expect(u"Error in Toolbar1_ButtonClick: The category is no longer in the archive."_s);
    m.click("Modify");
}

SNIPVALE_TEST(tst_frmPasswordCategory)
#include "tst_frmPasswordCategory.moc"
