// What of a component is printed.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace korvane {

/// The options of prints of rows.
class KORVANE_WIDGETS_API TPrintRowChoice
{
public:
    /// The rows to print, by their number among those that are shown, from 0, both included.
    void SetRows(int first, int last) { m_rows.emplace(first, last); }
    /// As by default.
    void SetAllRows() { m_rows.reset(); }
    /// Only rows that are selected, or on which something is; false by default.
    void SetSelectionOnly(bool on) { m_selectionOnly = on; }

protected:
    ~TPrintRowChoice() = default;

    /// Whether the number is among those to print; not whether there is such a row.
    bool HasRow(int number) const
    {
        return !m_rows || (number >= m_rows->first && number <= m_rows->second);
    }
    /// The first and the last one, of so many.
    std::pair<int, int> RowsOf(int count) const
    {
        return m_rows ? std::pair(std::max(m_rows->first, 0), std::min(m_rows->second, count - 1))
                      : std::pair(0, count - 1);
    }
    /// See SetSelectionOnly.
    bool IsSelectionOnly() const { return m_selectionOnly; }

private:
    std::optional<std::pair<int, int>> m_rows;
    bool m_selectionOnly = false;
};

/// The options of prints with a time axis.
class KORVANE_WIDGETS_API TPrintTimeChoice
{
public:
    /// The time to print.
    void SetRange(TDateTime from, TDateTime to) { m_range.emplace(from, to); }
    /// All there is, as by default.
    void SetWholeRange() { m_range.reset(); }
    /// Days per pixel; 0, the default, for those of the screen.
    void SetTimeScale(double daysPerPixel) { m_timeScale = daysPerPixel; }
    /// Repeats the axis at the far edge of each page: at the bottom, or at the right for one that
    /// runs down; false by default.
    void SetAxisAtBothEdges(bool on) { m_axisAtBothEdges = on; }
    /// Whether the background is printed as it is on screen, rather than pale on white paper;
    /// false by default.
    void SetPrintBackground(bool on) { m_printBackground = on; }

protected:
    ~TPrintTimeChoice() = default;

    /// What was chosen; nothing for all there is.
    const std::optional<std::pair<TDateTime, TDateTime>> &Range() const { return m_range; }
    /// The chosen days per pixel, or those given.
    double TimeScaleOr(double shown) const { return m_timeScale > 0 ? m_timeScale : shown; }
    /// See the setters.
    bool IsAxisAtBothEdges() const { return m_axisAtBothEdges; }
    bool PrintsBackground() const { return m_printBackground; }

private:
    std::optional<std::pair<TDateTime, TDateTime>> m_range;
    double m_timeScale = 0;
    bool m_axisAtBothEdges = false;
    bool m_printBackground = false;
};

} // namespace korvane
