// Time axes of printed pages.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuTypes.h"
#include "printing/zuPageBreaks.h"
#include "scaler/qt/zuScaler.h"
#include "scaler/zuPageAxisLabels.h"

#include <memory>
#include <utility>

namespace korvane {

/// An axis of a whole printed range that looks as the one on screen. Its length follows from the
/// scale (days per pixel); `thickness` is its extent across. Throws std::runtime_error for an empty
/// range, and for one that is too long at the scale.
KORVANE_WIDGETS_API std::unique_ptr<TzuDateScaler>
MakeWholeAxis(const TzuDateScaler &shown, std::pair<TDateTime, TDateTime> range, double scale,
              int thickness);

/// A page's part of the whole axis, with that one's labels.
class KORVANE_WIDGETS_API TPageAxis : public TzuDateScaler
{
public:
    /// `labels` are those of the whole axis, and observed.
    void SetUp(const TzuDateScaler &whole, TPageAxisLabels &labels, const TPageSpan &span,
               int thickness);

protected:
    /// Draws ticks, then the labels.
    void OffscreenPaint() override;

private:
    TPageAxisLabels *m_labels = nullptr; ///< null: the part makes its own
    TPageAxisLabels::TPart m_part;
};

} // namespace korvane
