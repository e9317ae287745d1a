// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/richtext/Rtf.h"

#include "desktop/TextForms.h"

#include <QFont>
#include <QStyle>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextList>
#include <QTextTable>

namespace rtf {

namespace {

constexpr int listStep = 720; // twips between two list levels
constexpr int listHang = -360; // twips that the number stands out to the left
constexpr int indentStep = 600; // twips of one step of QTextBlockFormat::indent, 40 pixels

int twips(double pixels)
{
    return qRound(pixels * 15);
}

QByteArray word(const char* name, int value)
{
    return name + QByteArray::number(value);
}

// The Windows-1252 byte of a character above ASCII, or 0 when it has none.
int westernByte(char16_t character)
{
    if (character >= 0xA0 && character <= 0xFF)
        return character;
    static const QString high = [] {
        QByteArray bytes;
        for (int byte = 0x80; byte < 0xA0; ++byte)
            bytes += static_cast<char>(byte);
        return westernText(bytes);
    }();
    const qsizetype place = character < 0x100 ? -1 : high.indexOf(QChar(character));
    return place < 0 ? 0 : 0x80 + static_cast<int>(place);
}

void appendEscaped(QByteArray& out, char16_t c)
{
    const int western = westernByte(c);
    out += word("\\u", static_cast<qint16>(c)) + "\\'" + QByteArray::number(western != 0 ? western : '?', 16);
}

QByteArray escaped(QStringView text)
{
    QByteArray out;
    for (const QChar character : text) {
        const char16_t c = character.unicode();
        if (c == u'\\' || c == u'{' || c == u'}')
            out.append('\\').append(static_cast<char>(c));
        else if (c == u'\t')
            out += "\\tab ";
        else if (c == QChar::LineSeparator || c == u'\n')
            out += "\\line ";
        else if (c == QChar::Nbsp)
            out += "\\~";
        else if (c == QChar::SoftHyphen)
            out += "\\-";
        else if (c < 0x20 || c == QChar::ObjectReplacementCharacter)
            continue; // pictures have no place in a note
        else if (c < 0x80)
            out += static_cast<char>(c);
        else
            appendEscaped(out, c);
    }
    return out;
}

// Braces and backslashes in an address break readers that do not undo escapes there.
QByteArray escapedAddress(QString address)
{
    static constexpr struct {
        char16_t plain;
        const char* percent;
    } replaced[] = {{u'"', "%22"}, {u'{', "%7B"}, {u'}', "%7D"}, {u'\\', "%5C"}};
    for (const auto& [plain, percent] : replaced)
        address.replace(QChar(plain), QLatin1String(percent));
    return escaped(address);
}

double pointSize(const QTextCharFormat& format, const QFont& standard)
{
    double points = standard.pointSizeF() > 0 ? standard.pointSizeF() : standard.pixelSize() * 0.75;
    if (format.hasProperty(QTextFormat::FontPointSize))
        points = format.fontPointSize();
    else if (format.hasProperty(QTextFormat::FontPixelSize))
        points = format.intProperty(QTextFormat::FontPixelSize) * 0.75;
    if (format.hasProperty(QTextFormat::FontSizeAdjustment)) { // HTML's sizes from -2 to +4
        static constexpr double factors[] = {0.6, 0.8, 1.0, 1.2, 1.5, 2.0, 2.4};
        points *= factors[qBound(0, format.intProperty(QTextFormat::FontSizeAdjustment) + 2, 6)];
    }
    return points;
}

QColor colorOf(const QBrush& brush)
{
    return brush.style() == Qt::NoBrush || brush.color().alpha() == 0 ? QColor() : brush.color();
}

int levelOf(const QTextBlock& block)
{
    const int indent = block.textList()->format().indent() + block.blockFormat().indent();
    return qBound(0, indent - 1, maxListLevels - 1);
}

const QTextTable* tableOf(const QTextBlock& block)
{
    return qobject_cast<const QTextTable*>(block.document()->frameAt(block.position()));
}

// True when `block` ends a cell and another cell of the same row follows it.
bool endsInnerCell(const QTextBlock& block)
{
    const QTextTable* table = tableOf(block);
    if (!table || !block.next().isValid() || tableOf(block.next()) != table)
        return false;
    const QTextTableCell cell = table->cellAt(block.position());
    const QTextTableCell next = table->cellAt(block.next().position());
    return cell.row() == next.row() && cell.column() != next.column();
}

class Writer {
public:
    explicit Writer(const QTextDocument& document);
    QByteArray run();

private:
    int fontNumber(const QString& family);
    int colorNumber(const QColor& color);
    int listNumber(QTextList* list);
    QByteArray chars(const QTextCharFormat& format);
    QByteArray colors(const QTextCharFormat& format);
    QByteArray paragraphFormat(const QTextBlock& block);
    QByteArray indents(const QTextBlock& block);
    QByteArray lineHeight(const QTextBlockFormat& format) const;
    QByteArray listItem(const QTextBlock& block);
    QByteArray content(const QTextBlock& block);
    QByteArray fontTable() const;
    QByteArray colorTable() const;
    QByteArray listTables() const;

