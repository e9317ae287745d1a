// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
// What a screen reader gets from the code editor.
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
        if (const auto* inserted = dynamic_cast<QAccessibleTextInsertEvent*>(event.get()))
            words.append(u"+%1 %2"_s.arg(inserted->changePosition()).arg(inserted->textInserted()));
        else if (const auto* removed = dynamic_cast<QAccessibleTextRemoveEvent*>(event.get()))
            words.append(u"-%1 %2"_s.arg(removed->changePosition()).arg(removed->textRemoved()));
        else if (const auto* chosen = dynamic_cast<QAccessibleTextSelectionEvent*>(event.get()))
            words.append(u"selected %1 to %2"_s.arg(chosen->selectionStart()).arg(chosen->selectionEnd()));
        else if (const auto* caret = dynamic_cast<QAccessibleTextCursorEvent*>(event.get()))
            words.append(u"caret %1"_s.arg(caret->cursorPosition()));
    }
    return words.join(u", "_s);
}

const QString sample = u"Сниппет 日本\nif \U0001F642 żab\nend"_s;

} // namespace

class tst_ScintillaViewReader : public QObject {
    Q_OBJECT
private slots:
    void init();
    void reads();
    void caretAndSelection();
    void geometry();
    void edits();

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
    m_text = m_reader->textInterface();
    QVERIFY(m_text);
}

void tst_ScintillaViewReader::reads()
{
    QCOMPARE(m_reader->role(), QAccessible::EditableText);
    QCOMPARE(m_reader->text(QAccessible::Name), u"Code"_s);
    QVERIFY(m_reader->text(QAccessible::Description).contains(u"Ctrl+Tab"));
    QCOMPARE(m_reader->text(QAccessible::Value), sample);
    QVERIFY(m_reader->state().multiLine && m_reader->state().editable);
    QCOMPARE(m_text->characterCount(), sample.size());
    const std::tuple<int, int, QString> parts[] = {{0, -1, sample},
                                                   {8, 10, u"日本"_s},
                                                   {14, 16, u"\U0001F642"_s},
                                                   {-5, 3, u"Сни"_s},
                                                   {20, 9000, sample.sliced(20)},
                                                   {9, 8, {}}};
    for (const auto& [from, to, text] : parts)
        QCOMPARE(m_text->text(from, to), text);
    int start = 0;
    int end = 0;
    QCOMPARE(m_text->textAtOffset(14, QAccessible::LineBoundary, &start, &end).trimmed(), u"if \U0001F642 żab"_s);
    QCOMPARE(start, 11);
    m_view->setText({});
    QCOMPARE(m_text->text(0, 5), QString());
}

void tst_ScintillaViewReader::caretAndSelection()
{
    // Inside a pair the caret goes before it.
    for (const auto& [asked, got] : {std::pair(10, 10), {15, 14}, {100000, int(sample.size())}, {-4, 0}}) {
        m_text->setCursorPosition(asked);
        QCOMPARE(m_text->cursorPosition(), got);
    }
    QCOMPARE(m_text->selectionCount(), 0);
    m_text->setSelection(0, 16, 20);
    QCOMPARE(m_text->selectionCount(), 1);
    int start = 0;
    int end = 0;
    m_text->selection(0, &start, &end);
    QCOMPARE(m_text->text(start, end), u" żab"_s);
    m_text->removeSelection(0);
    QCOMPARE(m_text->selectionCount(), 0);
}

void tst_ScintillaViewReader::geometry()
{
    const QRect first = m_text->characterRect(11);
    const QRect next = m_text->characterRect(12);
    QVERIFY(first.width() > 1 && first.height() > 5 && next.top() == first.top());
    QCOMPARE(next.left(), first.right() + 1);
    QVERIFY(m_reader->rect().contains(first) && m_text->characterRect(0).bottom() <= first.top());
    QCOMPARE(m_text->offsetAtPoint(next.center() - QPoint(1, 0)), 12);
    for (const int wild : {-1, 1 << 20})
        QVERIFY(m_text->characterRect(wild).isValid());
    int start = 0;
    int end = 0;
    QVERIFY(m_text->attributes(3, &start, &end).contains(u"font-family:\"Courier New\";"));
    QVERIFY(start == 0 && end == sample.size());
}

void tst_ScintillaViewReader::edits()
{
    QStringList changes;
    connect(m_view.get(), &QsciScintillaBase::SCN_MODIFIED, this,
            [&](int position, int type, const char* text, int length) {
                changes.append(worded(CodeEditorAccessible::changeEvents(
                    *m_view, position, QByteArray(text, length), (type & QsciScintillaBase::SC_MOD_INSERTTEXT))));
            });
    m_view->send(SCI.SETMODEVENTMASK, 3);
    m_text->setCursorPosition(10); // behind the two ideographs
    QCOMPARE(worded(CodeEditorAccessible::caretEvents(*m_view)), u"caret 10"_s);
    QTest::keyClick(m_view.get(), Qt::Key_X);
    QTest::keyClick(m_view.get(), Qt::Key_Backspace);
    QCOMPARE(changes, QStringList({u"+10 x"_s, u"-10 x"_s}));
    m_text->setSelection(0, 1, 9);
    QCOMPARE(worded(CodeEditorAccessible::caretEvents(*m_view)), u"caret 9, selected 1 to 9"_s);
    QAccessibleEditableTextInterface* const edit = m_reader->editableTextInterface();
    edit->replaceText(14, 16, u"ż"_s);
    edit->insertText(0, u"\U0001F642"_s);
    edit->deleteText(2, 10);
    QCOMPARE(QString::fromUtf8(m_view->text()), u"\U0001F642日本\nif ż żab\nend"_s);
}

SNIPVALE_TEST(tst_ScintillaViewReader)
#include "tst_ScintillaViewReader.moc"
