// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/richtext/RichTextMime.h"

#include "ui/richtext/Rtf.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

using namespace Qt::StringLiterals;

namespace {

const QStringList& rtfTypes()
{
    static const QStringList types{u"text/rtf"_s, u"application/rtf"_s, u"text/richtext"_s};
    return types;
}

class FragmentMime : public QMimeData {
public:
    FragmentMime(const QTextDocumentFragment& fragment, const QFont& standard)
        : m_fragment(fragment), m_standard(standard)
    {
    }

    QStringList formats() const override
    {
        return {u"text/plain"_s, u"text/html"_s, u"text/rtf"_s, u"application/rtf"_s};
    }

    bool hasFormat(const QString& type) const override { return formats().contains(type); }

protected:
    QVariant retrieveData(const QString& type, QMetaType) const override
    {
        if (type == "text/plain"_L1)
            return m_fragment.toPlainText();
        if (type == "text/html"_L1)
            return m_fragment.toHtml();
        if (!rtfTypes().contains(type))
            return {};
        QTextDocument document;
        document.setDefaultFont(m_standard);
        QTextCursor(&document).insertFragment(m_fragment);
        return rtf::write(document);
    }

private:
    QTextDocumentFragment m_fragment;
    QFont m_standard;
};

bool isWhite(const QBrush& brush)
{
    return brush.style() != Qt::NoBrush && brush.color().rgb() == QColor(Qt::white).rgb();
}

// Web pages paint the white of the page behind each piece that is copied from them.
void removeWhite(QTextDocument& document)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        QList<QTextFragment> white;
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            if (isWhite(it.fragment().charFormat().background()))
                white.append(it.fragment());
        }
        for (const QTextFragment& run : white) {
            QTextCharFormat format = run.charFormat();
            format.clearBackground();
            QTextCursor cursor(&document);
            cursor.setPosition(run.position());
            cursor.setPosition(run.position() + run.length(), QTextCursor::KeepAnchor);
            cursor.setCharFormat(format);
        }
        QTextBlockFormat format = block.blockFormat();
        if (isWhite(format.background())) {
            format.clearBackground();
            QTextCursor(block).setBlockFormat(format);
        }
    }
}

// A page that begins with a table comes with an empty paragraph before it.
void removeEmptyStart(QTextDocument& document)
{
    QTextCursor cursor(&document);
    while (document.blockCount() > 1 && document.begin().length() == 1)
        cursor.deleteChar();
}

} // namespace

QMimeData* mimeOf(const QTextDocumentFragment& fragment, const QFont& standard)
{
    return new FragmentMime(fragment, standard);
}

bool holdsText(const QMimeData& source)
{
    const QStringList& types = rtfTypes();
    const bool holdsRtf =
        std::any_of(types.begin(), types.end(), [&source](const QString& t) { return source.hasFormat(t); });
    return holdsRtf || source.hasHtml() || source.hasText();
}

std::optional<QTextDocumentFragment> fragmentOf(const QMimeData& source, const QFont& standard)
{
    QTextDocument document;
    document.setDefaultFont(standard);
    for (const QString& type : rtfTypes()) {
        if (source.hasFormat(type) && rtf::read(source.data(type), &document).ok)
            return QTextDocumentFragment(&document);
    }
    if (!source.hasHtml())
        return {};
    QTextDocument page;
    page.setUndoRedoEnabled(false);
    page.setDefaultFont(standard);
    page.setHtml(source.html());
    removeWhite(page);
    rtf::read(rtf::write(page), &document); // leaves pictures, tables and the like behind
    removeEmptyStart(document);
    return QTextDocumentFragment(&document);
}
