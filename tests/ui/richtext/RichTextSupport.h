// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/richtext/RichTextBox.h"
#include "ui/richtext/Rtf.h"

#include <QStyle>
#include <QTextBlock>
#include <QTextList>
#include <QtTest>

// Documents as text, so that two of them can be compared and a difference can be read.

inline QString brushName(const QBrush& brush)
{
    return brush.style() == Qt::NoBrush ? QStringLiteral("-") : brush.color().name();
}

inline QString describeRun(const QTextFragment& run)
{
    const QTextCharFormat f = run.charFormat();
    QString out = f.fontFamilies().toStringList().value(0) + u' ' + QString::number(f.fontPointSize());
    const QString flags = QStringLiteral(" bold; italic; underline; strike; caps; smallcaps; super; sub");
    const bool isOn[] = {f.fontWeight() >= QFont::DemiBold,
                         f.fontItalic(),
                         f.fontUnderline(),
                         f.fontStrikeOut(),
                         f.fontCapitalization() == QFont::AllUppercase,
                         f.fontCapitalization() == QFont::SmallCaps,
                         f.verticalAlignment() == QTextCharFormat::AlignSuperScript,
                         f.verticalAlignment() == QTextCharFormat::AlignSubScript};
    for (qsizetype i = 0; i < 8; ++i)
        out += isOn[i] ? flags.split(u';')[i] : QString();
    out += u' ' + brushName(f.foreground()) + u'/' + brushName(f.background());
    return u'{' + out + (f.isAnchor() ? u' ' + f.anchorHref() : QString()) + u'|' + run.text() + u'}';
}

inline QString describeBlock(const QTextBlock& block)
{
    const QTextBlockFormat f = block.blockFormat();
    QString out =
        QStringLiteral("align%1").arg(QStyle::visualAlignment(f.layoutDirection(), f.alignment()).toInt() & 0xF);
    const char* const names[] = {" left", " first", " right", " before", " after", " line", " lineType"};
    const double sizes[] = {f.leftMargin(),   f.textIndent(), f.rightMargin(),           f.topMargin(),
                            f.bottomMargin(), f.lineHeight(), double(f.lineHeightType())};
    for (int i = 0; i < 7; ++i)
        out += sizes[i] != 0 ? QLatin1String(names[i]) + QString::number(sizes[i]) : QString();
    out += f.layoutDirection() == Qt::RightToLeft ? QStringLiteral(" rtl") : QString();
    out += u' ' + brushName(f.background());
    if (const QTextList* list = block.textList())
        out += QStringLiteral(" list%1 level%2 item%3")
                   .arg(-list->format().style())
                   .arg(list->format().indent())
                   .arg(list->itemNumber(block));
    return u'[' + out + u']';
}

inline QString describe(const QTextDocument& document)
{
    QString out;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        out += describeBlock(block);
        for (auto it = block.begin(); !it.atEnd(); ++it)
            out += describeRun(it.fragment());
        out += u'\n';
    }
    return out;
}

// Shown, because only a shown and active box takes keys as it does for a user.
struct Shown {
    explicit Shown(const QString& stored = {}) : edits(&box, &RichTextBox::edited)
    {
        box.resize(400, 200);
        box.setRtf(stored);
        box.show();
        QVERIFY(QTest::qWaitForWindowActive(&box));
        box.setFocus();
    }
    void select(int from, int to)
    {
        QTextCursor cursor = box.textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        box.setTextCursor(cursor);
    }
    void key(int k, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&box, Qt::Key(k), modifiers); }
    QString looks() const { return describe(*box.document()); }

    RichTextBox box;
    QSignalSpy edits;
};
