#include "agenda/IcalText.h"

#include "plan/Plan.h"
#include "plan/PlanRefusal.h"
#include "plan/PlannerText.h"

#include <algorithm>
#include <utility>

namespace korvane::planner {

namespace {

constexpr qsizetype kFoldWidth = 75;
constexpr QByteArrayView kByteOrderMark("\xEF\xBB\xBF");
constexpr std::size_t kMostLevels = 20;

bool IsBlank(char character)
{
    return character == ' ' || character == '\t';
}

/// Walks over the lines of a text, folded ones as one.
class LineWalker
{
public:
    explicit LineWalker(QByteArrayView text)
        : m_text(text)
    {
    }

    bool Next()
    {
        if (m_line.End >= m_text.size()) {
            return false;
        }
        m_line.Begin = m_line.End;
        if (m_line.Begin == 0 && m_text.startsWith(kByteOrderMark)) {
            m_line.Begin = kByteOrderMark.size();
        }
        m_line.Number += m_count;
        m_count = 0;
        do {
            const qsizetype end = m_text.indexOf('\n', m_line.End);
            m_line.End = end < 0 ? m_text.size() : end + 1;
            ++m_count;
        } while (m_line.End < m_text.size() && IsBlank(m_text[m_line.End]));
        SetName();
        return true;
    }

    const IcalLine &Line() const { return m_line; }
    QByteArrayView Text() const { return m_text.sliced(m_line.Begin, m_line.End - m_line.Begin); }
    /// What a BEGIN or END names.
    QByteArray Mark() const
    {
        const QByteArray line = Unfolded(Text());
        return line.mid(ValueOf(line)).trimmed().toUpper();
    }

private:
    /// A name folded within itself takes the slow way.
    void SetName()
    {
        const QByteArrayView text = Text();
        const auto endOfName = [](QByteArrayView line) {
            qsizetype end = 0;
            while (end < line.size() && line[end] != ':' && line[end] != ';' && line[end] != '\r'
                   && line[end] != '\n') {
                ++end;
            }
            return end;
        };
        const qsizetype end = endOfName(text);
        if (end < text.size() && (text[end] == '\r' || text[end] == '\n')) {
            const QByteArray line = Unfolded(text);
            m_line.Name = line.left(endOfName(line)).trimmed().toUpper();
        } else {
            m_line.Name = text.first(end).toByteArray().toUpper();
        }
    }

    QByteArrayView m_text;
    IcalLine m_line{0, 0, 1, {}};
    qint64 m_count = 0;
};

class PartFinder
{
public:
    PartFinder(const QByteArray &text, PlanRemarks &remarks)
        : m_walker(text)
        , m_remarks(remarks)
    {
    }

    IcalParts Find()
    {
        while (m_walker.Next()) {
            if (m_walker.Line().Name == "BEGIN") {
                Begin(m_walker.Mark());
            } else if (m_walker.Line().Name == "END") {
                End(m_walker.Mark());
            } else if (m_open.empty() && !m_isStray && !m_walker.Line().Name.trimmed().isEmpty()) {
                m_isStray = true;
                Remark(PlannerText::tr("text outside the calendars is ignored"));
            }
        }
        if (!m_open.empty()) {
            throw PlanRefusal(m_walker.Line().Number,
                              PlannerText::tr("the file ends within %1").arg(Name(m_open.back())));
        }
        if (m_parts.Calendars.empty()) {
            throw PlanRefusal(1, PlannerText::tr("there is no calendar in this file"));
        }
        return std::move(m_parts);
    }

private:
    static QString Name(const QByteArray &name) { return QString::fromUtf8(name); }
    void Remark(const QString &text) { m_remarks.Add(m_walker.Line().Number, text); }

    void Begin(const QByteArray &name)
    {
        const IcalLine &line = m_walker.Line();
        const bool isCalendar = name == "VCALENDAR";
        if (isCalendar && !m_open.empty()) {
            throw PlanRefusal(line.Number, PlannerText::tr("a calendar within a calendar"));
        }
        if (m_open.size() >= kMostLevels) {
            throw PlanRefusal(line.Number, PlannerText::tr("components nested too deep"));
        }
        if (isCalendar) {
            m_parts.Calendars.push_back({name, line.Begin, line.End, line.Number,
                                         static_cast<int>(m_parts.Calendars.size())});
        } else if (IsAtTop()) {
            if (m_open.empty()) {
                Remark(PlannerText::tr("%1 outside a calendar").arg(Name(name)));
            }
            const int calendar =
                m_open.empty() ? kNoIndex : static_cast<int>(m_parts.Calendars.size()) - 1;
            m_parts.Components.push_back({name, line.Begin, line.End, line.Number, calendar});
        }
        m_open.push_back(name);
        m_isStray = false;
    }

