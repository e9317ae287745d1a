// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QGuiApplication>
#include <QPalette>
#include <QStyle>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
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
    const std::pair<bool, const char*> flags[] = {
        {f.fontWeight() >= QFont::DemiBold, " bold"},
        {f.fontItalic(), " italic"},
        {f.fontUnderline(), " underline"},
        {f.fontStrikeOut(), " strike"},
        {f.fontCapitalization() == QFont::AllUppercase, " caps"},
        {f.fontCapitalization() == QFont::SmallCaps, " smallcaps"},
        {f.verticalAlignment() == QTextCharFormat::AlignSuperScript, " super"},
        {f.verticalAlignment() == QTextCharFormat::AlignSubScript, " sub"}};
    for (const auto& [isOn, name] : flags)
        out += QLatin1String(isOn ? name : "");
    out += u' ' + brushName(f.foreground()) + u'/' + brushName(f.background());
    return u'{' + out + (f.isAnchor() ? u' ' + f.anchorHref() : QString()) + u'|' + run.text() + u'}';
}

inline QString describeBlock(const QTextBlock& block)
{
    const QTextBlockFormat f = block.blockFormat();
    QString out =
        QStringLiteral("align%1").arg(QStyle::visualAlignment(f.layoutDirection(), f.alignment()).toInt() & 0xF);
    const std::pair<double, const char*> sizes[] = {{f.leftMargin(), "left"},        {f.textIndent(), "first"},
                                                    {f.rightMargin(), "right"},      {f.topMargin(), "before"},
                                                    {f.bottomMargin(), "after"},     {f.lineHeight(), "line"},
                                                    {f.lineHeightType(), "lineType"}};
    for (const auto& [size, name] : sizes)
        out += size != 0 ? u' ' + QLatin1String(name) + QString::number(size) : QString();
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
