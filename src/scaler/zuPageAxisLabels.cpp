#include "scaler/zuPageAxisLabels.h"

#include "foundation/zuRound.h"
#include "scaler/zuScalerLabelRow.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace korvane {

namespace {

/// What moved labels keep from edges, and from others.
constexpr int kEdge = 1;
constexpr int kMovedGap = 3;

} // namespace

bool TPageAxisLabels::Reaches(int pixel) const
{
    const TScaleMarkList &marks = m_whole.PrimaryMarks();
    if (marks.size() < 2) {
        return true;
    }
    const TScaleMark &last = marks.back();
    return 2 * std::int64_t{last.Pixel} - marks[marks.size() - 2].Pixel >= pixel;
}

void TPageAxisLabels::SetFont(TCanvas &canvas, const TScaleMark &mark,
                              const std::function<void()> &fontChosen) const
{
    switch (mark.Font) {
    case TScalerFont::sTextFont1:
        canvas.SetFont(m_whole.TextFont1());
        break;
    case TScalerFont::sTextFont2:
        canvas.SetFont(m_whole.TextFont2());
        break;
    case TScalerFont::sTextFont3:
        canvas.SetFont(m_whole.TextFont3());
        break;
    }
    fontChosen();
}

/// Where a label begins on a part of the axis, if it stands there.
std::optional<std::int64_t> TPageAxisLabels::PlaceIn(const TLabel &label, std::int64_t from,
                                                     std::int64_t to)
{
    const std::int64_t size = label.Size;
    const std::int64_t own = label.OwnPlace();
    if (own > from && own + size <= to) {
        return own;
    }
    const bool isHere = label.Centre >= from && label.Centre < to;
    if (isHere && to - from >= size + 2 * kEdge) {
        return std::clamp(own, from + kEdge, to - kEdge - size);
    }
    const std::int64_t shownFrom = std::max(label.From, from);
    const std::int64_t shown = std::min(label.To, to) - shownFrom;
    if (shown >= size + 2 * kEdge) {
        return shownFrom + (shown - size) / 2;
    }
    return std::nullopt;
}

TPageAxisLabels::TRow TPageAxisLabels::Choose(TCanvas &canvas, TScaleRow row, double scale,
                                              const std::function<void()> &fontChosen) const
{
    const bool major = row == TScaleRow::Major;
    const bool horizontal = m_whole.Horizontal();
    const TScaleMarkList &marks = major ? m_whole.SecondaryMarks() : m_whole.PrimaryMarks();
    const TDateTime step = major ? m_whole.MajorStep() : m_whole.MinorStep();
    const auto enlarged = [scale](std::int64_t pixel) {
        return std::llround(static_cast<double>(pixel) * scale);
    };
    const std::int64_t length = enlarged(m_whole.GetScaleLen());
    TRow chosen;
    std::optional<std::int64_t> last;
    for (std::size_t index = 0; index < marks.size(); ++index) {
        const TScaleMark &mark = marks[index];
        if (mark.Text.empty()) {
            continue;
        }
        SetFont(canvas, mark, fontChosen);
        const TSize extent = canvas.TextExtent(mark.Text);
        const TLabelSpan span = SpanOfLabel(marks, index, step, m_whole.GetScaleLen());
        const TLabel label{&mark, enlarged(span.From), enlarged(span.To), enlarged(span.Centre()),
                           horizontal ? extent.Width : extent.Height};
        const auto at = PlaceIn(label, 0, length);
        if (!at) {
            continue;
        }
        if (*at != label.OwnPlace()) { // at an end of the axis; gives way to the others
            chosen.push_back(label);
        } else if (!last || *at > *last + label.Size + LabelGap(horizontal)) {
            chosen.push_back(label);
            last = at;
        }
    }
    return chosen;
}

/// In their places come first: only the outermost ones of a part are ever moved.
std::vector<TPageAxisLabels::TPlaced> TPageAxisLabels::LabelsOf(const TRow &row, std::int64_t from,
                                                                std::int64_t to)
{
    std::vector<TPlaced> placed;
    auto label = std::ranges::lower_bound(row, from, {}, &TLabel::To);
    for (; label != row.end() && label->From < to; ++label) {
        if (const auto at = PlaceIn(*label, from, to)) {
            placed.push_back({&*label, *at, *at != label->OwnPlace()});
        }
    }
    const auto crowds = [](const TPlaced &first, const TPlaced &second) {
        return second.At < first.At + first.Label->Size + kMovedGap;
    };
    std::vector<TPlaced> shown;
    for (std::size_t i = 0; i < placed.size(); ++i) {
        const bool crowded = (!shown.empty() && crowds(shown.back(), placed[i]))
                             || (i + 1 < placed.size() && crowds(placed[i], placed[i + 1]));
        if (!placed[i].Moved || !crowded) {
            shown.push_back(placed[i]);
        }
    }
    return shown;
}

void TPageAxisLabels::Draw(TCanvas &canvas, const TRect &rect, TPart part, TPrintScale scale,
                           const std::function<void()> &fontChosen)
{
    const bool horizontal = m_whole.Horizontal();
    const double enlarged = horizontal ? scale.X : scale.Y;
    const double across = horizontal ? scale.Y : scale.X;
    const TColor background = canvas.Brush().Color;
    const std::int64_t from = std::llround(part.From * enlarged);
    const std::int64_t to = std::llround(part.To * enlarged);
    for (const TScaleRow row : {TScaleRow::Minor, TScaleRow::Major}) {
        auto &labels = row == TScaleRow::Major ? m_major : m_minor;
        if (!labels) {
            labels = Choose(canvas, row, enlarged, fontChosen);
        }
        const int cross = RoundToPixel(across * m_whole.RowOffset(row));
        for (const TPlaced &placed : LabelsOf(*labels, from, to)) {
            const TScaleMark &mark = *placed.Label->Mark;
            const auto along = static_cast<int>(placed.At - from);
            SetFont(canvas, mark, fontChosen);
            const TPoint at = horizontal ? TPoint{rect.Left + along, rect.Top + cross}
                                         : TPoint{rect.Left + cross, rect.Top + along};
            const std::string_view text =
                horizontal ? mark.Text : ShortenedLabel(canvas, mark.Text, rect.Right - at.X);
            const TSize size = canvas.TextExtent(text);
            canvas.FillRect(
                BehindLabel(rect, {at.X, at.Y, at.X + size.Width, at.Y + size.Height}, horizontal),
                background);
            canvas.TextOut(at, text);
        }
    }
}

} // namespace korvane
