// How content longer than a page is cut into pages along one direction.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

#include <functional>
#include <vector>

namespace korvane {

/// Content along one direction of the paper, with the places where it may be cut. Positions run
/// from 0 to Length, in pixels of the screen.
class KORVANE_CORE_API IPrintAxis
{
public:
    virtual ~IPrintAxis() = default;

    /// Extent of the content; 0 for nothing to print.
    virtual double Length() const = 0;
    /// The best end for a page that begins at `from` and may reach `limit`, which lies before the
    /// end of the content: from < result <= limit.
    virtual double BreakBefore(double from, double limit) const = 0;
    /// Room for what a page that begins at `from` shows again at its start.
    virtual double RepeatedAt(double /*from*/) const { return 0; }
};

/// A page's share of an axis. The repeated part stands before it and is not counted in From and To.
struct TPageSpan
{
    /// Positions on the axis, half-open.
    double From = 0;
    double To = 0;
    double Repeated = 0; ///< room for what is shown again

    friend bool operator==(const TPageSpan &, const TPageSpan &) = default;
};

/// Pages of at most `capacity` pixels, repeated parts included. None for content without length;
/// throws std::invalid_argument when a page would have no room.
KORVANE_CORE_API std::vector<TPageSpan> SplitIntoPages(const IPrintAxis &axis, double capacity);

/// The least capacity that needs no more than so many pages (at least 1), to a hundredth of a pixel
/// where pages become fewer steadily with growing capacity.
KORVANE_CORE_API double CapacityForPages(const IPrintAxis &axis, int pages);

/// Rows one below the other, in an outline; or columns side by side. A page never cuts through one,
/// unless it is larger than the page, and begins with the headings of the groups that it continues.
/// It does not end with a heading that has rows below it, unless it would show nothing else.
class KORVANE_CORE_API TPrintRows : public IPrintAxis
{
public:
    /// Without headings. Sizes are positive; throws std::invalid_argument for others, and
    /// std::runtime_error when their sum is beyond the 32-bit range.
    explicit TPrintRows(const std::vector<int> &sizes);
    /// `parents` has an entry for each row: the index of its heading, which stands before it, or
    /// -1. Not more than `maxHeadings` innermost headings are repeated. Throws likewise.
    TPrintRows(const std::vector<int> &sizes, std::vector<int> parents, int maxHeadings);
    /// Rows of one height, which is positive; throws likewise.
    TPrintRows(std::vector<int> parents, int rowHeight, int maxHeadings);

    /// Sum of the sizes.
    double Length() const override { return static_cast<double>(m_tops.back()); }

    double BreakBefore(double from, double limit) const override;
    double RepeatedAt(double from) const override;

    /// Number of rows.
    int Count() const { return static_cast<int>(m_tops.size()) - 1; }
    /// Where a row begins; also for Count().
    int TopOf(int row) const { return m_tops[static_cast<std::size_t>(row)]; }
    /// Its height or width, as given.
    int SizeOf(int row) const { return TopOf(row + 1) - TopOf(row); }
    /// The row that a position lies in; the last one behind all.
    int RowAt(double position) const;
    /// The first row that begins at or behind a position; Count() for none.
    int RowFrom(double position) const;
    /// The repeated headings of a page that begins with a row, outermost first.
    std::vector<int> HeadingsAt(int row) const;

private:
    void SetSizes(const std::vector<int> &sizes);

    std::vector<int> m_parents; ///< empty without headings
    std::vector<int> m_tops;    ///< one more than there are rows
    int m_maxHeadings = 0;
};

/// The time of a chart. A page ends at the boundary of the longest calendar unit (year, quarter,
/// month, week, day, hour, ten minutes, minute) that leaves it at least three fifths full, or else
/// where it is full.
class KORVANE_CORE_API TPrintTime : public IPrintAxis
{
public:
    /// The mapping between times and whole pixels of the content.
    struct TMapping
    {
        /// Inverse to each other at whole pixels.
        std::function<int(TDateTime)> ToPixel;
        std::function<TDateTime(int)> ToDate;
    };

    /// `firstDayOfWeek` is 1 (Sunday) to 7.
    TPrintTime(TMapping mapping, int length, int firstDayOfWeek);

    /// As given to the constructor.
    double Length() const override { return m_length; }

    double BreakBefore(double from, double limit) const override;

private:
    TMapping m_mapping;
    int m_length;
    int m_firstDayOfWeek;
};

} // namespace korvane
