#include "printing/zuPageBreaks.h"

#include "foundation/zuTranslate.h"
#include "scaler/zuScalerSteps.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
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

TPrintRows::TPrintRows(const std::vector<int> &sizes)
{
    SetSizes(sizes);
}

TPrintRows::TPrintRows(const std::vector<int> &sizes, std::vector<int> parents, int maxHeadings)
    : m_parents(std::move(parents))
    , m_maxHeadings(maxHeadings)
{
    SetSizes(sizes);
}

TPrintRows::TPrintRows(std::vector<int> parents, int rowHeight, int maxHeadings)
    : m_parents(std::move(parents))
    , m_maxHeadings(maxHeadings)
{
    SetSizes(std::vector<int>(m_parents.size(), rowHeight));
}

void TPrintRows::SetSizes(const std::vector<int> &sizes)
{
    std::int64_t top = 0;
    m_tops.reserve(sizes.size() + 1);
    m_tops.push_back(0);
    for (const int size : sizes) {
        top += size;
        if (size <= 0) {
            throw std::invalid_argument("Rows without height cannot be printed");
        }
        if (top > std::numeric_limits<int>::max()) {
            throw std::runtime_error(
                Translate("TzuPrinting", "There is too much to print at once"));
        }
        m_tops.push_back(static_cast<int>(top));
    }
}

int TPrintRows::RowAt(double position) const
{
    const auto after = std::upper_bound(m_tops.begin(), m_tops.end(), position);
    return std::clamp(static_cast<int>(after - m_tops.begin()) - 1, 0, std::max(Count() - 1, 0));
}

int TPrintRows::RowFrom(double position) const
{
    const auto found = std::lower_bound(m_tops.begin(), m_tops.end(), position);
    return std::min(static_cast<int>(found - m_tops.begin()), Count());
}

double TPrintRows::BreakBefore(double from, double limit) const
{
    int row = RowAt(limit);
    if (!(TopOf(row) > from)) {
        return std::floor(limit);
    }
    // A heading goes to the page of the first row below it.
    const int boundary = row;
    const auto continues = [this](int below) {
        return !m_parents.empty() && m_parents[static_cast<std::size_t>(below)] == below - 1;
    };
    while (row > 0 && continues(row)) {
        --row;
    }
    return TopOf(row) > from ? TopOf(row) : TopOf(boundary);
}

double TPrintRows::RepeatedAt(double from) const
{
    double repeated = 0;
    for (const int heading : HeadingsAt(RowAt(from))) {
        repeated += SizeOf(heading);
    }
    return repeated;
}

std::vector<int> TPrintRows::HeadingsAt(int row) const
{
    std::vector<int> headings;
    if (m_parents.empty()) {
        return headings;
    }
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
