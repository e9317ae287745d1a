// SPDX-FileCopyrightText: 2026 The SnipVale developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "memo/code/modScintilla.h"

#include "archive/Archive.h"
#include "archive/SqlText.h"

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 firstName = SCLEX_CPP;
constexpr std::array names = {
    "SCLEX_CPP",        "SCLEX_HTML",      "SCLEX_XML",       "SCLEX_PERL",     "SCLEX_SQL",   "SCLEX_VB",
    "SCLEX_PROPERTIES", "SCLEX_ERRORLIST", "SCLEX_MAKEFILE",  "SCLEX_BATCH",    "SCLEX_XCODE", "SCLEX_LATEX",
    "SCLEX_LUA",        "SCLEX_DIFF",      "SCLEX_CONF",      "SCLEX_PASCAL",   "SCLEX_AVE",   "SCLEX_ADA",
    "SCLEX_LISP",       "SCLEX_RUBY",      "SCLEX_EIFFEL",    "SCLEX_EIFFELKW", "SCLEX_TCL",   "SCLEX_NNCRONTAB",
    "SCLEX_BULLANT",    "SCLEX_VBSCRIPT",  "SCLEX_ASP",       "SCLEX_PHP",      "SCLEX_BAAN",  "SCLEX_MATLAB",
    "SCLEX_SCRIPTOL",   "SCLEX_ASM",       "SCLEX_CPPNOCASE", "SCLEX_FORTRAN",  "SCLEX_F77",   "SCLEX_CSS",
    "SCLEX_POV",        "SCLEX_LOUT",      "SCLEX_ESCRIPT",
};
static_assert(firstName + names.size() - 1 == SCLEX_ESCRIPT);

bool isServerPage(qint32 language)
{
    return language >= 101 && language <= 103;
}

bool isOneOf(const QString& lexerCode, std::initializer_list<QStringView> codes)
{
    return std::find(codes.begin(), codes.end(), lexerCode) != codes.end();
}

} // namespace

LexerKind lexerKind(qint32 language)
{
    switch (language) {
    case SCLEX_CPP:
        return LexerKind::Cpp;
    case SCLEX_HTML:
        return LexerKind::Html;
    case SCLEX_ASP:
        return LexerKind::Asp;
    case SCLEX_XML:
    case SCLEX_PHP:
        return LexerKind::Markup;
    default:
        break;
    }
    if (isServerPage(language))
        return LexerKind::ServerPage;
    if (language == 2 || language > SCLEX_ESCRIPT)
        return LexerKind::OwnRow;
    return language > SCLEX_CPP ? LexerKind::Plain : LexerKind::Unknown;
}

QString lexerName(qint32 language)
{
    if (isServerPage(language))
        return lexerName(SCLEX_ASP);
    if (language < firstName || language > SCLEX_ESCRIPT)
        return {};
    return QString::fromLatin1(names[static_cast<std::size_t>(language - firstName)]);
}

qint32 lexerToSend(qint32 language, const QByteArray& text)
{
    const qint32 lexer = language >= 1000 ? language % 1000 : language;
    if (lexer == SCLEX_XCODE)
        return SCLEX_CPP;
    if (lexer == SCLEX_ASP || isServerPage(lexer))
        return SCLEX_HTML;
    if (lexer == SCLEX_PHP)
        return text.contains("<?") ? SCLEX_HTML : SCLEX_PHPSCRIPT;
    return lexer;
}

std::vector<std::pair<QByteArray, QByteArray>> lexerProperties(qint32 sentLexer, const QString& lexerCode)
{
    if (sentLexer != SCLEX_CPP)
        return {};
    const bool backquotes = isOneOf(lexerCode, {u"SCLEX_CPP_JAVASCRIPT", u"SCLEX_CPP_TYPESCRIPT", u"SCLEX_CPP_GO"});
    const bool tripleQuotes = isOneOf(lexerCode,
                                      {u"SCLEX_CPP_JAVA", u"SCLEX_CPP_CSHARP", u"SCLEX_CPP_KOTLIN", u"SCLEX_CPP_SWIFT",
                                       u"SCLEX_CPP_SCALA", u"SCLEX_CPP_DART", u"SCLEX_CPP_GROOVY"});
    return {
        {"styling.within.preprocessor", "1"},
        // A snippet rarely holds the definitions that its #if lines ask for; greying its code out would mislead.
        {"lexer.cpp.track.preprocessor", "0"},
        {"lexer.cpp.backquoted.strings", backquotes ? "1" : "0"},
        {"lexer.cpp.triplequoted.strings", tripleQuotes ? "1" : "0"},
    };
}

QByteArray scriptKeywords()
{
    return " break case catch continue default do else for function if return throw try var while "_ba;
}

QByteArray basicKeywords()
{
    return " and as byref byval case call const continue dim do each else elseif end error exit false for function "
           "global goto if in loop me new next not nothing on optional or private public redim rem resume select "
           "set sub then to true type while with boolean byte currency date double integer long object single "
           "string type variant "
           " request "_ba;
}

QByteArray serverPageKeywords()
{
    return " and argv as argc break case cfunction class continue declare default do "
           " die echo else elseif empty enddeclare endfor endforeach endif endswitch "
           " endwhile e_all e_parse e_error e_warning eval exit extends false for "
           " foreach function global http_cookie_vars http_get_vars http_post_vars "
           " http_post_files http_env_vars http_server_vars if include include_once "
           " list new not null old_function or parent php_os php_self php_version "
           " print require require_once return static switch stdclass this true var "
           " xor virtual while __file__ __line__ __sleep __wakeup "_ba;
}

QString keywordsOf(Archive& archive, const QString& lexerCode)
{
    ArchiveUnit unit(archive);
    const jet::Recordset rows =
        unit.Open(u"SELECT memoTypeID,  keywords  FROM tab_memoType  WHERE lexerCode = '%1' "_s.arg(quoted(lexerCode)));
    return rows.eof() ? QString() : rows.text(u"keywords"_s);
}

bool updateKeywords(Archive& archive, const QString& lexerCode, const QString& keywords)
{
    ArchiveUnit unit(archive);
    return unit.Execute(u"UPDATE tab_memoType SET tab_memoType.keywords = '%1'  WHERE lexerCode = '%2' "_s.arg(
               quoted(keywords), quoted(lexerCode))) > 0;
}

QString lexerCodeOf(Archive& archive, qint32 memoTypeID)
{
    ArchiveUnit unit(archive);
    const jet::Recordset rows =
        unit.Open(u"SELECT lexerCode FROM tab_memoType WHERE memoTypeID = "_s + QString::number(memoTypeID));
    return rows.eof() ? QString() : rows.text(u"lexerCode"_s);
}
