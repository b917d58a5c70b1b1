// What was odd about a file that could be used all the same.
#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace korvane::planner {

struct PlanRemark
{
    qint64 Line = 0; ///< 1-based; 0 when the remark is about the file as a whole
    QString Text;
};

/// A list of remarks that stays short however odd the file is: what exceeds its limit is counted
/// only.
class PlanRemarks
{
public:
    static constexpr std::size_t kLimit = 1000;

    void Add(qint64 line, QString text);

    /// In the order in which the oddities were found.
    const std::vector<PlanRemark> &Items() const { return m_items; }
    /// Number of remarks beyond the limit.
    std::size_t Omitted() const { return m_omitted; }
    bool IsEmpty() const { return m_items.empty(); }
    /// One remark per entry, with its line number, and a closing entry for the omitted ones.
    std::vector<QString> Lines() const;

private:
    std::vector<PlanRemark> m_items;
    std::size_t m_omitted = 0;
};

} // namespace korvane::planner
