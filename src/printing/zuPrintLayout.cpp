#include "printing/zuPrintLayout.h"

#include "foundation/zuTranslate.h"

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace korvane {

namespace {

constexpr double kLeastScale = 0.02;
constexpr double kLargestScale = 20;

double FittingScale(const TPrintContent &content, const TPrintRoom &room,
                    const TPrintScaling &scaling)
{
    const bool pages = scaling.Fit == TPrintFit::pfPages;
    const int across = pages ? scaling.PagesAcross : scaling.Fit == TPrintFit::pfWidth ? 1 : 0;
    const int down = pages ? scaling.PagesDown : scaling.Fit == TPrintFit::pfHeight ? 1 : 0;
    double scale = std::numeric_limits<double>::infinity();
    if (across > 0) {
        scale = room.Width / (content.LabelWidth + CapacityForPages(content.Across, across));
    }
    if (down > 0) {
        scale = std::min(scale,
                         room.Height / (content.HeadHeight + CapacityForPages(content.Down, down)));
    }
    // Without any limit there is nothing to fit to.
    const bool limited = across > 0 || down > 0;
    return !limited || (scale > 1 && !scaling.Enlarge) ? 1 : scale;
}

double ScaleOf(const TPrintContent &content, const TPrintRoom &room, const TPrintScaling &scaling)
{
    const double wanted = scaling.Fit == TPrintFit::pfPercent
                              ? scaling.Percent / 100
                              : FittingScale(content, room, scaling);
    return std::clamp(wanted, kLeastScale, kLargestScale);
}

} // namespace

double RoomForLabels(const TPrintContent &content, const TPrintRoom &room,
                     const TPrintScaling &scaling)
{
    constexpr double kShare = 0.5;
    const TPrintContent bare{content.Across, content.Down, 0, content.HeadHeight};
    const TPrintRoom body{room.Width * (1 - kShare), room.Height};
    return room.Width * kShare / ScaleOf(bare, body, scaling);
}

TPrintLayout::TPrintLayout(const TPrintContent &content, const TPrintRoom &room,
                           const TPrintScaling &scaling)
    : m_labelWidth(content.LabelWidth)
    , m_headHeight(content.HeadHeight)
{
    if (!(content.Across.Length() > 0) || !(content.Down.Length() > 0)) {
        throw std::runtime_error(Translate("TzuPrinting", "There is nothing to print"));
    }
    if (!(room.Width > 0) || !(room.Height > 0)) {
        throw std::runtime_error(
            Translate("TzuPrinting", "The margins leave no room on the paper"));
    }
    m_scale = ScaleOf(content, room, scaling);
    try {
        m_across = SplitIntoPages(content.Across, room.Width / m_scale - content.LabelWidth);
        m_down = SplitIntoPages(content.Down, room.Height / m_scale - content.HeadHeight);
    } catch (const std::invalid_argument &) {
        throw std::runtime_error(
            Translate("TzuPrinting", "The paper has no room beside labels, axis and headings"));
    }
}

TPrintPage TPrintLayout::Page(int index) const
{
    if (index < 0 || index >= PageCount()) {
        throw std::out_of_range("There is no such page");
    }
    const int column = index / Rows();
    const int row = index % Rows();
    return {column, row, m_across[static_cast<std::size_t>(column)],
            m_down[static_cast<std::size_t>(row)]};
}

} // namespace korvane
