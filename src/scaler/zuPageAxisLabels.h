// Labels of a time axis that is printed over several pages.
#pragma once

#include "foundation/zuCanvas.h"
#include "foundation/zuExport.h"
#include "scaler/zuScaler.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

namespace korvane {

/// Draws the labels of the parts of an axis so that pages put side by side have those of the whole
/// axis, in the same places.
///
/// Which ones are left out because they would crowd is decided once, along the whole axis. A label
/// that an edge of a page would cut is moved into the page that its middle is on. Where an interval
/// runs over several pages, those that have room for its name within their part of it have it
/// there, too: each page can be read by itself. A moved or repeated label that would come too
/// close to one in its place is left out.
class KORVANE_CORE_API TPageAxisLabels
{
public:
    /// A page's share of the axis in its pixels, half-open.
    struct TPart
    {
        /// The share begins and ends here.
        int From = 0;
        int To = 0;
    };

    /// The whole axis is observed, and stays as it is from the first drawing on.
    explicit TPageAxisLabels(const TDateScalerCore &whole)
        : m_whole(whole)
    {
    }

    /// Whether the axis has marks up to a pixel; very long ones have none at their end.
    bool Reaches(int pixel) const;
    /// Draws the labels of a part, which fills the rectangle at this scale, on a background of the
    /// brush's colour. `fontChosen` is called
    /// after each change of the canvas' font, and may enlarge it. Scale and fonts are the same for
    /// all parts.
    void Draw(TCanvas &canvas, const TRect &rect, TPart part, TPrintScale scale,
              const std::function<void()> &fontChosen);

private:
    /// One that does not crowd, in enlarged pixels of the whole axis.
    struct TLabel
    {
        const TScaleMark *Mark;
        std::int64_t From;
        std::int64_t To;
        std::int64_t Centre;
        int Size;

        std::int64_t OwnPlace() const { return Centre - Size / 2; }
    };
    using TRow = std::vector<TLabel>;
    struct TPlaced
    {
        const TLabel *Label;
        std::int64_t At;
        bool Moved;
    };

    static std::optional<std::int64_t> PlaceIn(const TLabel &label, std::int64_t from,
                                               std::int64_t to);
    TRow Choose(TCanvas &canvas, TScaleRow row, double scale,
                const std::function<void()> &fontChosen) const;
    static std::vector<TPlaced> LabelsOf(const TRow &row, std::int64_t from, std::int64_t to);
    void SetFont(TCanvas &canvas, const TScaleMark &mark,
                 const std::function<void()> &fontChosen) const;

    const TDateScalerCore &m_whole;
    std::optional<TRow> m_minor;
    std::optional<TRow> m_major;
};

} // namespace korvane
