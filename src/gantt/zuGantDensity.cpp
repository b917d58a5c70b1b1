#include "gantt/zuGantDensity.h"

#include "foundation/zuGraphStuffDraw.h"
#include "gantt/zuGant.h"
#include "gantt/zuTimeDraw.h"
#include "scaler/zuScalerGestures.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <span>
#include <tuple>

namespace korvane {

namespace {

/// Widest group of bars that is drawn as a whole.
constexpr int kWidestGroup = 2 * TGantRow::kLeastItemWidth;
/// What an item without a length counts as, in pixels.
constexpr double kInstantPixels = 0.25;
/// Strips of this height have darker edges above and below, as bars have.
constexpr int kRoomForEdges = 5;
/// Of columns that are not drawn.
constexpr auto kNoColor = static_cast<TColor>(-1);

std::int64_t Distance(int from, int to)
{
    return std::int64_t{to} - from;
}

bool IsSymbol(const TzuDataEntity_Spanbar &item)
{
    return !item.IsResizable();
}

TColor Mixed(TColor color, TColor back, double strength)
{
    TColor result = 0;
    for (const unsigned shift : {0U, 8U, 16U}) {
        const auto channel = [shift](TColor of) {
            return static_cast<double>(of >> shift & 0xFFU);
        };
        const double mixed = channel(back) + (channel(color) - channel(back)) * strength;
        result |= static_cast<TColor>(std::lround(mixed)) << shift;
    }
    return result;
}

/// Calls visit(from, to, value) for each stretch of equal values.
template <typename Value, typename Visit>
void ForEachRun(const std::vector<Value> &values, const Visit &visit)
{
    for (auto from = values.begin(); from != values.end();) {
        const auto to = std::find_if(from, values.end(), [from](Value v) { return v != *from; });
        visit(static_cast<int>(from - values.begin()), static_cast<int>(to - values.begin()),
              *from);
        from = to;
    }
}

} // namespace

int TGantRanks::Of(const TzuDataEntity_Spanbar &item) const
{
    const bool isNext =
        m_last + 1 < m_layer.LoadedCount() && m_layer.GetLoaded(m_last + 1) == &item;
    m_last = isNext ? m_last + 1 : m_layer.IndexOf(&item);
    return m_last;
}

// --- hit test ------------------------------------------------------------------------------------

TGantTopmost::TGantTopmost(const TGantRow &row, const TzuDataList &layer, TPixelSpan rowY,
                           TPoint at)
    : m_row(row)
    , m_ranks(layer)
    , m_rowY(rowY)
    , m_at(at)
{
}

bool TGantTopmost::TakeGroup(const TGantItemGroup &group)
{
    if (!group.Uniform) {
        return false;
    }
    const TRect first = m_row.RectFromDataEntity(*group.First, m_rowY);
    const TRect last = m_row.RectFromDataEntity(*group.Last, m_rowY);
    const TRect latest = m_row.RectFromDataEntity(*group.Latest, m_rowY);
    const int right = std::max(last.Right, latest.Right);
    if (m_at.X < first.Left || m_at.X >= right || m_at.Y < first.Top || m_at.Y >= first.Bottom) {
        return true;
    }
    // All of them reach over the column.
    const int least = IsSymbol(*group.First) ? first.Width() : TGantRow::kLeastItemWidth;
    if (m_at.X >= last.Left && Distance(first.Left, m_at.X) < least) {
        Offer(*group.Top);
        return true;
    }
    return false;
}

void TGantTopmost::TakeItem(TzuDataEntity_Spanbar &item)
{
    if (m_row.RectFromDataEntity(item, m_rowY).Contains(m_at)) {
        Offer(item);
    }
}

void TGantTopmost::Offer(TzuDataEntity_Spanbar &item)
{
    const int rank = RankOf(item);
    if (rank > m_rank) {
        m_rank = rank;
        m_top = &item;
    }
}

// --- taking --------------------------------------------------------------------------------------

TGantDensity::TGantDensity(TGantCore &gant, const TGantRow &row, const TzuDataList &layer,
                           TPixelSpan rowY)
    : m_gant(gant)
    , m_row(row)
    , m_layer(layer)
    , m_ranks(layer)
    , m_rowY(rowY)
    , m_canvas(gant.Host().AreaCanvas())
    , m_clip(m_canvas.ClipRect())
{
    const double daysPerPixel = gant.Host().Scaler().GetScale();
    m_pixelsPerDay = daysPerPixel > 0 ? gant.Host().AreaPrintScale().X / daysPerPixel : 0;
}

bool TGantDensity::TakeGroup(const TGantItemGroup &group)
{
    if (!group.Uniform || group.Count < 2) {
        return false;
    }
    const TRect first = RectOf(*group.First);
    const TRect last = RectOf(*group.Last);
    // Then the first, the last and the latest item together cover all that the group does.
    if (Distance(first.Left, last.Left) > TGantRow::kLeastItemWidth) {
        return false;
    }
    const TRect latest = RectOf(*group.Latest);
    const int right = std::max(last.Right, latest.Right);
    const bool symbols = IsSymbol(*group.First);
    if (!symbols && Distance(first.Left, right) > kWidestGroup) {
        return false;
    }
    const std::size_t strip = symbols ? 0 : StripOf(*group.First, first);
    const TzuDataEntity_Spanbar *seen[] = {nullptr, nullptr, nullptr, nullptr};
    std::size_t count = 0;
    for (TzuDataEntity_Spanbar *item : {group.First, group.Last, group.Latest, group.Top}) {
        if (std::ranges::find(seen, item) != std::end(seen)) {
            continue;
        }
        seen[count++] = item;
        const TSingle shown{item, RectOf(*item), RankOf(*item)};
        if (symbols) {
            AddSingle(shown);
        } else {
            Cover(m_strips[strip], shown);
        }
    }
    if (!symbols) {
        AddLoad(m_strips[strip], {first.Left, right}, PixelsOf(group.Busy, group.Instants));
    }
    return true;
}

void TGantDensity::TakeItem(TzuDataEntity_Spanbar &item)
{
    const TSingle single{&item, RectOf(item), RankOf(item)};
    const TRect &rect = single.Rect;
    if (IsSymbol(item) || item.GetStyle() == TSpanbarStyle::sbsUser
        || Distance(rect.Left, rect.Right) > TGantRow::kLeastItemWidth) {
        AddSingle(single);
    } else if (rect.Left < m_clip.Right && rect.Right > m_clip.Left) {
        const std::size_t strip = StripOf(item, rect);
        const TDateTime length = item.GetStopDateTime() - item.GetStartDateTime();
        const bool timed = length > 0 && std::isfinite(length);
        Cover(m_strips[strip], single);
        AddLoad(m_strips[strip], {rect.Left, rect.Right},
                PixelsOf(timed ? length : 0, timed ? 0 : 1));
        m_shorts.push_back({single, strip});
    }
}

void TGantDensity::AddSingle(const TSingle &single)
{
    if (single.Rect.Left < m_clip.Right && single.Rect.Right > m_clip.Left) {
        m_singles.push_back(single);
    }
}

TRect TGantDensity::RectOf(const TzuDataEntity_Spanbar &item) const
{
    return m_row.RectFromDataEntity(item, m_rowY);
}

std::size_t TGantDensity::StripOf(const TzuDataEntity_Spanbar &item, const TRect &rect)
{
    const TPlace place{rect.Top, rect.Bottom, item.InsetTop(), item.InsetBottom(), item.SubCol()};
    if (place == m_lastPlace && !m_strips.empty()) {
        return m_lastStrip;
    }
    const TRect inner = m_gant.InsetRect(item, rect);
    const auto found = std::ranges::find_if(m_strips, [&inner](const TStrip &strip) {
        return strip.Top == inner.Top && strip.Bottom == inner.Bottom;
    });
    m_lastPlace = place;
    m_lastStrip = static_cast<std::size_t>(found - m_strips.begin());
    if (found == m_strips.end()) {
        const auto columns = static_cast<std::size_t>(std::max(m_clip.Width(), 0));
        m_strips.push_back({inner.Top, inner.Bottom, std::vector<TColumn>(columns), {}});
    }
    return m_lastStrip;
}

/// Counted from the clip rectangle's left edge.
TPixelSpan TGantDensity::ColumnsOf(TPixelSpan x) const
{
    const int from = std::clamp(x.From, m_clip.Left, m_clip.Right);
    const int to = std::clamp(x.To, from, m_clip.Right);
    return {from - m_clip.Left, to - m_clip.Left};
}

void TGantDensity::Cover(TStrip &strip, const TSingle &item) const
{
    const auto [from, to] = ColumnsOf({item.Rect.Left, item.Rect.Right});
    for (int x = from; x < to; ++x) {
        TColumn &column = strip.Columns[static_cast<std::size_t>(x)];
        ++column.Items;
        column.Selected = column.Selected || item.Item->GetSelected();
        if (item.Rank > column.Rank) {
            column.Rank = item.Rank;
            column.Top = item.Item;
        }
    }
}

void TGantDensity::AddLoad(TStrip &strip, TPixelSpan x, double load) const
{
    const auto part = static_cast<float>(load / static_cast<double>(Distance(x.From, x.To)));
    const auto [from, to] = ColumnsOf(x);
    for (int column = from; column < to; ++column) {
        strip.Columns[static_cast<std::size_t>(column)].Load += part;
    }
}

double TGantDensity::PixelsOf(TDateTime busy, int instants) const
{
    return busy * m_pixelsPerDay + instants * kInstantPixels;
}

// --- drawing -------------------------------------------------------------------------------------

void TGantDensity::Draw()
{
    PartLonely();
    DropHiddenTwins();
    std::ranges::sort(m_singles, {}, &TSingle::Rank);
    for (TStrip &strip : m_strips) {
        NoteCovered(strip);
        DrawStrip(strip, TPass::Below);
    }
    for (const TSingle &single : m_singles) {
        m_gant.DrawContent(*single.Item, single.Rect);
    }
    const bool marks = m_gant.Host().ShowsMarks();
    for (const TStrip &strip : m_strips) {
        DrawStrip(strip, TPass::Above);
        if (marks) {
            DrawMarks(strip);
        }
    }
    if (marks) {
        DrawFocus();
    }
}

/// Items that overlap no other of their kind are drawn as such.
void TGantDensity::PartLonely()
{
    for (const TShort &item : m_shorts) {
        const auto [from, to] = ColumnsOf({item.Single.Rect.Left, item.Single.Rect.Right});
        const auto columns =
            std::span(m_strips[item.Strip].Columns)
                .subspan(static_cast<std::size_t>(from), static_cast<std::size_t>(to - from));
        if (std::ranges::all_of(columns, [](const TColumn &c) { return c.Items == 1; })) {
            std::ranges::fill(columns, TColumn());
            m_singles.push_back(item.Single);
        }
    }
    m_shorts.clear();
}

/// Of symbols that look the same and lie in the same place only the topmost shows.
void TGantDensity::DropHiddenTwins()
{
    const auto firstOther =
        std::ranges::partition(m_singles, [this](const TSingle &single) {
            return IsSymbol(*single.Item) && single.Item->GetStyle() != TSpanbarStyle::sbsUser
                   && !single.Item->HasTexts() && single.Item != m_gant.ActiveDataEntity();
        }).begin();
    const auto looksOf = [](const TSingle &single) {
        const TzuDataEntity_Spanbar &item = *single.Item;
        return std::tuple(single.Rect.Left, single.Rect.Right, single.Rect.Top, item.InsetTop(),
                          item.InsetBottom(), item.GetStyle(), item.ImageIndex(),
                          item.GetSelected());
    };
    std::sort(m_singles.begin(), firstOther, [&](const TSingle &a, const TSingle &b) {
        const auto left = looksOf(a);
        const auto right = looksOf(b);
        return left != right ? left < right : a.Rank > b.Rank;
    });
    const auto hidden =
        std::unique(m_singles.begin(), firstOther,
                    [&](const TSingle &a, const TSingle &b) { return looksOf(a) == looksOf(b); });
    m_singles.erase(hidden, firstOther);
}

void TGantDensity::NoteCovered(TStrip &strip) const
{
    for (const TSingle &single : m_singles) {
        if (single.Rect.Top >= strip.Bottom || single.Rect.Bottom <= strip.Top) {
            continue;
        }
        strip.Covered.resize(strip.Columns.size(), -1);
        const int rank = IsSymbol(*single.Item) ? std::numeric_limits<int>::max() : single.Rank;
        const auto [from, to] = ColumnsOf({single.Rect.Left, single.Rect.Right});
        for (int x = from; x < to; ++x) {
            int &covered = strip.Covered[static_cast<std::size_t>(x)];
            covered = std::max(covered, rank);
        }
    }
}

void TGantDensity::DrawStrip(const TStrip &strip, TPass pass)
{
    if (pass == TPass::Above && strip.Covered.empty()) {
        return;
    }
    std::vector<TColor> fills(strip.Columns.size(), kNoColor);
    std::vector<TColor> edges = fills;
    for (std::size_t i = 0; i < fills.size(); ++i) {
        const TColumn &column = strip.Columns[i];
        const bool drawn =
            pass == TPass::Below || (strip.Covered[i] >= 0 && column.Rank > strip.Covered[i]);
        if (column.Top != nullptr && drawn) {
            fills[i] = ColorOf(column);
            edges[i] = GStuff::TintColor(m_canvas.ResolveColor(column.Top->GetColor()), kEdgeTint);
        }
    }
    FillRuns(fills, {strip.Top, strip.Bottom});
    if (strip.Bottom - strip.Top >= kRoomForEdges) {
        FillRuns(edges, {strip.Top, strip.Top + 1});
        FillRuns(edges, {strip.Bottom - 1, strip.Bottom});
    }
}

void TGantDensity::FillRuns(const std::vector<TColor> &colors, TPixelSpan y)
{
    ForEachRun(colors, [&](int from, int to, TColor color) {
        if (color != kNoColor) {
            m_canvas.FillRect({m_clip.Left + from, y.From, m_clip.Left + to, y.To}, color);
        }
    });
}

void TGantDensity::DrawMarks(const TStrip &strip)
{
    std::vector<char> selected;
    for (const TColumn &column : strip.Columns) {
        selected.push_back(column.Selected ? 1 : 0);
    }
    ForEachRun(selected, [&](int from, int to, char marked) {
        if (marked != 0) {
            GStuff::DoSelectContent({m_clip.Left + from, strip.Top, m_clip.Left + to, strip.Bottom},
                                    m_canvas);
        }
    });
}

/// In a few steps, so that columns that differ little are filled at once.
TColor TGantDensity::ColorOf(const TColumn &column) const
{
    constexpr double kLeastStrength = 0.45;
    constexpr double kSteps = 8;
    constexpr int kTintPerDoubling = -12;
    constexpr int kDarkest = 4;
    const TColor color = m_canvas.ResolveColor(column.Top->GetColor());
    if (column.Load > 1) {
        const auto doublings =
            std::min<int>(kDarkest, static_cast<int>(std::lround(std::log2(column.Load))));
        return GStuff::TintColor(color, kTintPerDoubling * doublings);
    }
    const double part = std::round(column.Load * kSteps) / kSteps;
    return Mixed(color, m_canvas.ResolveColor(m_gant.GantBackColor()),
                 kLeastStrength + (1 - kLeastStrength) * part);
}

void TGantDensity::DrawFocus()
{
    const TzuDataEntity_Spanbar *active = m_gant.ActiveDataEntity();
    if (active == nullptr || active->GetDataList() != &m_layer || !active->GetVisible()
        || std::ranges::find(m_singles, active, &TSingle::Item) != m_singles.end()) {
        return;
    }
    const TRect inner = m_gant.InsetRect(*active, RectOf(*active));
    m_canvas.DrawFocusRect(GStuff::W95Safe(inner, m_canvas));
}

} // namespace korvane
