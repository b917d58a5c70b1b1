#include "printing/zuPageBreaks.h"

#include "scaler/zuScalerSteps.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace korvane {

namespace {

/// Scales come from divisions; what is missing by less than this is no reason for another page.
constexpr double kTolerance = 1e-6;
constexpr double kLeastRoom = 1;

/// The boundary of a calendar step at or before the date.
TDateTime BoundaryBefore(TDateTime step, TDateTime date, int firstDayOfWeek)
{
    const TDateTime boundary = Snap(step, date, firstDayOfWeek);
    return boundary > date ? Snap(step, date - step, firstDayOfWeek) : boundary;
}

} // namespace

std::vector<TPageSpan> SplitIntoPages(const IPrintAxis &axis, double capacity)
{
    std::vector<TPageSpan> pages;
    const double length = axis.Length();
    double from = 0;
    while (from < length) {
        const double repeated = axis.RepeatedAt(from);
        const double room = capacity - repeated;
        if (!(room >= kLeastRoom)) {
            throw std::invalid_argument("A page has no room for content");
        }
        const double limit = from + room + kTolerance;
        const double to = limit >= length ? length : axis.BreakBefore(from, limit);
        if (!(to > from)) {
            throw std::invalid_argument("A page has no room for content");
        }
        pages.push_back({from, to, repeated});
        from = to;
    }
    return pages;
}

double CapacityForPages(const IPrintAxis &axis, int pages)
{
    const auto fits = [&](double capacity) {
        try {
            return SplitIntoPages(axis, capacity).size() <= static_cast<std::size_t>(pages);
        } catch (const std::invalid_argument &) {
            return false;
        }
    };
    double enough = std::max(axis.Length(), kLeastRoom);
    double tooLittle = enough / std::max(pages, 1);
    if (fits(tooLittle)) {
        return tooLittle;
    }
    while (enough - tooLittle > 0.01) {
        const double middle = (enough + tooLittle) / 2;
        (fits(middle) ? enough : tooLittle) = middle;
    }
    return enough;
}

TPrintRows::TPrintRows(std::vector<int> parents, int rowHeight, int maxHeadings)
    : m_parents(std::move(parents))
    , m_rowHeight(rowHeight)
    , m_maxHeadings(maxHeadings)
{
    if (rowHeight <= 0) {
        throw std::invalid_argument("Rows without height cannot be printed");
    }
}

double TPrintRows::Length() const
{
    return static_cast<double>(m_parents.size()) * m_rowHeight;
}

double TPrintRows::BreakBefore(double from, double limit) const
{
    const double boundary = std::floor(limit / m_rowHeight) * m_rowHeight;
    return boundary > from ? boundary : std::floor(limit);
}

double TPrintRows::RepeatedAt(double from) const
{
    return static_cast<double>(HeadingsAt(RowAt(from)).size()) * m_rowHeight;
}

std::vector<int> TPrintRows::HeadingsAt(int row) const
{
    std::vector<int> headings;
    int heading = m_parents.at(static_cast<std::size_t>(row));
    while (heading >= 0 && static_cast<int>(headings.size()) < m_maxHeadings) {
        headings.push_back(heading);
        heading = m_parents.at(static_cast<std::size_t>(heading));
    }
    std::ranges::reverse(headings);
    return headings;
}

TPrintTime::TPrintTime(TMapping mapping, int length, int firstDayOfWeek)
    : m_mapping(std::move(mapping))
    , m_length(length)
    , m_firstDayOfWeek(firstDayOfWeek)
{
}

double TPrintTime::BreakBefore(double from, double limit) const
{
    constexpr double kLeastShare = 0.6;
    constexpr std::array kUnits{kScale1Year, kScale3Month, kScale1Month, kScale1Week,
                                kScale1Day,  kScale1Hour,  kScale10Min,  kScale1Min};
    const double full = std::floor(limit);
    const TDateTime end = m_mapping.ToDate(static_cast<int>(full));
    for (const TDateTime unit : kUnits) {
        const double boundary = m_mapping.ToPixel(BoundaryBefore(unit, end, m_firstDayOfWeek));
        if (boundary <= full && boundary >= from + kLeastShare * (full - from) && boundary > from) {
            return boundary;
        }
    }
    return full;
}

} // namespace korvane
