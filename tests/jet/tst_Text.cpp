// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Error.h"
#include "jet/LikePattern.h"
#include "jet/TextRules.h"
#include "support/Registry.h"

#include "jet/LikeReference.h"

#include <QtTest>
#include <random>

using namespace Qt::StringLiterals;

class tst_Text : public QObject {
    Q_OBJECT

private slots:
    void patterns();
    void randomPatterns();
    void brokenBytes();
    void order();
    void randomOrder();
};

namespace {

// Letters of every kind of case and script, with pairs that differ in case side by side.
const std::u32string letters = U"aAbBsSkKzZ .;äÄöÖßẞпПрРяЯωΩΣσςéÉ€文𐐀𐐨İıſK1ǆǅ٣Ḁḁ😀-";

std::string utf8(const std::u32string& text)
{
    return QString::fromUcs4(text.data(), qsizetype(text.size())).toStdString();
}

class Random {
public:
    unsigned below(size_t n) { return unsigned(m_engine() % n); }
    std::u32string text(size_t length)
    {
        std::u32string result;
        while (length--)
            result += letters[(m_shift + below(m_alphabet)) % letters.size()];
        return result;
    }
    void newAlphabet() // few letters make many hits
    {
        m_shift = below(letters.size());
        m_alphabet = 3 + below(letters.size() - 3);
    }
    std::u32string pattern(const std::u32string& text)
    {
        std::u32string result;
        if (below(3)) { // %text%, often a piece of the text in lower case
            result = below(2) ? text.substr(below(text.size()), 1 + below(20)) : this->text(1);
            std::transform(result.begin(), result.end(), result.begin(), jet::fold);
            return U'%' + result + U'%';
        }
        for (size_t n = below(8); n; --n) {
            const std::u32string two = this->text(2);
            const auto [low, high] = std::minmax({jet::fold(two[0]), jet::fold(two[1])});
            const std::u32string range{U'[', low, U'-', high, U']'};
            const std::u32string pieces[] = {U"[" + two + U"]", U"[!" + two + U"]", range, U"%", U"_"};
            const unsigned kind = below(8);
            result += kind < std::size(pieces) ? pieces[kind] : two.substr(1);
        }
        return result;
    }

private:
    std::mt19937 m_engine{7};
    size_t m_shift = 0, m_alphabet = 10;
};

} // namespace

void tst_Text::patterns()
{
    struct Row {
        const char* pattern;
        const char* text;
        bool matches;
    };
    // One letter stands for one; no # for a digit; the Kelvin sign is no k.
    constexpr Row rows[] = {{"%größe%", "Die GRÖSSE", false},
                            {"%größe%", "die GRÖßE", true},
                            {"C#%", "c# code", true},
                            {"a*", "abc", false},
                            {"100[%]", "1000", false},
                            {"a[[]b", "a[b", true},
                            {"a[]b", "ab", true},
                            {"[a-]", "-", true},
                            {"[!]", "!", true},
                            {"%k%", "\u212A", false},
                            {"", "", true},
                            {"_%", "", false},
                            {"%aab", "aaaaaaab", true}};
    for (const Row& row : rows)
        QVERIFY2(jet::LikePattern(row.pattern).matches(row.text) == row.matches, row.pattern);
    for (const char* pattern : {"[", "a[b", "%[", "[z-a]"})
        QVERIFY_THROWS_EXCEPTION(jet::Error, jet::LikePattern{pattern});
}

void tst_Text::randomPatterns()
{
    Random random;
    int hits = 0;
    for (int round = 0; round < 60'000; ++round) {
        random.newAlphabet();
        const std::u32string text = random.text(1 + random.below(70)), pattern = random.pattern(text);
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
            c = char(random());
        for (char& c : pattern)
            c = char(random() | 0x80);
        jet::LikePattern("%" + pattern + "%").matches(text);
        jet::LikePattern(pattern + "_%").matches(text);
        QVERIFY(jet::LikePattern("%needle%").matches(text + "NEEDLE"));
        QCOMPARE(jet::compareText(text, pattern), -jet::compareText(pattern, text));
    }
}

void tst_Text::order()
{
    const QStringList sorted = u"|_x|–|0|10|9|a|ab|äb|ac|b|é|éa|z|я|文"_s.split(u'|');
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
        QVERIFY2((ab > 0 || bc > 0 || ac <= 0) && (ab != 0 || bc == ac), (a + '|' + b + '|' + c).c_str());
    }
}

SNIPVALE_TEST(tst_Text)
#include "tst_Text.moc"
