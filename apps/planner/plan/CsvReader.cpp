#include "plan/CsvReader.h"

#include "plan/PlanRefusal.h"
#include "plan/PlannerText.h"

#include <algorithm>
#include <utility>

namespace korvane::planner {

namespace {

constexpr std::size_t kBufferSize = 1 << 16;
constexpr QByteArrayView kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t";
    const std::size_t first = text.find_first_not_of(kBlanks);
    return first == std::string_view::npos
               ? std::string_view()
               : text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

} // namespace

CsvReader::CsvReader(QIODevice &source, QString name)
    : m_source(source)
    , m_name(std::move(name))
    , m_buffer(kBufferSize)
{
    if (m_source.peek(kByteOrderMark.size()) == kByteOrderMark) {
        m_source.skip(kByteOrderMark.size());
    }
    if (!Next()) {
        Refuse(PlannerText::tr("the table is empty"));
    }
    for (int column = 0; column < static_cast<int>(m_ends.size()); ++column) {
        m_columns.emplace_back(Field(column));
    }
}

int CsvReader::FindColumn(std::string_view name) const
{
    const auto found = std::ranges::find(m_columns, name);
    return found != m_columns.end() ? static_cast<int>(found - m_columns.begin()) : -1;
}

int CsvReader::Column(std::string_view name) const
{
    const int column = FindColumn(name);
    if (column < 0) {
        Refuse(PlannerText::tr("there is no column %1")
                   .arg(QLatin1String(name.data(), static_cast<qsizetype>(name.size()))));
    }
    return column;
}

std::string_view CsvReader::Field(int column) const
{
    if (column < 0 || column >= static_cast<int>(m_ends.size())) {
        return {};
    }
    const std::size_t from = column == 0 ? 0 : m_ends[column - 1];
    return Trimmed(std::string_view(m_text).substr(from, m_ends[column] - from));
}

QString CsvReader::Text(int column) const
{
    const std::string_view field = Field(column);
    return QString::fromUtf8(field.data(), static_cast<qsizetype>(field.size()));
}

void CsvReader::Refuse(const QString &reason) const
{
    throw PlanRefusal(0, m_line > 0
                             ? QStringLiteral("%1:%2: %3").arg(m_name).arg(m_line).arg(reason)
                             : QStringLiteral("%1: %2").arg(m_name, reason));
}

bool CsvReader::Next()
{
    while (ReadRecord()) {
        if (m_ends.size() > 1 || !Field(0).empty()) {
            return true;
        }
    }
    return false;
}

int CsvReader::Peek()
{
    if (m_at == m_size) {
        const qint64 size = m_source.read(m_buffer.data(), kBufferSize);
        if (size < 0) {
            Refuse(m_source.errorString());
        }
        m_at = 0;
        m_size = static_cast<std::size_t>(size);
    }
    return m_at < m_size ? static_cast<unsigned char>(m_buffer[m_at]) : -1;
}

void CsvReader::Take(int byte)
{
    if (m_text.size() >= kMaxRecord) {
        Refuse(PlannerText::tr("the record is longer than %1 bytes; is a quote missing?")
                   .arg(kMaxRecord));
    }
    m_text.push_back(static_cast<char>(byte));
}

bool CsvReader::ReadRecord()
{
    m_text.clear();
    m_ends.clear();
    m_line = m_nextLine;
    if (Peek() < 0) {
        return false;
    }
    while (true) {
        ReadField();
        m_ends.push_back(m_text.size());
        const int end = Peek();
        if (end < 0) {
            return true;
        }
        ++m_at;
        if (end == '\n') {
            ++m_nextLine;
            return true;
        }
        if (m_ends.size() > kMaxRecord) {
            Refuse(PlannerText::tr("the record has more than %1 fields").arg(kMaxRecord));
        }
    }
}

/// Up to the comma, line end or end of the file that ends it. What follows a closing quote counts.
void CsvReader::ReadField()
{
    if (Peek() == '"') {
        ++m_at;
        ReadQuoted();
    }
    for (int byte = Peek(); byte >= 0 && byte != ',' && byte != '\n'; byte = Peek()) {
        ++m_at;
        if (byte != '\r' || Peek() != '\n') {
            Take(byte);
        }
    }
}

void CsvReader::ReadQuoted()
{
    for (int byte = Peek(); byte >= 0; byte = Peek()) {
        ++m_at;
        m_nextLine += byte == '\n' ? 1 : 0;
        if (byte == '"') {
            if (Peek() != '"') {
                return;
            }
            ++m_at;
        }
        Take(byte);
    }
}

} // namespace korvane::planner
