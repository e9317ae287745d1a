// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/ui/MemoPrintCode.h"

#include "memo/code/ScintillaText.h"
#include "memo/code/ui/ScintillaView.h"
#include "ui/widgets/Colors.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

constexpr int styleCount = 256;
constexpr int pieceLength = 1024; // of a very long line, in UTF-16 units: what is laid out at once
constexpr int continuationColumns = 4;
constexpr qreal codePoints = 9;
constexpr qreal numberPoints = 7.5;
constexpr QColor gutterColor(0xF2, 0xF2, 0xF2);
constexpr QColor numberColor(0x69, 0x69, 0x69);

// Paper is white: a background is printed when it marks something out and is light.
QColor paperBack(const QColor& back, const QColor& usual)
{
    return back == usual || back == Qt::white || back.lightnessF() < 0.8F ? QColor() : back;
}

CodeLook lookOf(const ScintillaView& editor, int style, const QColor& usualBack)
{
    using Sci = QsciScintillaBase;
    const auto ask = [&](unsigned message) { return editor.SendScintilla(message, static_cast<unsigned long>(style)); };
    const auto color = [&](unsigned message) { return colorOfNumber(static_cast<std::uint32_t>(ask(message))); };
    CodeLook look;
    look.back = paperBack(color(Sci::SCI_STYLEGETBACK), usualBack);
    look.fore = readableOn(color(Sci::SCI_STYLEGETFORE), look.back.isValid() ? look.back : QColor(Qt::white));
    look.bold = ask(Sci::SCI_STYLEGETBOLD) != 0;
    look.italic = ask(Sci::SCI_STYLEGETITALIC) != 0;
    look.underline = ask(Sci::SCI_STYLEGETUNDERLINE) != 0;
    look.visible = ask(Sci::SCI_STYLEGETVISIBLE) != 0;
    look.letterCase = int(ask(Sci::SCI_STYLEGETCASE));
    return look;
}

// How many bytes of the UTF-8 text became this character, which begins at `byte`.
qsizetype bytesOf(char32_t character, const QByteArray& utf8, qsizetype byte)
{
    if (character == 0xFFFD && !QByteArrayView(utf8).sliced(byte).startsWith("\xEF\xBF\xBD"))
        return 1; // a byte that is no UTF-8
    return character < 0x80 ? 1 : character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
}

QChar inCase(QChar c, int letterCase)
{
    return letterCase == 1 ? c.toUpper() : letterCase == 2 ? c.toLower() : c;
}

QTextCharFormat formatOf(const CodeLook& look)
{
    QTextCharFormat format;
    format.setForeground(look.fore);
    if (look.back.isValid())
        format.setBackground(look.back);
    if (look.bold)
        format.setFontWeight(QFont::Bold);
    if (look.italic)
        format.setFontItalic(true);
    if (look.underline)
        format.setFontUnderline(true);
    return format;
}

} // namespace

StyledCode styledCodeOf(ScintillaView& editor)
{
    StyledCode code;
    editor.SendScintilla(QsciScintillaBase::SCI_COLOURISE, 0UL, -1L);
    code.text = editor.text();
    const qsizetype length = code.text.size();
    QByteArray cells(2 * length + 2, '\0'); // a character and its style each, and two zeros
    if (length > 0)
        editor.SendScintilla(QsciScintillaBase::SCI_GETSTYLEDTEXT, 0L, long(length), cells.data());
    code.styles.resize(length);
    for (qsizetype i = 0; i < length; ++i)
        code.styles[i] = cells[2 * i + 1];
    const QColor usual = colorOfNumber(
        static_cast<std::uint32_t>(editor.SendScintilla(QsciScintillaBase::SCI_STYLEGETBACK, ulong{STYLE_DEFAULT})));
    for (int style = 0; style < styleCount; ++style)
        code.looks.push_back(lookOf(editor, style, usual));
    code.family = editor.fontNameOf(STYLE_DEFAULT);
    code.tabWidth = int(editor.SendScintilla(QsciScintillaBase::SCI_GETTABWIDTH));
    return code;
}

