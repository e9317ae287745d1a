// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Settings.h"

#include <QByteArrayList>
#include <QFile>
#include <QSaveFile>
#include <QStringDecoder>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

// The file as lines that keep their own line ends.
class Profile {
public:
    explicit Profile(QByteArray bytes)
    {
        while (!bytes.isEmpty()) {
            const qsizetype end = bytes.indexOf('\n');
            m_lines.append(end < 0 ? bytes : bytes.first(end + 1));
            bytes = end < 0 ? QByteArray() : bytes.sliced(end + 1);
        }
        if (!m_lines.isEmpty() && m_lines.first().endsWith("\r\n"))
            m_lineEnd = "\r\n";
    }

    // Where the key stands: its line, or -1 and where a new line of the section belongs (-1: no such section).
    struct Place {
        qsizetype line = -1;
        qsizetype insertAt = -1;
    };
    Place find(const QString& section, const QString& key) const
    {
        Place place;
        bool isInside = false;
        for (qsizetype i = 0; i < m_lines.size(); ++i) {
            const QString line = text(m_lines[i]).trimmed();
            if (line.startsWith(u'[')) {
                if (isInside)
                    break;
                isInside = line.mid(1, line.indexOf(u']') - 1).trimmed().compare(section, Qt::CaseInsensitive) == 0;
                place.insertAt = isInside ? i + 1 : -1;
                continue;
            }
            if (!isInside || line.isEmpty())
                continue;
            place.insertAt = i + 1;
            if (line.startsWith(u';') || line.section(u'=', 0, 0).trimmed().compare(key, Qt::CaseInsensitive) != 0)
                continue;
            place.line = i;
            break;
        }
        return place;
    }

    QString value(qsizetype line) const
    {
        QString value = text(m_lines[line].mid(m_lines[line].indexOf('=') + 1)).trimmed();
        const QChar quote = value.size() > 1 ? value.front() : QChar();
        if ((quote == u'"' || quote == u'\'') && value.endsWith(quote))
            value = value.mid(1, value.size() - 2);
        return value;
    }

    void setValue(qsizetype line, const QByteArray& value)
    {
        QByteArray& bytes = m_lines[line];
        const QByteArray end = bytes.endsWith("\r\n") ? "\r\n" : bytes.endsWith('\n') ? "\n" : "";
        bytes = bytes.first(bytes.indexOf('=') + 1) + value + end;
    }

    void insert(qsizetype at, const QByteArray& line)
    {
        if (at > 0 && !m_lines[at - 1].endsWith('\n'))
            m_lines[at - 1] += m_lineEnd;
        m_lines.insert(at, line + m_lineEnd);
    }

    qsizetype size() const { return m_lines.size(); }
    QByteArray bytes() const { return m_lines.join(); }

private:
    static QString text(const QByteArray& bytes)
    {
        QStringDecoder utf8(QStringDecoder::Utf8);
        const QString decoded = utf8.decode(bytes.startsWith("\xEF\xBB\xBF") ? bytes.mid(3) : bytes);
        return utf8.hasError() ? QString::fromLatin1(bytes) : decoded;
    }

    QByteArrayList m_lines;
    QByteArray m_lineEnd = "\n";
};

Profile load(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error(file.errorString().toStdString());
    return Profile(file.readAll());
}

} // namespace

QString readProfile(const QString& file, const QString& section, const QString& key, const QString& fallback)
{
    const Profile profile = load(file);
    const Profile::Place place = profile.find(section, key);
    return place.line < 0 ? fallback : profile.value(place.line).left(longestProfileValue);
}

bool writeProfile(const QString& file, const QString& section, const QString& key, const QString& value)
{
    if (value.contains(u'\n') || value.contains(u'\r'))
        return false;
    try {
        Profile profile = QFile::exists(file) ? load(file) : Profile({});
        QByteArray bytes = value.toUtf8();
        if (value != value.trimmed() || value.startsWith(u'"') || value.startsWith(u'\''))
            bytes = '"' + bytes + '"'; // reading takes blanks and quotes off
        Profile::Place place = profile.find(section, key);
        if (place.line >= 0) {
            profile.setValue(place.line, bytes);
        } else {
            if (place.insertAt < 0) {
                profile.insert(profile.size(), '[' + section.toUtf8() + ']');
                place.insertAt = profile.size();
            }
            profile.insert(place.insertAt, key.toUtf8() + '=' + bytes);
        }
        QSaveFile out(file);
        const QByteArray all = profile.bytes();
        return out.open(QIODevice::WriteOnly) && out.write(all) == all.size() && out.flush() && out.commit();
    } catch (const std::exception&) {
        return false;
    }
}

bool textToBoolean(const QString& text)
{
    const QString word = text.trimmed();
    if (word.compare("true"_L1, Qt::CaseInsensitive) == 0)
        return true;
    if (word.compare("false"_L1, Qt::CaseInsensitive) == 0)
        return false;
    bool isNumber = false;
    const double number = word.toDouble(&isNumber);
    if (!isNumber)
        throw std::invalid_argument("Type mismatch");
    return number != 0;
}
