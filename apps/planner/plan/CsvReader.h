// Tables as texts whose columns are separated by commas.
#pragma once

#include <QIODevice>
#include <QString>

#include <string>
#include <string_view>
#include <vector>

namespace korvane::planner {

/// Reads records as RFC 4180 has them: quoted fields may contain commas, line ends and doubled
/// quotes; lines end with LF or CRLF. The first record names the columns. Empty lines and a byte
/// order mark are skipped. Memory is that of one record.
class CsvReader
{
public:
    static constexpr std::size_t kMaxRecord = 1 << 20; ///< bytes

    /// `source` is observed. `name` is that of the file, for refusals, which all methods may throw:
    /// for what cannot be read, and for records beyond the limit, as a quote that is never closed
    /// makes them.
    CsvReader(QIODevice &source, QString name);

    /// Index of the column, or -1.
    int FindColumn(std::string_view name) const;
    /// Refuses the file when it has no such column.
    int Column(std::string_view name) const;

    /// Goes to the next record; false at the end.
    bool Next();
    /// Where the record begins, 1-based.
    qint64 Line() const { return m_line; }
    /// Without surrounding blanks; empty beyond the record's end and for column -1. Holds until the
    /// next record.
    std::string_view Field(int column) const;
    QString Text(int column) const;
    const QString &Name() const { return m_name; }
    [[noreturn]] void Refuse(const QString &reason) const;

private:
    /// The next byte, or -1 at the end.
    int Peek();
    bool ReadRecord();
    void ReadField();
    void ReadQuoted();
    void Take(int byte);

    QIODevice &m_source;
    QString m_name;
    std::vector<char> m_buffer;
    std::size_t m_at = 0;
    std::size_t m_size = 0;
    qint64 m_nextLine = 1;
    qint64 m_line = 0;
    std::string m_text;              ///< the fields of the record, one after the other
    std::vector<std::size_t> m_ends; ///< of the fields in m_text
    std::vector<std::string> m_columns;
};

} // namespace korvane::planner
