// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "ui/print/PrintPages.h"

#include <QByteArray>
#include <QColor>
#include <QFont>
#include <QStringList>
#include <functional>
#include <vector>

class QTextLayout;
class ScintillaView;

// How a style of the code looks.
struct CodeLook {
    QColor fore = Qt::black;
    QColor back; // invalid: that of the paper
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool visible = true;
    int letterCase = 0; // 0 as typed, 1 upper, 2 lower
};

// Code with the style number of each byte.
struct StyledCode {
    QByteArray text; // UTF-8
    QByteArray styles; // as long as the text
    std::vector<CodeLook> looks; // of styles 0 to 255
    QString family; // the font's
    int tabWidth = 4; // columns
};

// What the editor shows, all of it: folds and scrolling do not count. Styles what was not in sight yet.
StyledCode styledCodeOf(ScintillaView& editor);

// Code with line numbers in a grey gutter. Long lines go on in the next row, a little to the right.
class CodeColumn final : public PrintColumn {
public:
    using Step = std::function<bool(int done, int of)>;

    CodeColumn(const StyledCode& code, const PrintPaper& paper);
    bool wrap(const Step& step); // false when it was stopped; needed before everything else

    int rowCount() const override { return int(m_rows.size()); }
    qreal heightOf(int) const override { return m_rowHeight; }
    void paint(QPainter& painter, qreal top, int first, int end) const override;

private:
    struct Row {
        int line;
        int start; // UTF-16 units within the line
        int length;
    };
    struct Line {
        QString text; // as it is printed
        QByteArray styles; // one a UTF-16 unit
    };

    void takeLines(const StyledCode& code);
    int addCharacter(QStringView character, char style, int tabBlanks);
    void measure(const QString& family);
    qreal room(int start) const;
    bool wrapQuickly(int line, int start);
    int wrapPiece(int line, int start);
    void prepare(QTextLayout& layout) const;
    void dress(QTextLayout& layout, const Line& line,
               int start) const; // the layout's text begins at `start` of the line
    void paintNumber(QPainter& painter, int line, qreal baseline) const;

    PrintPaper m_paper;
    std::vector<CodeLook> m_looks;
    std::vector<Line> m_lines;
    std::vector<Row> m_rows;
    QFont m_font;
    QFont m_numberFont;
    qreal m_advance = 1; // of a character
    bool m_isUniform = true; // bold and italic type is as wide
    qreal m_rowHeight = 1;
    qreal m_ascent = 1;
    qreal m_gutter = 0; // width
    qreal m_indent = 0; // of a line's second and further rows
};
