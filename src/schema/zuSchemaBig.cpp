// The enlargement of a time.
#include "foundation/zuGestureHint.h"
#include "schema/zuSchemaDescribe.h"
#include "schema/zuSchemaGestures.h"

#include <algorithm>

namespace korvane {

namespace {

constexpr int kMargin = 6;
constexpr TSize kLeastHint{120, 60};
constexpr TSize kMostHint{360, 230};
/// The component's own font.
constexpr int kOwnStyle = 0;

} // namespace

/// Style and text of each line: the time's texts, then when it is and how long.
std::vector<std::pair<int, std::string>>
TSchemaGestures::BigLines(const TzuDataEntity_SchemaTime &time) const
{
    std::vector<std::pair<int, std::string>> lines;
    for (const TzuSchemaText &text : time.Texts()) {
        if (!text.Text().empty()) {
            lines.emplace_back(text.Style(), text.Text());
        }
    }
    lines.emplace_back(kOwnStyle, TimesOf(time));
    lines.emplace_back(kOwnStyle, LengthText(time.GetStopDateTime() - time.GetStartDateTime()));
    return lines;
}

TSize TSchemaGestures::BigSize(const TzuDataEntity_SchemaTime &time, TCanvas &canvas) const
{
    TSize size{0, 0};
    for (const auto &[style, text] : BigLines(time)) {
        EnterTextStyle(canvas, style);
        const TSize extent = canvas.TextExtent(text);
        size.Width = std::max(size.Width, extent.Width);
        size.Height += extent.Height;
    }
    return {std::clamp(size.Width + 2 * kMargin, kLeastHint.Width, kMostHint.Width),
            std::clamp(size.Height + 2 * kMargin, kLeastHint.Height, kMostHint.Height)};
}

void TSchemaGestures::PaintBig(const TzuDataEntity_SchemaTime &time, const TRect &rect,
                               TCanvas &canvas) const
{
    const TColor fill = canvas.ResolveColor(time.Color());
    canvas.FillRect(rect, fill);
    // The fonts' own colours may be those of a dark palette, the time is as bright as it is.
    const unsigned brightness = 2 * RedOf(fill) + 5 * GreenOf(fill) + BlueOf(fill);
    const TColor textColor = brightness > 8 * 127 ? clBlack : clWhite;
    int top = rect.Top + kMargin;
    for (const auto &[style, text] : BigLines(time)) {
        EnterTextStyle(canvas, style);
        TFont font = canvas.Font();
        font.Color = textColor;
        canvas.SetFont(font);
        canvas.TextRect({rect.Left + kMargin, top, rect.Right - kMargin, rect.Bottom - 1},
                        {rect.Left + kMargin, top}, text);
        top += canvas.TextExtent(text).Height;
    }
    canvas.SetBrushColor(time.FrameColor());
    canvas.FrameRect(rect);
}

} // namespace korvane
