#include "plan/PlanDates.h"

#include "foundation/zuDateUtils.h"

namespace korvane::planner {

namespace {

/// Reads a text from its beginning; every function leaves the text as it was when it does not fit.
class Scanner
{
public:
    explicit Scanner(QStringView text)
        : m_rest(text)
    {
    }

    bool AtEnd() const { return m_rest.isEmpty(); }
    bool At(char16_t character) const { return !AtEnd() && m_rest.front() == character; }
    bool Take(char16_t character)
    {
        if (!At(character)) {
            return false;
        }
        m_rest = m_rest.mid(1);
        return true;
    }
    /// Exactly that many decimal digits.
    std::optional<int> Digits(int count)
    {
        int value = 0;
        for (int i = 0; i < count; ++i) {
            if (i >= m_rest.size() || !IsDigit(m_rest[i])) {
                return std::nullopt;
            }
            value = value * 10 + (m_rest[i].unicode() - u'0');
        }
        m_rest = m_rest.mid(count);
        return value;
    }
    /// An unsigned number with an optional fraction.
    std::optional<double> Number()
    {
        qsizetype length = 0;
        while (length < m_rest.size() && (IsDigit(m_rest[length]) || m_rest[length] == u'.')) {
            ++length;
        }
        bool ok = false;
        const double value = m_rest.left(length).toDouble(&ok);
        if (!ok) {
            return std::nullopt;
        }
        m_rest = m_rest.mid(length);
        return value;
    }
    std::optional<char16_t> Letter()
    {
        if (AtEnd()) {
            return std::nullopt;
        }
        const char16_t letter = m_rest.front().unicode();
        m_rest = m_rest.mid(1);
        return letter;
    }

private:
    static bool IsDigit(QChar character) { return character >= u'0' && character <= u'9'; }

    QStringView m_rest;
};

/// "Z", "+01:00", "-0530" or nothing, up to the end of the text.
bool IsZoneOrEnd(Scanner &scanner)
{
    if (scanner.AtEnd()) {
        return true;
    }
    if (scanner.Take(u'Z')) {
        return scanner.AtEnd();
    }
    if (!scanner.Take(u'+') && !scanner.Take(u'-')) {
        return false;
    }
    if (!scanner.Digits(2)) {
        return false;
    }
    scanner.Take(u':');
    return scanner.AtEnd() || (scanner.Digits(2) && scanner.AtEnd());
}

/// Minutes after midnight, 0..1440.
std::optional<double> TakeTime(Scanner &scanner)
{
    const auto hour = scanner.Digits(2);
    if (!hour || !scanner.Take(u':')) {
        return std::nullopt;
    }
    const auto minute = scanner.Digits(2);
    std::optional<double> second = 0.0;
    if (scanner.Take(u':')) {
        second = scanner.Number();
    }
    if (!minute || !second || *hour > 24 || *minute > 59 || *second >= 60) {
        return std::nullopt;
    }
    const double minutes = *hour * 60 + *minute + *second / 60;
    return minutes <= kMinutesPerDay ? std::optional(minutes) : std::nullopt;
}

std::optional<TDateTime> TakeDate(Scanner &scanner)
{
    const auto year = scanner.Digits(4);
    if (!year || !scanner.Take(u'-')) {
        return std::nullopt;
    }
    const auto month = scanner.Digits(2);
    if (!month || !scanner.Take(u'-')) {
        return std::nullopt;
    }
    const auto day = scanner.Digits(2);
    if (!day || *year < 1 || *month < 1 || *month > 12 || *day < 1
        || *day > DaysInMonth(*year, *month)) {
        return std::nullopt;
    }
    return EncodeDate(*year, *month, *day);
}

/// Minutes of one unit of a duration; `M` is months before the T and minutes after it.
std::optional<double> MinutesOfUnit(char16_t unit, bool isTimePart)
{
    switch (unit) {
    case u'W':
        return isTimePart ? std::nullopt : std::optional(7.0 * kMinutesPerDay);
    case u'D':
        return isTimePart ? std::nullopt : std::optional(1.0 * kMinutesPerDay);
    case u'H':
        return isTimePart ? std::optional(60.0) : std::nullopt;
    case u'M':
        return isTimePart ? std::optional(1.0) : std::nullopt;
    case u'S':
        return isTimePart ? std::optional(1.0 / 60) : std::nullopt;
    default:
        return std::nullopt;
    }
}

} // namespace

std::optional<TDateTime> ParseIsoDateTime(QStringView text)
{
    Scanner scanner(text.trimmed());
    const auto date = TakeDate(scanner);
    if (!date) {
        return std::nullopt;
    }
    double minutes = 0;
    if (scanner.Take(u'T') || scanner.Take(u' ')) {
        const auto time = TakeTime(scanner);
        if (!time) {
            return std::nullopt;
        }
        minutes = *time;
    }
    if (!IsZoneOrEnd(scanner)) {
        return std::nullopt;
    }
    return *date + minutes / kMinutesPerDay;
}

std::optional<double> ParseIsoTime(QStringView text)
{
    Scanner scanner(text.trimmed());
    const auto minutes = TakeTime(scanner);
    return minutes && IsZoneOrEnd(scanner) ? minutes : std::nullopt;
}

std::optional<double> ParseIsoDuration(QStringView text)
{
    Scanner scanner(text.trimmed());
    const bool isNegative = scanner.Take(u'-');
    if (!scanner.Take(u'P') || scanner.AtEnd()) {
        return std::nullopt;
    }
    double minutes = 0;
    bool isTimePart = false;
    while (!scanner.AtEnd()) {
        if (!isTimePart && scanner.Take(u'T')) {
            isTimePart = true;
            continue;
        }
        const auto number = scanner.Number();
        const auto letter = scanner.Letter();
        const auto unit = letter ? MinutesOfUnit(*letter, isTimePart) : std::nullopt;
        if (!number || !unit) {
            return std::nullopt;
        }
        minutes += *number * *unit;
    }
    return isNegative ? -minutes : minutes;
}

QString IsoText(TDateTime instant)
{
    const auto [date, time] = DecodeDateTime(instant);
    const auto padded = [](int value, int width) {
        return QStringLiteral("%1").arg(value, width, 10, QLatin1Char('0'));
    };
    QString text = padded(date.Year, 4) + u'-' + padded(date.Month, 2) + u'-' + padded(date.Day, 2)
                   + u'T' + padded(time.Hour, 2) + u':' + padded(time.Minute, 2) + u':'
                   + padded(time.Second, 2);
    if (time.Millisecond > 0) {
        text += u'.' + padded(time.Millisecond, 3);
    }
    return text;
}

} // namespace korvane::planner
