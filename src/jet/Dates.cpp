// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "jet/Dates.h"

#include "jet/Types.h"

#include <QLocale>
#include <QTimeZone>
#include <array>
#include <cmath>
#include <cstdio>
#include <optional>

using namespace Qt::StringLiterals;

namespace jet {
namespace {

struct Moment {
    int year = 1899, month = 12, day = 30; // what a time alone means
    int hour = 0, minute = 0, second = 0;

    bool isValid() const
    {
        return year >= 100 && year <= 9999 && QDate::isValid(year, month, day) && QTime::isValid(hour, minute, second);
    }
};

std::string stored(const Moment& m)
{
    std::array<char, 80> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d", m.year, m.month, m.day, m.hour, m.minute,
                  m.second);
    return text.data();
}

Moment momentOf(const QDate& date, const QTime& time)
{
    return {date.year(), date.month(), date.day(), time.hour(), time.minute(), time.second()};
}

enum class Parts { YearMonthDay, MonthDayYear, DayMonthYear };

Parts partsOf(DateOrder order)
{
    if (order == DateOrder::MonthFirst)
        return Parts::MonthDayYear;
    const QString format = QLocale().dateFormat(QLocale::ShortFormat);
    const auto year = format.indexOf(u'y'), month = format.indexOf(u'M'), day = format.indexOf(u'd');
    if (format.contains(u"MMM")) // says nothing about dates that are all digits
        return Parts::MonthDayYear;
    if (year < month && year < day)
        return Parts::YearMonthDay;
    return day < month ? Parts::DayMonthYear : Parts::MonthDayYear;
}

int wholeYear(int year, int digits)
{
    return digits > 2 ? year : year + (year < 30 ? 2000 : 1900);
}

// Reads numeric dates and times by hand: a list reads two for each of its rows.
class MomentReader {
public:
    MomentReader(std::string_view text, DateOrder order) : m_text(text), m_order(order) { }

    std::optional<Moment> read()
    {
        skipBlanks();
        const bool timeAlone = startsWithTime();
        if (!timeAlone && !readDay())
            return std::nullopt;
        skipBlanks();
        if ((timeAlone || m_at < m_text.size()) && !readTime(!timeAlone))
            return std::nullopt;
        skipBlanks();
        return m_at == m_text.size() && m_moment.isValid() ? std::optional(m_moment) : std::nullopt;
    }

private:
    char peek() const { return m_at < m_text.size() ? m_text[m_at] : '\0'; }
    bool skip(char c) { return peek() == c && ++m_at; }
    void skipBlanks()
    {
        while (skip(' ')) { }
    }
    bool startsWithTime() const
    {
        const auto end = m_text.find_first_not_of("0123456789", m_at);
        return end != m_text.npos && m_text[end] == ':';
    }
    int number(int& value, int most) // how many digits it had
    {
        int digits = 0;
        for (value = 0; digits < most && peek() >= '0' && peek() <= '9'; ++digits)
            value = value * 10 + (m_text[m_at++] - '0');
        return digits;
    }
    bool separator(char& wanted)
    {
        const char c = peek();
        if ((c != '-' && c != '/' && c != '.') || (wanted && c != wanted))
            return false;
        wanted = c;
        ++m_at;
        if (c == '.') // 7. 3. 2024
            skipBlanks();
        return true;
    }
    bool readDay()
    {
        int first = 0, second = 0, third = 0;
        char mark = 0;
        const int digits = number(first, 4);
        if (!digits || !separator(mark) || !number(second, 2) || !separator(mark))
            return false;
        const int lastDigits = number(third, 4);
        if (!lastDigits)
            return false;
        if (mark == '.')
            skip('.'); // 2024. 3. 7.
        return arrange(first, digits, second, third, lastDigits, mark) && afterDay();
    }
    // What comes first: a long number is the year, a dot means the day, else it is a matter of the region.
    bool arrange(int first, int digits, int second, int third, int lastDigits, char mark)
    {
        const Parts parts = digits > 2 || lastDigits > 2 || first > 31 ? Parts::MonthDayYear : partsOf(m_order);
        if (digits > 2 || parts == Parts::YearMonthDay) {
            m_moment = {wholeYear(first, digits), second, third};
            return lastDigits <= 2;
        }
        m_moment.year = wholeYear(third, lastDigits);
        const bool dayFirst = mark == '.' || first > 12 || (second <= 12 && partsOf(m_order) == Parts::DayMonthYear);
        m_moment.month = dayFirst ? second : first;
        m_moment.day = dayFirst ? first : second;
        return true;
    }
    bool afterDay()
    {
        if (skip('T') || skip(','))
            return m_at < m_text.size();
        return m_at == m_text.size() || peek() == ' ';
    }
    bool readTime(bool afterDay)
    {
        const std::string half = readWord();
        skipBlanks();
        char mark = ':';
        if (!number(m_moment.hour, 2))
            return false;
        if (afterDay && peek() == '.') // 7.3.2024 9.05
            mark = '.';
        if (!skip(mark) || !number(m_moment.minute, 2))
            return false;
        if (skip(mark) && !number(m_moment.second, 2))
            return false;
        int ignored = 0;
        if (skip('.') && !number(ignored, 9)) // parts of a second
            return false;
        skipBlanks();
        return applyHalf(half.empty() ? readWord() : half);
    }
    std::string readWord() // of letters; the dots of a.m. are dropped
    {
        std::string word;
        for (char c = peek(); (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c == '.' && !word.empty());
             c = peek()) {
            if (c != '.')
                word += c;
            ++m_at;
        }
        return upper(word);
    }
    bool applyHalf(const std::string& word)
    {
        if (word.empty())
            return true;
        if ((word != "AM" && word != "PM") || m_moment.hour < 1 || m_moment.hour > 12)
            return false;
        m_moment.hour = m_moment.hour % 12 + (word == "PM" ? 12 : 0);
        return true;
    }

