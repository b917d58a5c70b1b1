#include "foundation/qt/zuLocale.h"

#include "foundation/qt/zuConvert.h"

namespace korvane {

namespace {

/// The library counts weekdays from Sunday, Qt from Monday.
int QtDayOfWeek(std::size_t fromSunday)
{
    return fromSunday == 0 ? 7 : static_cast<int>(fromSunday);
}

/// The first character between the fields of a pattern when it is a plain one.
char SeparatorOf(const QString &qtPattern, char otherwise)
{
    for (const QChar c : qtPattern) {
        if (c == u'/' || c == u'.' || c == u'-' || c == u':') {
            return c.toLatin1();
        }
    }
    return otherwise;
}

void AppendLiteral(QString &out, QStringView text)
{
    const QChar quote = text.contains(u'\'') ? u'"' : u'\'';
    if (!text.isEmpty()) {
        out += quote;
        out += text;
        out += quote;
    }
}

/// Length of the half-day token at the start: `AP`, `ap`, `aP`, `Ap` or one letter of them.
qsizetype HalfDayLength(QStringView pattern)
{
    if (pattern.front() != u'a' && pattern.front() != u'A') {
        return 0;
    }
    return pattern.size() > 1 && pattern[1].toLower() == u'p' ? 2 : 1;
}

qsizetype RunLength(QStringView pattern)
{
    qsizetype length = 1;
    while (length < pattern.size() && pattern[length] == pattern.front()) {
        ++length;
    }
    return length;
}

/// Appends the quoted text at the start of the pattern and returns its length. Two quotes stand for
/// one.
qsizetype AppendQuoted(QString &out, QStringView pattern)
{
    if (pattern.startsWith(u"''")) {
        AppendLiteral(out, u"'");
        return 2;
    }
    QString text;
    qsizetype i = 1;
    for (; i < pattern.size(); ++i) {
        if (pattern[i] == u'\'') {
            if (i + 1 == pattern.size() || pattern[i + 1] != u'\'') {
                break;
            }
            ++i;
        }
        text += pattern[i];
    }
    AppendLiteral(out, text);
    return std::min(i + 1, pattern.size());
}

/// The library's token for a letter of Qt's patterns, null when it stands for itself.
QChar TokenFor(QChar letter)
{
    switch (letter.unicode()) {
    case u'M':
        return u'm';
    case u'm':
        return u'n';
    case u'H':
    case u'h':
        return u'h';
    case u'd':
    case u'y':
    case u's':
    case u'z':
        return letter;
    default:
        return {};
    }
}

qsizetype AppendNext(QString &out, QStringView pattern)
{
    const QChar first = pattern.front();
    if (first == u'\'') {
        return AppendQuoted(out, pattern);
    }
    if (const qsizetype length = HalfDayLength(pattern); length > 0) {
        out += u"ampm";
        return length;
    }
    const qsizetype length = RunLength(pattern);
    if (const QChar token = TokenFor(first); !token.isNull()) {
        out += QString(length, token);
    } else if (first.isLetter() || first == u'"') {
        if (first != u't') { // the time zone
            AppendLiteral(out, pattern.left(length));
        }
    } else {
        out += pattern.left(length);
    }
    return length;
}

} // namespace

std::string PatternFromQt(const QString &qtPattern)
{
    QString result;
    QStringView rest(qtPattern);
    while (!rest.isEmpty()) {
        rest = rest.mid(AppendNext(result, rest));
    }
    return FromQt(result.trimmed());
}

TFormatSettings FormatSettingsOf(const QLocale &locale)
{
    TFormatSettings result;
    for (std::size_t i = 0; i < result.ShortDayNames.size(); ++i) {
        result.ShortDayNames.at(i) =
            FromQt(locale.standaloneDayName(QtDayOfWeek(i), QLocale::ShortFormat));
        result.LongDayNames.at(i) =
            FromQt(locale.standaloneDayName(QtDayOfWeek(i), QLocale::LongFormat));
    }
    for (std::size_t i = 0; i < result.ShortMonthNames.size(); ++i) {
        const int month = static_cast<int>(i) + 1;
        result.ShortMonthNames.at(i) =
            FromQt(locale.standaloneMonthName(month, QLocale::ShortFormat));
        result.LongMonthNames.at(i) =
            FromQt(locale.standaloneMonthName(month, QLocale::LongFormat));
    }
    result.ShortDateFormat = PatternFromQt(locale.dateFormat(QLocale::ShortFormat));
    result.LongDateFormat = PatternFromQt(locale.dateFormat(QLocale::LongFormat));
    result.ShortTimeFormat = PatternFromQt(locale.timeFormat(QLocale::ShortFormat));
    result.LongTimeFormat = PatternFromQt(locale.timeFormat(QLocale::LongFormat));
    result.AmText = FromQt(locale.amText());
    result.PmText = FromQt(locale.pmText());
    result.DateSeparator = SeparatorOf(locale.dateFormat(QLocale::ShortFormat), '-');
    result.TimeSeparator = SeparatorOf(locale.timeFormat(QLocale::ShortFormat), ':');
    return result;
}

} // namespace korvane