CodeColumn::CodeColumn(const StyledCode& code, const PrintPaper& paper) : m_paper(paper), m_looks(code.looks)
{
    takeLines(code);
    measure(code.family);
}

void CodeColumn::takeLines(const StyledCode& code)
{
    const QString text = textOf(code.text);
    const int tabWidth = std::max(1, code.tabWidth);
    qsizetype byte = 0;
    int column = 0;
    m_lines.emplace_back();
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair = text[i].isHighSurrogate() && i + 1 < text.size();
        const char32_t c = isPair ? QChar::surrogateToUcs4(text[i], text[i + 1]) : text[i].unicode();
        const char style = code.styles[byte];
        byte += bytesOf(c, code.text, byte);
        if (c == u'\n' || c == u'\r') {
            if (c == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') {
                ++i;
                ++byte;
            }
            m_lines.emplace_back();
            column = 0;
            continue;
        }
        column += addCharacter(QStringView(text).sliced(i, isPair ? 2 : 1), style, tabWidth - column % tabWidth);
        i += isPair ? 1 : 0;
    }
    while (m_lines.size() > 1 && m_lines.back().text.isEmpty())
        m_lines.pop_back(); // nothing is lost, and no page is wasted
}

// One character, or a pair, at the end of the last line. Gives the columns that it takes; a tab is this many blanks.
int CodeColumn::addCharacter(QStringView character, char style, int tabBlanks)
{
    Line& line = m_lines.back();
    const CodeLook& look = m_looks[static_cast<unsigned char>(style)];
    if (!look.visible)
        return 0;
    const bool isTab = character.front() == u'\t';
    if (isTab)
        line.text += QString(tabBlanks, u' ');
    else if (character.size() > 1)
        line.text += character;
    else
        line.text += inCase(QChar(printable(character.front().unicode())), look.letterCase);
    line.styles.append(line.text.size() - line.styles.size(), style);
    return isTab ? tabBlanks : 1;
}

void CodeColumn::measure(const QString& family)
{
    m_font = QFont(family);
    m_font.setStyleHint(QFont::Monospace);
    if (!QFontInfo(m_font).fixedPitch())
        m_font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    m_font.setPointSizeF(codePoints);
    m_font.setKerning(false);
    m_numberFont = m_font;
    m_numberFont.setPointSizeF(numberPoints);
    for (const bool bold : {false, true}) {
        for (const bool italic : {false, true}) {
            QFont font = m_font;
            font.setBold(bold);
            font.setItalic(italic);
            const qreal advance = QFontMetricsF(font, m_paper.device).horizontalAdvance(u'M');
            m_isUniform = m_isUniform && (m_advance <= 1 || std::abs(advance - m_advance) < 1);
            m_advance = std::max(m_advance, advance);
        }
    }
    const QFontMetricsF metrics(m_font, m_paper.device);
    m_rowHeight = std::ceil(metrics.height() * 1.08);
    m_ascent = metrics.ascent();
    const qsizetype digits = std::max<qsizetype>(2, QString::number(m_lines.size()).size());
    const qreal digit = QFontMetricsF(m_numberFont, m_paper.device).horizontalAdvance(u'9');
    m_gutter = std::ceil(digit * qreal(digits) + m_paper.points(8));
    m_indent = m_advance * continuationColumns;
}

// The width that a row has which begins at this unit of its line.
qreal CodeColumn::room(int start) const
{
    return m_paper.size.width() - m_gutter - m_paper.points(4) - (start > 0 ? m_indent : 0);
}

bool CodeColumn::wrap(const Step& step)
{
    const int count = int(m_lines.size());
    for (int line = 0; line < count; ++line) {
        int start = 0;
        do {
            if (!step(line, count))
                return false;
            start += wrapQuickly(line, start) ? int(m_lines[size_t(line)].text.size()) : wrapPiece(line, start);
        } while (start < m_lines[size_t(line)].text.size());
    }
    return true;
}

