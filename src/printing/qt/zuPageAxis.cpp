#include "printing/qt/zuPageAxis.h"

#include "foundation/zuTranslate.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <string>

namespace korvane {

namespace {

void SetLength(TzuDateScaler &axis, int length, int thickness)
{
    axis.resize(axis.Horizontal() ? length : thickness, axis.Horizontal() ? thickness : length);
}

} // namespace

std::unique_ptr<TzuDateScaler> MakeWholeAxis(const TzuDateScaler &shown,
                                             std::pair<TDateTime, TDateTime> range, double scale,
                                             int thickness)
{
    constexpr int kLongestAxis = 50'000'000;
    const auto [from, to] = range;
    if (!(to > from)) {
        throw std::runtime_error(Translate("TzuPrinting", "The time to print is empty"));
    }
    if (!(scale > 0)) {
        throw std::runtime_error(Translate("TzuPrinting", "The time axis has no scale"));
    }
    auto axis = std::make_unique<TzuDateScaler>();
    axis->BeginUpdate();
    axis->AssignLook(shown);
    axis->EndUpdate();
    // Hidden time makes room for more; how much shows only once the axis has it.
    TDateTime hidden = 0;
    constexpr int kRounds = 4;
    for (int round = 0; round < kRounds; ++round) {
        const double pixels = std::ceil((to - from - hidden) / scale);
        if (pixels > kLongestAxis) {
            throw std::runtime_error(
                Translate("TzuPrinting", "The time to print is too long at this scale"));
        }
        const int length = std::max(static_cast<int>(pixels), 1);
        axis->BeginUpdate();
        SetLength(*axis, length, thickness);
        axis->SetRange(from, from + length * scale);
        axis->EndUpdate();
        if (axis->HiddenSpan() == hidden) {
            break;
        }
        hidden = axis->HiddenSpan();
    }
    return axis;
}

void TPageAxis::SetUp(const TzuDateScaler &whole, TPageAxisLabels &labels, const TPageSpan &span,
                      int thickness)
{
    m_part = {static_cast<int>(span.From), static_cast<int>(span.To)};
    const int length = m_part.To - m_part.From;
    const TDateTime start = whole.PixelToDate(m_part.From);
    BeginUpdate();
    AssignLook(whole);
    m_labels = labels.Reaches(m_part.To) ? &labels : nullptr;
    if (m_labels != nullptr) {
        const auto none = [](TDateTime, TDateTime, std::string &text, TScalerFont) {
            text.clear();
        };
        OnUserStringShort = none;
        OnUserStringLong = none;
    }
    SetLength(*this, length, thickness);
    SetRange(start, start + length * whole.GetScale());
    EndUpdate();
}

void TPageAxis::OffscreenPaint()
{
    TzuDateScaler::OffscreenPaint();
    if (m_labels != nullptr) {
        TCanvas &canvas = GetOffscreenCanvas();
        canvas.SetBrushColor(clWindow);
        m_labels->Draw(canvas, ClientArea(), m_part,
                       {TzuOffscreenPaint::GetScalex(), TzuOffscreenPaint::GetScaley()},
                       [this] { TzuOffscreenPaint::PrintResizeFont(); });
    }
}

} // namespace korvane