    std::string_view m_text;
    DateOrder m_order;
    size_t m_at = 0;
    Moment m_moment;
};

// The short forms that have month names or digits of another script.
std::optional<Moment> readRegional(const QString& text, const QLocale& locale)
{
    QDateTime moment = locale.toDateTime(text, QLocale::ShortFormat);
    if (!moment.isValid())
        moment = locale.toDate(text, QLocale::ShortFormat).startOfDay();
    if (!moment.isValid())
        return std::nullopt;
    if (moment.date().year() < 1930 && !locale.dateFormat(QLocale::ShortFormat).contains(u"yyyy"))
        moment = moment.addYears(100);
    return momentOf(moment.date(), moment.time());
}

// Digits of any script, the region's words for morning and evening and marks of direction made plain.
QString plainText(const QString& text, const QLocale& locale)
{
    QString plain;
    for (const char32_t c : text.toUcs4())
        if (QChar::isDigit(c))
            plain += QChar(u'0' + QChar::digitValue(c));
        else if (QChar::category(c) != QChar::Other_Format)
            plain += QString::fromUcs4(&c, 1);
    plain.replace(locale.amText(), u" AM"_s).replace(locale.pmText(), u" PM"_s);
    return plain.simplified();
}

std::optional<Moment> readAny(std::string_view utf8, DateOrder order)
{
    if (const auto moment = MomentReader(utf8, order).read())
        return moment;
    if (utf8.size() > 200) // no date is that long, and what follows is slow
        return std::nullopt;
    const QString text = QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
    if (const auto moment = MomentReader(plainText(text, QLocale()).toStdString(), order).read())
        return moment;
    for (const QLocale& locale : {QLocale(), QLocale::c()})
        if (const auto moment = readRegional(text.trimmed(), locale); moment && moment->isValid())
            return moment;
    return std::nullopt;
}

// Two digits at `p`, or something above 99.
unsigned pair(const char* p)
{
    const unsigned tens = static_cast<unsigned char>(p[0]) - unsigned('0');
    const unsigned ones = static_cast<unsigned char>(p[1]) - unsigned('0');
    return tens > 9 || ones > 9 ? 1000 : tens * 10 + ones;
}

std::optional<Moment> readStored(std::string_view text)
{
    if (text.size() != 19 || text[4] != '-' || text[7] != '-' || text[10] != ' ' || text[13] != ':' || text[16] != ':')
        return std::nullopt;
    const char* p = text.data();
    const std::array<unsigned, 7> n{pair(p),      pair(p + 2),  pair(p + 5), pair(p + 8),
                                    pair(p + 11), pair(p + 14), pair(p + 17)};
    for (const unsigned part : n)
        if (part > 99)
            return std::nullopt;
    const auto at = [&](size_t i) { return int(n[i]); };
    return Moment{at(0) * 100 + at(1), at(2), at(3), at(4), at(5), at(6)};
}

LocalMoment local(const Moment& m)
{
    const QDate date(m.year, m.month, m.day);
    const QTime time(m.hour, m.minute, m.second);
    return date.isValid() && time.isValid() ? LocalMoment{date, time} : LocalMoment();
}

} // namespace

std::string parseDate(std::string_view text, DateOrder order)
{
    if (const auto moment = readAny(text, order))
        return stored(*moment);
    fail("Syntax error in date: '" + std::string(text.substr(0, 60)) + "'");
}

std::string dateFromSerial(double days)
{
    if (!(days > -657435 && days < 2958466))
        fail("Overflow: not a date");
    // Below zero too, the fraction counts forward within the day.
    QDate date = QDate(1899, 12, 30).addDays(qint64(days));
    qint64 seconds = std::llround(std::fabs(days - std::trunc(days)) * 86400.0);
    if (seconds == 86400) {
        date = date.addDays(1);
        seconds = 0;
    }
    const Moment moment = momentOf(date, QTime(0, 0).addSecs(int(seconds)));
    if (!moment.isValid())
        fail("Overflow: not a date");
    return stored(moment);
}

std::string storedDate(const QDateTime& moment)
{
    const QDateTime here = moment.toLocalTime();
    const Moment parts = momentOf(here.date(), here.time());
    if (!parts.isValid())
        fail("Overflow: not a date");
    return stored(parts);
}

LocalMoment readMoment(std::string_view text)
{
    if (const auto moment = readStored(text))
        return local(*moment);
    if (text.empty())
        return {};
    if (const auto moment = readAny(text, DateOrder::MonthFirst))
        return local(*moment);
    const QString iso = QString::fromUtf8(text.data(), qsizetype(std::min<size_t>(text.size(), 60)));
    const QDateTime moment = QDateTime::fromString(iso, Qt::ISODate).toLocalTime();
    return {moment.date(), moment.time()};
}

QDateTime readDate(std::string_view text)
{
    const LocalMoment moment = readMoment(text);
    return moment.isValid() ? QDateTime(moment.date, moment.time) : QDateTime();
}

} // namespace jet
