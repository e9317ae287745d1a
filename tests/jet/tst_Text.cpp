// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/LikePattern.h"
#include "jet/TextRules.h"
#include "jet/Value.h"
#include "support/Registry.h"

#include "jet/LikeReference.h"

#include <QtTest>
#include <random>

using namespace Qt::StringLiterals;

class tst_Text : public QObject {
    Q_OBJECT

private slots:
    void patterns_data();
    void patterns();
    void badPatterns();
    void randomPatterns();
    void brokenBytes();
    void order();
    void randomOrder();
};

namespace {

// Letters of every kind of case and script, with pairs that differ in case side by side.
const std::u32string letters = U"aAbBsSkKzZ .;_äÄöÖßẞпПрРяЯωΩΣσςéÉ€文𐐀𐐨İıſK1ǆǅ٣Ḁḁ😀-";

std::string utf8(const std::u32string& text)
{
    return QString::fromUcs4(text.data(), static_cast<qsizetype>(text.size())).toStdString();
}

class Random {
public:
    unsigned below(size_t n) { return static_cast<unsigned>(m_engine() % n); }
    char32_t letter() { return letters[(m_shift + below(m_alphabet)) % letters.size()]; }
    std::u32string text(size_t length)
    {
        std::u32string result;
        while (length--)
            result += letter();
        return result;
    }
    void newAlphabet() // few letters make many hits
    {
        m_shift = below(letters.size());
        m_alphabet = 3 + below(letters.size() - 3);
    }
    char32_t otherCase(char32_t c)
    {
        const auto at = letters.find(c);
        return at + 1 < letters.size() && below(2) && jet::fold(letters[at + 1]) == jet::fold(c) ? letters[at + 1] : c;
    }
    std::u32string pattern(const std::u32string& text)
    {
        std::u32string result;
        if (below(3)) { // %text%, often a piece of the text in other cases
            result =
                below(2) && !text.empty() ? text.substr(below(text.size()), 1 + below(20)) : this->text(1 + below(4));
            for (char32_t& c : result)
                c = c == U'_' ? U'.' : otherCase(c);
            return U'%' + result + U'%';
        }
        for (size_t n = below(8); n; --n) {
            const unsigned kind = below(8);
            const char32_t first = letter(), second = letter();
            if (kind == 0)
                result += U"[" + std::u32string(below(2) ? U"!" : U"") + first + second + U"]";
            else if (kind == 1)
                result += U"[" + std::u32string(1, std::min(jet::fold(first), jet::fold(second))) + U"-" +
                    std::max(jet::fold(first), jet::fold(second)) + U"]";
            else
                result += kind == 2 ? U'%' : kind == 3 ? U'_' : first;
        }
        return result;
    }

private:
    std::mt19937 m_engine{7};
    size_t m_shift = 0, m_alphabet = 10;
};

} // namespace

void tst_Text::patterns_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("matches");
    const auto row = [](const char* pattern, const char* text, bool matches) {
        QTest::addRow("%s on %s", pattern, text) << QString::fromUtf8(pattern) << QString::fromUtf8(text) << matches;
    };
    row("%größe%", "Die GRÖSSE", false); // one letter for one
    row("%größe%", "die GRÖßE", true);
    row("%привет%", "Скажи ПРИВЕТ!", true);
    row("C#%", "c# code", true); // no digit sign here
    row("a*", "abc", false);
    row("100[%]", "100%", true);
    row("100[%]", "1000", false);
    row("a[_]b", "axb", false);
    row("a[[]b", "a[b", true);
    row("a[]b", "ab", true);
    row("[!a-c]x", "dx", true);
    row("[^a-c]x", "Bx", false);
    row("[a-]", "-", true);
    row("[!]", "!", true);
    row("_", "文", true);
    row("%k%", "\u212A", false); // the Kelvin sign is no k
    row("", "", true);
    row("%", "", true);
    row("_%", "", false);
    row("%a%b%", "xxAxxBxx", true);
    row("%aab", "aaaaaaab", true);
}

void tst_Text::patterns()
{
    QFETCH(QString, pattern);
    QFETCH(QString, text);
    QTEST(jet::LikePattern(pattern.toStdString()).matches(text.toStdString()), "matches");
}

void tst_Text::badPatterns()
{
    for (const char* pattern : {"[", "a[b", "%[", "[z-a]"})
        QVERIFY_THROWS_EXCEPTION(jet::Error, jet::LikePattern{pattern});
}

void tst_Text::randomPatterns()
{
    Random random;
    int hits = 0;
    for (int round = 0; round < 60'000; ++round) {
        random.newAlphabet();
        const std::u32string text = random.text(random.below(70)), pattern = random.pattern(text);
        const bool expected = likeReference(pattern, text);
        hits += expected;
        QVERIFY2(jet::LikePattern(utf8(pattern)).matches(utf8(text)) == expected,
                 (utf8(pattern) + " on " + utf8(text) + (expected ? " must match" : " must not match")).c_str());
    }
    QVERIFY(hits > 5'000);
}

// Bytes that are no UTF-8 must do no harm, and what is around them is found.
void tst_Text::brokenBytes()
{
    std::mt19937 random(3);
    for (int round = 0; round < 10'000; ++round) {
        std::string text(random() % 40, ' '), pattern(random() % 6, ' ');
        for (char& c : text)
            c = static_cast<char>(random());
        for (char& c : pattern)
            c = static_cast<char>(random() | 0x80);
        jet::LikePattern("%" + pattern + "%").matches(text);
        jet::LikePattern(pattern + "_%").matches(text);
        QVERIFY(jet::LikePattern("%needle%").matches(text + "NEEDLE"));
        QCOMPARE(jet::compareText(text, pattern), -jet::compareText(pattern, text));
    }
}

void tst_Text::order()
{
    const QStringList sorted{u""_s,   u"_x"_s, u"–"_s, u"0"_s, u"10"_s, u"9"_s, u"a"_s, u"ab"_s,
                             u"äb"_s, u"ac"_s, u"b"_s, u"é"_s, u"éa"_s, u"z"_s, u"я"_s, u"文"_s};
    for (qsizetype i = 0; i < sorted.size(); ++i)
        for (qsizetype k = 0; k < sorted.size(); ++k) {
            const int found = jet::compareText(sorted[i].toUpper().toStdString(), sorted[k].toStdString());
            QVERIFY2((found < 0) == (i < k) && (found > 0) == (i > k), qPrintable(sorted[i] + u" and "_s + sorted[k]));
        }
}

void tst_Text::randomOrder()
{
    Random random;
    for (int round = 0; round < 60'000; ++round) {
        random.newAlphabet();
        const std::string a = utf8(random.text(random.below(4))), b = utf8(random.text(random.below(4))),
                          c = utf8(random.text(random.below(4)));
        const int ab = jet::compareText(a, b), bc = jet::compareText(b, c), ac = jet::compareText(a, c);
        QCOMPARE(jet::compareText(b, a), -ab);
        QVERIFY2(!(ab <= 0 && bc <= 0 && ac > 0), (a + '|' + b + '|' + c).c_str());
        QVERIFY2(ab != 0 || bc == ac, (a + '|' + b + '|' + c).c_str());
    }
}

SNIPVALE_TEST(tst_Text)
#include "tst_Text.moc"
