// Printing of the schedule view.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"
#include "printing/qt/zuPrinting.h"

#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace korvane {

class TSchemaPage;
class TzuDateScaler;
class TzuSchema_ComBasic;

/// Prints a schedule in its present view: all columns, also those scrolled away, over any time.
///
/// Axis and captions of columns are repeated on every page. Pages end between columns and at
/// calendar boundaries. Selection and focus are not printed. Times that overlap stand side by side
/// as far as that is worked out by then.
class KORVANE_WIDGETS_API TzuSchemaPrinting : public TzuPrinting
{
public:
    /// The schedule is observed.
    explicit TzuSchemaPrinting(TzuSchema_ComBasic &schema);
    ~TzuSchemaPrinting() override;

    /// The time to print, less the columns' base dates; without it what the axis shows.
    void SetRange(TDateTime from, TDateTime to) { m_range.emplace(from, to); }
    void SetShownRange() { m_range.reset(); }
    /// Days per pixel; 0 for those of the screen.
    void SetTimeScale(double daysPerPixel) { m_timeScale = daysPerPixel; }
    /// The columns to print, from 0, both included.
    void SetColumns(int first, int last) { m_columnRange.emplace(first, last); }
    void SetAllColumns() { m_columnRange.reset(); }
    /// Whether the stripes are printed in their colour rather than pale.
    void SetPrintBackground(bool on) { m_printBackground = on; }

    QSizeF ContentSize(const TPrintPage &page) const override;

protected:
    TPrintLayout LayOutContent(const TPrintRoom &room, const TPrintScaling &scaling) override;
    void PaintContent(QPainter &painter, const TPrintPage &page) override;
    std::string RangeOf(const TPrintPage &page) const override;

private:
    friend class TSchemaPage;

    bool IsFlipped() const;
    const TPageSpan &ColumnSpan(const TPrintPage &page) const;
    const TPageSpan &TimeSpan(const TPrintPage &page) const;
    int LabelWidth() const;
    int HeadHeight() const;
    int AxisThickness() const;
    void PaintCaptions(QPainter &painter, const TPrintPage &page) const;

    TzuSchema_ComBasic &m_schema;
    std::optional<std::pair<TDateTime, TDateTime>> m_range;
    std::optional<std::pair<int, int>> m_columnRange;
    double m_timeScale = 0;
    bool m_printBackground = false;

    // As last laid out.
    std::vector<int> m_columns; ///< numbers of the printed ones
    std::unique_ptr<TPrintRows> m_columnAxis;
    std::unique_ptr<TzuDateScaler> m_axis; ///< all of the printed time
    int m_captionRoom = 0;                 ///< height of the captions, or width in the flipped view
};

} // namespace korvane