// A line, or the rest of one, that surely fits is not laid out: nearly all lines of nearly all code.
bool CodeColumn::wrapQuickly(int line, int start)
{
    const QStringView rest = QStringView(m_lines[size_t(line)].text).sliced(start);
    if (qreal(rest.size()) * m_advance > room(start))
        return false;
    const auto isPlain = [](QChar c) { return c.unicode() >= 0x20 && c.unicode() < 0x7F; };
    if (!std::all_of(rest.begin(), rest.end(), isPlain))
        return false;
    m_rows.push_back({line, start, int(rest.size())});
    return true;
}

// Lays out a piece of a line and gives how many units of it have found their rows. The last row of a piece that is not
// the last begins the next one, so that it is filled.
int CodeColumn::wrapPiece(int line, int start)
{
    const Line& whole = m_lines[size_t(line)];
    int length = std::min(pieceLength, int(whole.text.size()) - start);
    const bool isLast = start + length == whole.text.size();
    if (!isLast && whole.text[start + length].isLowSurrogate())
        --length;
    QTextLayout layout(whole.text.mid(start, length), m_font, m_paper.device);
    prepare(layout);
    if (!m_isUniform) // else bold and italic letters are as wide as the others, and colours do not matter here
        dress(layout, whole, start);
    const size_t before = m_rows.size();
    layout.beginLayout();
    int taken = 0;
    for (QTextLine row = layout.createLine(); row.isValid(); row = layout.createLine()) {
        row.setLineWidth(room(start + taken));
        m_rows.push_back({line, start + row.textStart(), row.textLength()});
        taken = row.textStart() + row.textLength();
    }
    layout.endLayout();
    if (m_rows.size() == before) { // an empty line
        m_rows.push_back({line, start, length});
        return length;
    }
    if (!isLast && m_rows.size() > before + 1) {
        taken -= m_rows.back().length;
        m_rows.pop_back();
    }
    return taken;
}

void CodeColumn::prepare(QTextLayout& layout) const
{
    QTextOption option;
    option.setTextDirection(Qt::LeftToRight); // code begins on the left, as in the editor
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
}

void CodeColumn::dress(QTextLayout& layout, const Line& line, int start) const
{
    QList<QTextLayout::FormatRange> formats;
    const int length = int(layout.text().size());
    for (int at = 0; at < length;) {
        int end = at + 1;
        while (end < length && line.styles[start + end] == line.styles[start + at])
            ++end;
        const CodeLook& look = m_looks[static_cast<unsigned char>(line.styles[start + at])];
        formats.append({at, end - at, formatOf(look)});
        at = end;
    }
    layout.setFormats(formats);
}

void CodeColumn::paint(QPainter& painter, qreal top, int first, int end) const
{
    painter.fillRect(QRectF(0, top, m_gutter, m_rowHeight * (end - first)), gutterColor);
    for (int i = first; i < end; ++i, top += m_rowHeight) {
        const Row& row = m_rows[size_t(i)];
        const qreal baseline = top + m_ascent;
        if (row.start == 0)
            paintNumber(painter, row.line, baseline);
        if (row.length == 0)
            continue;
        const Line& line = m_lines[size_t(row.line)];
        QTextLayout layout(line.text.mid(row.start, row.length), m_font, m_paper.device);
        prepare(layout);
        dress(layout, line, row.start);
        layout.beginLayout();
        QTextLine text = layout.createLine();
        text.setLineWidth(m_paper.size.width() * 8); // it was measured: nothing may go into another row
        layout.endLayout();
        layout.draw(&painter, QPointF(m_paper.size.width() - room(row.start), baseline - text.ascent()));
    }
}

void CodeColumn::paintNumber(QPainter& painter, int line, qreal baseline) const
{
    const QString number = QString::number(line + 1);
    const qreal width = QFontMetricsF(m_numberFont, m_paper.device).horizontalAdvance(number);
    painter.setFont(m_numberFont);
    painter.setPen(numberColor);
    painter.drawText(QPointF(m_gutter - m_paper.points(4) - width, baseline), number);
    painter.setPen(Qt::black);
}