    const QTextDocument& m_document;
    QFont m_font;
    QStringList m_fonts;
    QList<QRgb> m_colors;
    QList<QTextList*> m_lists;
};

Writer::Writer(const QTextDocument& document) : m_document(document), m_font(document.defaultFont())
{
    fontNumber(m_font.family());
}

QByteArray Writer::run()
{
    QByteArray body;
    bool inRow = false; // the cells of a row are one paragraph
    for (QTextBlock block = m_document.begin(); block.isValid(); block = block.next()) {
        if (!inRow)
            body += paragraphFormat(block);
        body += content(block) + "\\plain" + chars(block.charFormat());
        inRow = endsInnerCell(block);
        body += inRow ? "\\tab " : "\\par\r\n";
    }
    return "{\\rtf1\\ansi\\ansicpg1252\\uc1\\deff0" + fontTable() + colorTable() + listTables() + body + "}\r\n";
}

int Writer::fontNumber(const QString& family)
{
    if (!m_fonts.contains(family))
        m_fonts.append(family);
    return static_cast<int>(m_fonts.indexOf(family));
}

int Writer::colorNumber(const QColor& color)
{
    if (!m_colors.contains(color.rgb()))
        m_colors.append(color.rgb());
    return static_cast<int>(m_colors.indexOf(color.rgb())) + 1;
}

int Writer::listNumber(QTextList* list)
{
    if (!m_lists.contains(list))
        m_lists.append(list);
    return static_cast<int>(m_lists.indexOf(list)) + 1;
}

QByteArray Writer::chars(const QTextCharFormat& format)
{
    const QString family = format.fontFamilies().toStringList().value(0);
    QByteArray out = word("\\f", fontNumber(family.isEmpty() ? m_font.family() : family));
    out += word("\\fs", qMax(2, qRound(pointSize(format, m_font) * 2)));
    if (format.fontWeight() >= QFont::DemiBold)
        out += "\\b";
    if (format.fontItalic())
        out += "\\i";
    if (format.fontUnderline())
        out += "\\ul";
    if (format.fontStrikeOut())
        out += "\\strike";
    if (format.fontCapitalization() == QFont::AllUppercase)
        out += "\\caps";
    else if (format.fontCapitalization() == QFont::SmallCaps)
        out += "\\scaps";
    if (format.verticalAlignment() == QTextCharFormat::AlignSuperScript)
        out += "\\super";
    else if (format.verticalAlignment() == QTextCharFormat::AlignSubScript)
        out += "\\sub";
    return out + colors(format);
}

QByteArray Writer::colors(const QTextCharFormat& format)
{
    QByteArray out;
    const QColor background = colorOf(format.background());
    QColor color = colorOf(format.foreground());
    if (format.isAnchor() && color.isValid() && color.rgb() == linkColor().rgb())
        color = writtenLinkColor();
    if (color.isValid() && !isAutomatic(color, background))
        out += word("\\cf", colorNumber(color));
    if (background.isValid()) { // three words, because each reader knows another one
        const int number = colorNumber(background);
        out += word("\\chshdng0\\chcbpat", number) + word("\\cb", number) + word("\\highlight", number);
    }
    return out;
}

QByteArray Writer::paragraphFormat(const QTextBlock& block)
{
    const QTextBlockFormat format = block.blockFormat();
    QByteArray out = "\\pard";
    if (block.textList())
        out += listItem(block);
    out += indents(block);
    if (format.rightMargin() > 0)
        out += word("\\ri", twips(format.rightMargin()));
    if (format.topMargin() > 0)
        out += word("\\sb", twips(format.topMargin()));
    if (format.bottomMargin() > 0)
        out += word("\\sa", twips(format.bottomMargin()));
    out += lineHeight(format);
    const QColor background = colorOf(format.background());
    if (background.isValid())
        out += word("\\cbpat", colorNumber(background));
    if (format.layoutDirection() == Qt::RightToLeft)
        out += "\\rtlpar";
    const Qt::Alignment seen = QStyle::visualAlignment(format.layoutDirection(), format.alignment());
    out += seen.testFlag(Qt::AlignHCenter) ? "\\qc"
        : seen.testFlag(Qt::AlignRight)    ? "\\qr"
        : seen.testFlag(Qt::AlignJustify)  ? "\\qj"
                                           : "\\ql";
    return out + ' ';
}

QByteArray Writer::indents(const QTextBlock& block)
{
    if (block.textList())
        return word("\\fi", listHang) + word("\\li", listStep * (levelOf(block) + 1));
    const QTextBlockFormat format = block.blockFormat();
    const int left = twips(format.leftMargin()) + format.indent() * indentStep;
    const int first = twips(format.textIndent());
    return (first != 0 ? word("\\fi", first) : QByteArray()) + (left != 0 ? word("\\li", left) : QByteArray());
}

QByteArray Writer::lineHeight(const QTextBlockFormat& format) const
{
    switch (format.lineHeightType()) {
    case QTextBlockFormat::ProportionalHeight:
        return word("\\sl", qRound(format.lineHeight() * 2.4)) + "\\slmult1";
    case QTextBlockFormat::FixedHeight:
        return word("\\sl", -twips(format.lineHeight())) + "\\slmult0";
    case QTextBlockFormat::MinimumHeight:
        return word("\\sl", twips(format.lineHeight())) + "\\slmult0";
    default:
        return {};
    }
}

// The number as text for readers without lists, the old and the new way to say it for the others.
QByteArray Writer::listItem(const QTextBlock& block)
{
    QTextList* list = block.textList();
    const int numbering = numberingOf(list->format().style());
    const QByteArray place = word("\\ls", listNumber(list)) + word("\\ilvl", levelOf(block));
    if (numbering == Bullet)
        return "{\\listtext\\plain\\u8226\\'95\\tab}{\\*\\pn\\pnlvlblt" + place + "\\pnindent360{\\pntxtb\\'95}}" +
            place;
    static constexpr const char* kinds[] = {"\\pndec", "\\pnucrm", "\\pnlcrm", "\\pnucltr", "\\pnlcltr"};
    QByteArray out = "{\\listtext\\plain " + escaped(list->itemText(block).trimmed()) + "\\tab}{\\*\\pn\\pnlvlbody";
    out += kinds[numbering] + place;
    if (list->itemNumber(block) == 0)
        out += "\\pnstart1";
    return out + "\\pnindent360{\\pntxta.}}" + place;
}

QByteArray Writer::content(const QTextBlock& block)
{
    QByteArray out;
    for (auto it = block.begin(); !it.atEnd(); ++it) {
        const QTextFragment fragment = it.fragment();
        const QTextCharFormat format = fragment.charFormat();
        const QByteArray run = "{\\plain" + chars(format) + ' ' + escaped(fragment.text()) + '}';
        const QString address = format.anchorHref();
        if (!format.isAnchor() || address.isEmpty())
            out += run;
        else if (address.startsWith(u'#'))
            out += "{\\field{\\*\\fldinst{HYPERLINK \\\\l \"" + escapedAddress(address.mid(1)) + "\"}}{\\fldrslt" +
                run + "}}";
        else
            out += "{\\field{\\*\\fldinst{HYPERLINK \"" + escapedAddress(address) + "\"}}{\\fldrslt" + run + "}}";
    }
    return out;
}

QByteArray Writer::fontTable() const
{
    QByteArray out = "{\\fonttbl";
    for (int i = 0; i < m_fonts.size(); ++i) {
        QString name = m_fonts[i];
        out += word("{\\f", i) + "\\fnil\\fcharset0 " + escaped(name.remove(u';')) + ";}";
    }
    return out + "}\r\n";
}

QByteArray Writer::colorTable() const
{
    QByteArray out = "{\\colortbl ;";
    for (const QRgb color : m_colors)
        out += word("\\red", qRed(color)) + word("\\green", qGreen(color)) + word("\\blue", qBlue(color)) + ';';
    return out + "}\r\n";
}

QByteArray Writer::listTables() const
{
    constexpr int firstId = 5000;
    if (m_lists.isEmpty())
        return {};
    QByteArray table, overrides;
    for (int i = 0; i < m_lists.size(); ++i) {
        const int numbering = numberingOf(m_lists[i]->format().style());
        table += word("{\\list\\listtemplateid", 1000 + i);
        for (int level = 0; level < maxListLevels; ++level) {
            table += word("{\\listlevel\\levelnfc", numbering) + "\\leveljc0\\levelstartat1\\levelfollow0{\\leveltext";
            table += numbering == Bullet ? QByteArray("\\'01\\u8226 ?;}{\\levelnumbers;}")
                                         : word("\\'02\\'0", level) + ".;}{\\levelnumbers\\'01;}";
            table += word("\\fi", listHang) + word("\\li", listStep * (level + 1)) + '}';
        }
        table += word("\\listid", firstId + i) + "}\r\n";
        overrides += word("{\\listoverride\\listid", firstId + i) + word("\\listoverridecount0\\ls", i + 1) + '}';
    }
    return "{\\*\\listtable" + table + "}{\\*\\listoverridetable" + overrides + "}\r\n";
}

} // namespace

QByteArray write(const QTextDocument& document)
{
    return Writer(document).run();
}

} // namespace rtf
