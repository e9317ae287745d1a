// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader gets from the code editor.
#include "memo/code/ScintillaMessages.h"
#include "memo/code/ui/CodeEditorAccessible.h"
#include "support/Registry.h"

#include <QAccessible>
#include <QtTest>

using namespace Qt::StringLiterals;

namespace {

// Events in words.
QString worded(const CodeEditorAccessible::Events& events)
{
    QStringList words;
    for (const auto& event : events) {
        if (event->type() == QAccessible::TextInserted) {
            const auto* const inserted = static_cast<QAccessibleTextInsertEvent*>(event.get());
            words.append(u"+%1 %2"_s.arg(inserted->changePosition()).arg(inserted->textInserted()));
        } else if (event->type() == QAccessible::TextRemoved) {
            const auto* const removed = static_cast<QAccessibleTextRemoveEvent*>(event.get());
            words.append(u"-%1 %2"_s.arg(removed->changePosition()).arg(removed->textRemoved()));
        } else if (event->type() == QAccessible::TextCaretMoved) {
            words.append(u"caret %1"_s.arg(static_cast<QAccessibleTextCursorEvent*>(event.get())->cursorPosition()));
        } else if (event->type() == QAccessible::TextSelectionChanged) {
            const auto* const selected = static_cast<QAccessibleTextSelectionEvent*>(event.get());
            words.append(u"selected %1 to %2"_s.arg(selected->selectionStart()).arg(selected->selectionEnd()));
        }
    }
    return words.join(u", "_s);
}

const QString sample = u"Сниппет 日本\nif \U0001F642 żab\nend"_s;

} // namespace

class tst_ScintillaViewReader : public QObject {
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void describes();
    void reads();
    void lines();
    void caretAndSelection();
    void geometry();
    void edits();
    void events();

private:
    std::unique_ptr<ScintillaView> m_view;
    QAccessibleInterface* m_reader = nullptr;
    QAccessibleTextInterface* m_text = nullptr;
};

void tst_ScintillaViewReader::init()
{
    m_view = std::make_unique<ScintillaView>();
    m_view->resize(400, 200);
    m_view->setText(sample.toUtf8());
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
    m_reader = QAccessible::queryAccessibleInterface(m_view.get());
    QVERIFY(m_reader);
    m_text = m_reader->textInterface();
    QVERIFY(m_text);
}

void tst_ScintillaViewReader::cleanup()
{
    m_view.reset();
}

void tst_ScintillaViewReader::describes()
{
    QCOMPARE(m_reader->role(), QAccessible::EditableText);
    QCOMPARE(m_reader->text(QAccessible::Name), u"Code"_s);
    QVERIFY(m_reader->text(QAccessible::Description).contains(u"Ctrl+Tab"));
    QCOMPARE(m_reader->text(QAccessible::Value), sample);
    m_view->setAccessibleName(u"Other"_s);
    QCOMPARE(m_reader->text(QAccessible::Name), u"Other"_s);
    QVERIFY(m_reader->state().multiLine && m_reader->state().editable && m_reader->state().focusable);
}

void tst_ScintillaViewReader::reads()
{
    QCOMPARE(m_text->characterCount(), sample.size());
    QCOMPARE(m_text->text(0, -1), sample);
    QCOMPARE(m_text->text(8, 10), u"日本"_s);
    QCOMPARE(m_text->text(14, 16), u"\U0001F642"_s);
    QCOMPARE(m_text->text(-5, 3), u"Сни"_s);
    QCOMPARE(m_text->text(20, 9000), sample.sliced(20));
    QCOMPARE(m_text->text(9, 8), QString());
    m_view->setText({});
    QCOMPARE(m_text->characterCount(), 0);
    QCOMPARE(m_text->text(0, 5), QString());
}

void tst_ScintillaViewReader::lines()
{
    int start = 0;
    int end = 0;
    QCOMPARE(m_text->textAtOffset(14, QAccessible::LineBoundary, &start, &end).trimmed(), u"if \U0001F642 żab"_s);
    QCOMPARE(start, 11);
    QCOMPARE(m_text->textAtOffset(1, QAccessible::WordBoundary, &start, &end), u"Сниппет"_s);
    QCOMPARE(m_text->textAtOffset(8, QAccessible::CharBoundary, &start, &end), u"日"_s);
    QCOMPARE(end, 9);
}

