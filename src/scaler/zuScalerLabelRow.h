// Where the labels of a row of marks stand along the axis.
#pragma once

#include "foundation/zuCanvas.h"
#include "scaler/zuScaleMark.h"
#include "scaler/zuScalerSteps.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace korvane {

/// Lengths of ticks, in pixels.
inline constexpr int kMajorTick = 15;
inline constexpr int kMinorTick = 5;

/// Between the beginnings of two labels there is room for the second one and this, in pixels.
inline constexpr int LabelGap(bool horizontal)
{
    return horizontal ? 6 : 10;
}

/// The part of an axis that a label is about, in its pixels: the interval that a day or a longer
/// step names, or the one place that a time of day stands at.
struct TLabelSpan
{
    /// Equal for a place.
    std::int64_t From = 0;
    std::int64_t To = 0;

    /// Where the label's middle is.
    std::int64_t Centre() const { return From + (To - From) / 2; }
};

/// That of a row's mark; `step` is the row's, `axisLength` is in pixels.
inline TLabelSpan SpanOfLabel(const TScaleMarkList &marks, std::size_t index, TDateTime step,
                              int axisLength)
{
    const std::int64_t from = marks[index].Pixel;
    if (step < kDay) {
        return {from, from};
    }
    return {from, index + 1 < marks.size() ? marks[index + 1].Pixel : axisLength};
}

/// The longest beginning of the text that is at most `room` pixels wide.
inline std::string_view ShortenedLabel(const TCanvas &canvas, std::string_view text, int room)
{
    while (!text.empty() && canvas.TextExtent(text).Width > room) {
        std::size_t length = text.size() - 1;
        while (length > 0 && (static_cast<unsigned char>(text[length]) & 0xC0U) == 0x80U) {
            --length; // not within a UTF-8 sequence
        }
        text = text.substr(0, length);
    }
    return text;
}

/// What is filled behind a label on an axis in `target`, so that no tick crosses it.
inline TRect BehindLabel(const TRect &target, const TRect &label, bool horizontal)
{
    TRect behind = label;
    if (horizontal) { // nothing of a tick shows above the text; below it they go on
        behind.Top = std::min(behind.Top, target.Bottom - kMajorTick);
        behind.Bottom = std::min(behind.Bottom, target.Bottom - kMinorTick);
    }
    return behind;
}

} // namespace korvane
