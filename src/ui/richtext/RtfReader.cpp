// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/richtext/RtfParser.h"

#include "desktop/TextForms.h"

#include <QStringDecoder>
#include <QTextDocument>
#include <algorithm>
#include <limits>
#include <utility>

namespace rtf {

namespace {

constexpr qsizetype deepest = 2000; // groups whose state is kept; deeper ones share the last
constexpr qsizetype longestName = 200;
constexpr qsizetype longestInstruction = 4096;
constexpr QByteArrayView signature("{\\rtf");

constexpr int westernCodePage = 1252;
constexpr int utf8CodePage = 65001;
constexpr int symbolCodePage = 42;
constexpr int macintoshCodePage = 10000;

bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

int hexDigit(char c)
{
    if (isDigit(c))
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// The code page of a font's \fcharset; 0 when the number says nothing.
int codePageOfCharset(int charset)
{
    struct Pair {
        int charset, codePage;
    };
    static constexpr Pair pairs[] = {{0, 1252},   {2, 42},     {77, 10000}, {128, 932},  {129, 949},
                                     {130, 1361}, {134, 936},  {136, 950},  {161, 1253}, {162, 1254},
                                     {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257}, {204, 1251},
                                     {222, 874},  {238, 1250}, {254, 437},  {255, 850}};
    const auto* it =
        std::find_if(std::begin(pairs), std::end(pairs), [charset](Pair p) { return p.charset == charset; });
    return it == std::end(pairs) ? 0 : it->codePage;
}

// True for the East Asian code pages, in which a second byte may look like ASCII.
bool isDoubleByte(int codePage)
{
    return codePage == 932 || codePage == 936 || codePage == 949 || codePage == 950 || codePage == 1361;
}

// The symbol fonts have no table of their own here: their two usual bullets are known, the rest goes to the
// private area, where such fonts keep it.
QString decodeSymbol(const QByteArray& bytes)
{
    QString text;
    for (const char byte : bytes) {
        const auto c = static_cast<uchar>(byte);
        if (c == 0xB7)
            text += QChar(0x2022);
        else if (c == 0xA7)
            text += QChar(0x25AA);
        else
            text += QChar(c < 0x80 ? c : 0xF000 + c);
    }
    return text;
}

// Never fails: an unknown code page is read as Windows-1252, an impossible byte becomes U+FFFD.
QString decode(int codePage, const QByteArray& bytes)
{
    if (codePage == symbolCodePage)
        return decodeSymbol(bytes);
    if (codePage == utf8CodePage)
        return QString::fromUtf8(bytes);
    const QByteArray name =
        codePage == macintoshCodePage ? QByteArray("macintosh") : "cp" + QByteArray::number(codePage);
    QStringDecoder decoder(name.constData());
    return decoder.isValid() && codePage != westernCodePage ? QString(decoder.decode(bytes)) : westernText(bytes);
}

// The target of HYPERLINK "address" \l "place"; empty when the instruction is another one.
QString linkTarget(const QString& instruction)
{
    const QString text = instruction.trimmed();
    const QString name = QStringLiteral("HYPERLINK");
    if (!text.startsWith(name, Qt::CaseInsensitive))
        return {};
    QString address, place;
    QString* next = &address;
    for (qsizetype i = name.size(); i < text.size(); ++i) {
        if (text[i].isSpace())
            continue;
        const bool isQuoted = text[i] == u'"';
        const qsizetype start = isQuoted ? i + 1 : i;
        const qsizetype stop = text.indexOf(isQuoted ? u'"' : u' ', start);
        const QString part = text.mid(start, stop < 0 ? -1 : stop - start);
        if (!isQuoted && part.startsWith(u'\\'))
            next = part == QStringLiteral("\\l") ? &place : next;
        else if (next->isEmpty())
            *next = part;
        i = stop < 0 ? text.size() : stop;
    }
    return place.isEmpty() ? address : address + u'#' + place;
}

// "{\rtf" at the start, after blanks and a byte order mark.
bool looksLikeRtf(const QByteArray& bytes)
{
    QByteArray start = bytes.left(64);
    if (start.startsWith("\xEF\xBB\xBF"))
        start = start.mid(3);
    return start.trimmed().startsWith(signature);
}

ReadInfo readInto(const QByteArray& bytes, Parser::Input input, QTextDocument* document)
{
    const bool hadUndo = document->isUndoRedoEnabled();
    document->setUndoRedoEnabled(false);
    document->clear();
    ReadInfo info;
    const qsizetype start = looksLikeRtf(bytes) ? bytes.indexOf(signature) : -1;
    if (start >= 0)
        info = Parser(bytes.mid(start), input, *document).run();
    document->setUndoRedoEnabled(hadUndo);
    return info;
}

} // namespace

Parser::Parser(const QByteArray& bytes, Input input, QTextDocument& document)
    : m_at(bytes.constData()), m_end(bytes.constData() + bytes.size()), m_input(input), m_builder(document, m_tables)
{
}

ReadInfo Parser::run()
{
    while (!atEnd()) {
        const char c = *m_at++;
        if (c == '{') {
            openGroup();
        } else if (c == '}') {
            closeGroup();
            if (m_depth == 0)
                break; // what follows is not part of the file
        } else if (c == '\\') {
            readControl();
        } else if (c != '\r' && c != '\n' && c != '\0') {
            readPlain(c);
        }
    }
    flushBytes();
    if (m_depth == 0) {
        m_state.para = m_lastPara;
        m_state.chars = m_lastChars;
    }
    m_builder.finish(m_state.para, m_state.chars);
    m_info.ok = true;
    return m_info;
}

void Parser::openGroup()
{
    flushBytes();
    m_skipped = 0;
    if (++m_depth <= deepest)
        m_outer.append(m_state);
    m_state.starred = false;
    m_state.instruction = false;
}

void Parser::closeGroup()
{
    flushBytes();
    m_skipped = 0;
    if (m_depth == 0)
        return;
    if (m_state.instruction)
        endInstruction();
    if (m_depth == m_linkDepth) {
        m_builder.setLink({});
        m_linkDepth = 0;
    }
    m_lastPara = m_state.para;
    m_lastChars = m_state.chars;
    if (m_depth <= m_outer.size()) {
        const bool wasOldList = m_state.dest == Dest::OldList;
        m_state = m_outer.takeLast();
        if (wasOldList)
            m_state.para.oldNumbering = m_lastPara.oldNumbering;
    }
    --m_depth;
}

void Parser::endInstruction()
{
    const QString target = linkTarget(m_instruction);
    m_instruction.clear();
    if (target.isEmpty())
        return;
    m_builder.setLink(target);
    m_linkDepth = m_depth - 1;
}

void Parser::readControl()
{
    if (atEnd())
        return;
    if (isLetter(*m_at))
        readWord();
    else
        readSymbol(*m_at++);
}

void Parser::readWord()
{
    const char* start = m_at;
    while (!atEnd() && isLetter(*m_at))
        ++m_at;
    const std::string_view name(start, static_cast<std::size_t>(m_at - start));
    Control control{0, 0, false};
    control.hasValue = readNumber(control.value);
    if (!atEnd() && *m_at == ' ')
        ++m_at;
    if (name == "bin") // that many bytes of anything
        m_at += std::clamp<std::ptrdiff_t>(control.value, 0, m_end - m_at);
    else
        doWord(name, control);
}

bool Parser::readNumber(int& value)
{
    constexpr int largest = std::numeric_limits<int>::max() / 10 - 1;
    const bool negative = m_end - m_at > 1 && *m_at == '-' && isDigit(m_at[1]);
    if (negative)
        ++m_at;
    const char* start = m_at;
    for (; !atEnd() && isDigit(*m_at); ++m_at) {
        if (value < largest)
            value = value * 10 + (*m_at - '0');
    }
    if (negative)
        value = -value;
    return m_at > start;
}

void Parser::readSymbol(char symbol)
{
    if (symbol == '\'')
        return readHex();
    if (symbol == '*') {
        m_state.starred = true;
        return;
    }
    if (m_skipped > 0) {
        --m_skipped;
        return;
    }
    if (skipping())
        return;
    const bool isEscaped = symbol == '\\' || symbol == '{' || symbol == '}';
    if (isEscaped && !m_bytes.isEmpty() && isDoubleByte(codePage())) {
        m_bytes += symbol; // perhaps the second byte of a character
        return;
    }
    flushBytes();
    if (isEscaped)
        put(QLatin1Char(symbol));
    else if (symbol == '~')
        put(QChar(QChar::Nbsp));
    else if (symbol == '-')
        put(QChar(QChar::SoftHyphen));
    else if (symbol == '_')
        put(QChar(0x2011));
    else if (symbol == '\t')
        put(u'\t');
    else if ((symbol == '\n' || symbol == '\r') && m_state.dest == Dest::Body)
        endParagraph({});
}

void Parser::readHex()
{
    if (m_end - m_at < 2) {
        m_at = m_end;
        return;
    }
    const int high = hexDigit(m_at[0]);
    const int low = hexDigit(m_at[1]);
    if (high < 0 || low < 0)
        return;
    m_at += 2;
    if (m_skipped > 0)
        --m_skipped;
    else if (!skipping())
        m_bytes += static_cast<char>(high * 16 + low);
}

void Parser::readPlain(char c)
{
    const bool isAscii = static_cast<uchar>(c) < 0x80;
    if (!isAscii && m_input == Input::Utf8)
        return readUtf8(c);
    if (m_skipped > 0) {
        --m_skipped;
        return;
    }
    if (skipping())
        return;
    if (isAscii && m_bytes.isEmpty())
        return put(QLatin1Char(c));
    m_bytes += c;
    if (isAscii && !isDoubleByte(codePage()))
        flushBytes();
}

void Parser::readUtf8(char lead)
{
    const auto byte = static_cast<uchar>(lead);
    const std::ptrdiff_t more = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : 1;
    const char* start = m_at - 1;
    m_at += qMin(more, m_end - m_at);
    if (m_skipped > 0) {
        --m_skipped;
        return;
    }
    if (skipping())
        return;
    flushBytes();
    const QString text = QString::fromUtf8(start, m_at - start);
    for (const QChar c : text)
        put(c);
}

void Parser::doWord(std::string_view name, Control control)
{
    const bool isStarred = std::exchange(m_state.starred, false);
    const Word* word = findWord(name, m_state.dest);
    if (usedUpByFallback(word) || skipping())
        return;
    flushBytes();
    if (word) {
        control.arg = word->arg;
        (this->*word->handler)(control);
    } else if (isStarred) {
        if (m_state.dest == Dest::Body)
            ++m_info.unknownDestinations;
        m_state.dest = Dest::Skip;
    }
}

// A symbol written as a word is one character of a fallback; any other word ends the fallback early.
bool Parser::usedUpByFallback(const Word* word)
{
    if (m_skipped == 0)
        return false;
    if (word && word->handler == &Parser::symbol) {
        --m_skipped;
        return true;
    }
    m_skipped = 0;
    return false;
}

int Parser::codePage() const
{
    const int number = m_state.dest == Dest::FontTable ? m_font : m_state.chars.font;
    const Font* font = m_tables.font(number);
    const int page = !font ? 0 : font->codePage != 0 ? font->codePage : codePageOfCharset(font->charset);
    return page != 0 ? page : m_codePage;
}

void Parser::flushBytes()
{
    if (m_bytes.isEmpty())
        return;
    const QString text = decode(codePage(), std::exchange(m_bytes, {}));
    for (const QChar c : text)
        put(c);
}

void Parser::put(QChar c)
{
    switch (m_state.dest) {
    case Dest::Body:
        if (!m_state.numberText)
            m_builder.add(c, m_state.chars);
        break;
    case Dest::FontTable:
        if (c != u';' && m_tables.fonts[m_font].name.size() < longestName)
            m_tables.fonts[m_font].name += c;
        break;
    case Dest::ColorTable:
        if (c == u';')
            m_tables.colors.append(std::exchange(m_color, QColor()));
        break;
    case Dest::FieldInstruction:
        if (m_instruction.size() < longestInstruction)
            m_instruction += c;
        break;
    default:
        break;
    }
}

ReadInfo read(const QByteArray& bytes, QTextDocument* document)
{
    return readInto(bytes, Parser::Input::CodePage, document);
}

ReadInfo read(const QString& text, QTextDocument* document)
{
    return readInto(text.toUtf8(), Parser::Input::Utf8, document);
}

} // namespace rtf