void tst_ScintillaViewReader::caretAndSelection()
{
    m_text->setCursorPosition(10);
    QCOMPARE(m_text->cursorPosition(), 10);
    QCOMPARE(m_view->send(SCI_GETCURRENTPOS), 7 * 2 + 1 + 2 * 3);
    m_text->setCursorPosition(15); // inside a pair: before it
    QCOMPARE(m_text->cursorPosition(), 14);
    QCOMPARE(m_text->selectionCount(), 0);
    m_text->setSelection(0, 16, 20);
    QCOMPARE(m_text->selectionCount(), 1);
    int start = 0;
    int end = 0;
    m_text->selection(0, &start, &end);
    QCOMPARE(m_text->text(start, end), u" żab"_s);
    m_text->removeSelection(0);
    QCOMPARE(m_text->selectionCount(), 0);
    m_text->setCursorPosition(100000);
    QCOMPARE(m_text->cursorPosition(), sample.size());
    m_text->setCursorPosition(-4);
    QCOMPARE(m_text->cursorPosition(), 0);
}

void tst_ScintillaViewReader::geometry()
{
    const QRect first = m_text->characterRect(11);
    const QRect next = m_text->characterRect(12);
    QVERIFY(first.width() > 1 && first.height() > 5);
    QCOMPARE(next.top(), first.top());
    QCOMPARE(next.left(), first.right() + 1);
    QVERIFY(m_reader->rect().contains(first));
    QVERIFY(m_text->characterRect(0).bottom() <= first.top());
    QCOMPARE(m_text->offsetAtPoint(next.center() - QPoint(1, 0)), 12);
    for (const int wild : {-1, 1 << 20})
        QVERIFY(m_text->characterRect(wild).isValid());
    int start = 0;
    int end = 0;
    QVERIFY(m_text->attributes(3, &start, &end).contains(u"font-family:\"Courier New\";"));
    QCOMPARE(start, 0);
    QCOMPARE(end, sample.size());
    m_view->setText("line\n"_ba.repeated(500));
    m_text->scrollToSubstring(2000, 2003);
    QVERIFY(m_reader->rect().contains(m_text->characterRect(2001)));
}

void tst_ScintillaViewReader::edits()
{
    QAccessibleEditableTextInterface* const edit = m_reader->editableTextInterface();
    QVERIFY(edit);
    QSignalSpy edited(m_view.get(), &ScintillaView::edited);
    edit->replaceText(14, 16, u"ż"_s);
    edit->insertText(0, u"\U0001F642"_s);
    edit->deleteText(2, 10);
    QCOMPARE(QString::fromUtf8(m_view->text()), u"\U0001F642日本\nif ż żab\nend"_s);
    QVERIFY(!edited.isEmpty());
}

void tst_ScintillaViewReader::events()
{
    QStringList changes;
    connect(m_view.get(), &QsciScintillaBase::SCN_MODIFIED, this,
            [&](int position, int type, const char* text, int length) {
                changes.append(worded(CodeEditorAccessible::changeEvents(
                    *m_view, position, QByteArray(text, length), (type & QsciScintillaBase::SC_MOD_INSERTTEXT))));
            });
    m_view->send(SCI_SETMODEVENTMASK, 3);
    m_text->setCursorPosition(10); // behind the two ideographs
    QCOMPARE(worded(CodeEditorAccessible::caretEvents(*m_view)), u"caret 10"_s);
    QTest::keyClick(m_view.get(), Qt::Key_X);
    QTest::keyClick(m_view.get(), Qt::Key_Backspace);
    QTest::keyClick(m_view.get(), Qt::Key_Backspace);
    QCOMPARE(changes, QStringList({u"+10 x"_s, u"-10 x"_s, u"-9 本"_s}));
    m_text->setSelection(0, 1, 9);
    QCOMPARE(worded(CodeEditorAccessible::caretEvents(*m_view)), u"caret 9, selected 1 to 9"_s);
}

SNIPVALE_TEST(tst_ScintillaViewReader)
#include "tst_ScintillaViewReader.moc"