    void End(const QByteArray &name)
    {
        auto open = m_open.end();
        while (open != m_open.begin() && *(open - 1) != name) {
            --open;
        }
        if (open == m_open.begin()) {
            Remark(PlannerText::tr("END:%1 without its BEGIN is ignored").arg(Name(name)));
            return;
        }
        while (m_open.end() != open) {
            Remark(PlannerText::tr("%1 has no end").arg(Name(m_open.back())));
            Close(m_walker.Line().Begin);
        }
        Close(m_walker.Line().End);
    }

    void Close(qsizetype end)
    {
        const bool isCalendar = m_open.back() == "VCALENDAR";
        m_open.pop_back();
        if (isCalendar) {
            m_parts.Calendars.back().End = end;
        } else if (IsAtTop()) {
            m_parts.Components.back().End = end;
        }
    }

    /// Not within a component of a calendar.
    bool IsAtTop() const
    {
        return m_open.empty() || (m_open.size() == 1 && m_open.front() == "VCALENDAR");
    }

    LineWalker m_walker;
    PlanRemarks &m_remarks;
    IcalParts m_parts;
    std::vector<QByteArray> m_open; ///< the components around the line, outermost first
    bool m_isStray = false;         ///< remarked on already
};

} // namespace

IcalParts FindIcalParts(const QByteArray &text, PlanRemarks &remarks)
{
    return PartFinder(text, remarks).Find();
}

std::vector<IcalLine> IcalLinesOf(QByteArrayView text)
{
    std::vector<IcalLine> lines;
    LineWalker walker(text);
    int level = 0;
    while (walker.Next()) {
        const bool isBegin = walker.Line().Name == "BEGIN";
        const bool isEnd = walker.Line().Name == "END";
        level += isBegin ? 1 : 0;
        if (level == 1) {
            lines.push_back(walker.Line());
        }
        level -= isEnd ? 1 : 0;
    }
    return lines;
}

QByteArray Unfolded(QByteArrayView line)
{
    QByteArray result;
    result.reserve(line.size());
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line[i] == '\n') {
            if (result.endsWith('\r')) {
                result.chop(1);
            }
            ++i; // the blank that marks the fold
        } else {
            result.append(line[i]);
        }
    }
    return result;
}

QByteArray Folded(const QByteArray &line, const QByteArray &lineEnd)
{
    const auto isWithinCharacter = [&](qsizetype at) { return (line[at] & '\xC0') == '\x80'; };
    QByteArray result;
    qsizetype begin = 0;
    while (line.size() - begin > kFoldWidth - (begin > 0 ? 1 : 0)) {
        qsizetype end = begin + kFoldWidth - (begin > 0 ? 1 : 0);
        while (end > begin + 1 && isWithinCharacter(end)) {
            --end;
        }
        result += line.mid(begin, end - begin) + lineEnd + ' ';
        begin = end;
    }
    return result + line.mid(begin) + lineEnd;
}

qsizetype ValueOf(const QByteArray &unfolded)
{
    bool isQuoted = false;
    for (qsizetype i = 0; i < unfolded.size(); ++i) {
        if (unfolded[i] == '"') {
            isQuoted = !isQuoted;
        } else if (unfolded[i] == ':' && !isQuoted) {
            return i + 1;
        }
    }
    return unfolded.size();
}

QByteArray WithPieces(const QByteArray &text, std::vector<IcalPiece> pieces)
{
    std::ranges::stable_sort(
        pieces, {}, [](const IcalPiece &piece) { return std::pair(piece.Begin, piece.End); });
    QByteArray result;
    qsizetype at = 0;
    for (const IcalPiece &piece : pieces) {
        result += text.mid(at, piece.Begin - at) + piece.Text;
        at = piece.End;
    }
    return result + text.mid(at);
}

} // namespace korvane::planner
