// Where columns and times lie, and what lies at a place.
#include "foundation/zuRound.h"
#include "scaler/zuScalerGestures.h"
#include "schema/zuSchema.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>
#include <utility>

namespace korvane {

namespace {

/// More than rounding makes of times relative to a base date.
constexpr TDateTime kTimeSlack = 1e-6;

int Saturated(std::int64_t pixel)
{
    return static_cast<int>(std::clamp<std::int64_t>(pixel, std::numeric_limits<int>::min(),
                                                     std::numeric_limits<int>::max()));
}

} // namespace

TPixelSpan TSchemaCore::AlongColumns(const TRect &rect) const
{
    return m_flipView ? TPixelSpan{rect.Top, rect.Bottom} : TPixelSpan{rect.Left, rect.Right};
}

TPixelSpan TSchemaCore::AlongTime(const TRect &rect) const
{
    return m_flipView ? TPixelSpan{rect.Left, rect.Right} : TPixelSpan{rect.Top, rect.Bottom};
}

int TSchemaCore::DateToPixel(TDateTime date) const
{
    return m_host.Scaler().DateToPixel(date);
}

TDateTime TSchemaCore::PixelToDate(int pixel) const
{
    return m_host.Scaler().PixelToDate(pixel);
}

TPixelSpan TSchemaCore::ColumnToPixels_fw(bool flip, int col) const
{
    if (!m_columns->IsCol(col)) {
        return {-1, -1};
    }
    const int far = m_columns->GetFarSideOffset_FW(flip, col);
    return {far - std::as_const(*m_columns).GetCol(col).GetWidth_FW(flip), far};
}

TPixelSpan
TSchemaCore::HeaderPixelsFromStartStopFromDataEntity(bool flip,
                                                     const TzuDataEntity_SchemaTime &time) const
{
    const bool isInSubCol = time.InSubCol(); // which may widen its column
    TPixelSpan pixels = m_columns->VirtualSpan(flip, time.Col());
    if (isInSubCol) {
        const int count =
            std::max(std::as_const(*m_columns).GetCol(time.Col()).KnownSubColCount(), 1);
        const int lane = RoundToPixel(static_cast<double>(pixels.Length()) / count);
        pixels.From += lane * time.SubCol();
        pixels.To = pixels.From + lane;
    }
    return {pixels.From + time.NearMargin(), pixels.To - time.FarMargin()};
}

TPixelSpan TSchemaCore::TimePixels(bool flip, TDateTime start, TDateTime stop) const
{
    // In the flipped view the rectangle begins a pixel later.
    const int least = flip ? m_leastTimeLength + 1 : m_leastTimeLength;
    const std::int64_t from = DateToPixel(start);
    const std::int64_t to = DateToPixel(stop);
    return {Saturated(from), Saturated(to - from < least ? from + least : to)};
}

TPixelSpan
TSchemaCore::ScalerPixelsFromStartStopFromDataEntity(bool flip,
                                                     const TzuDataEntity_SchemaTime &time) const
{
    const TPlace place = GetStartStopDateAndCol(time);
    return TimePixels(flip, place.Start, place.Stop);
}

bool TSchemaCore::IsDrawnLonger(const TzuDataEntity_SchemaTime &time) const
{
    if (m_leastTimeLength <= kLeastTimeLength) {
        return false;
    }
    const TPlace place = GetStartStopDateAndCol(time);
    return TimePixels(m_flipView, place.Start, place.Stop).To > DateToPixel(place.Stop);
}

TRect TSchemaCore::RectOf(bool flip, TPixelSpan column, TPixelSpan time) const
{
    const TPrintScale scale = m_host.AreaPrintScale();
    const TPixelSpan x = flip ? time : column;
    const TPixelSpan y = flip ? column : time;
    return {RoundToPixel(x.From * scale.X) + 1, RoundToPixel(y.From * scale.Y),
            RoundToPixel(x.To * scale.X), RoundToPixel(y.To * scale.Y)};
}

std::optional<TRect> TSchemaCore::RectFromDataEntity(bool flip,
                                                     TzuDataEntity_SchemaTime &time) const
{
    if (!IsInColumn(time)) {
        return std::nullopt;
    }
    const TzuDataEntity_SchemaColumn &column = std::as_const(*m_columns).GetCol(time.Col());
    if (column.GetWidth_FW(flip) <= 0 || !column.GetVisible()) {
        return std::nullopt;
    }
    TRect rect = RectOf(flip, HeaderPixelsFromStartStopFromDataEntity(flip, time),
                        ScalerPixelsFromStartStopFromDataEntity(flip, time));
    if (OnGetDrawingRect && !OnGetDrawingRect(m_component, &time, rect)) {
        return std::nullopt;
    }
    return rect;
}

TSchemaCore::TStartAndLength TSchemaCore::StartAndLengthFromRect(const TRect &rect) const
{
    const TPixelSpan pixels = AlongTime(rect);
    const TDateTime start = PixelToDate(pixels.From);
    TStartAndLength result{start, PixelToDate(pixels.To) - start,
                           PixelToColumn(AlongColumns(rect).Middle())};
    if (m_columns->IsCol(result.Col)) {
        result.Start += std::as_const(*m_columns).GetCol(result.Col).BaseDate;
    }
    return result;
}

// --- what is visible -----------------------------------------------------------------------------

bool TSchemaCore::IsVisible(TzuDataEntity_SchemaTime &time) const
{
    bool runDefault = true;
    bool result = true;
    if (OnIsVisible) {
        result = OnIsVisible(m_component, &time, runDefault);
    }
    if (!runDefault || !result) {
        return result;
    }
    if (!IsInColumn(time) || !time.GetVisible()) {
        return false;
    }
    const TPlace place = GetStartStopDateAndCol(time);
    const TVisibleTime visible = VisibleTime();
    return !(place.Stop < visible.From) && !(place.Start > visible.To);
}

/// What the axis shows, the time that hidden passes let it reach included.
TSchemaCore::TVisibleTime TSchemaCore::VisibleTime() const
{
    const TDateScalerCore &scaler = m_host.Scaler();
    return {scaler.GetStart(), scaler.GetStop() + scaler.HiddenSpan()};
}

TSchemaCore::TColumnRange TSchemaCore::ShownColumns() const
{
    return {std::min(m_columns->TopLeftCol(), m_columns->Count()), m_columns->Count()};
}

TSchemaCore::TColumnRange TSchemaCore::ColumnsAt(TPixelSpan pixels) const
{
    const TColumnRange shown = ShownColumns();
    // The rounding of sub-columns may let the last one reach into the next column.
    const int from = PixelToColumn(pixels.From) - 1;
    const int to = PixelToColumn(pixels.To - 1) + 1;
    return {std::clamp(from, shown.From, shown.To), std::clamp(to, shown.From, shown.To)};
}

void TSchemaCore::Find(TColumnRange columns, TDateTime from, TDateTime to, TTimes &times)
{
    for (int col = columns.From; col < columns.To; ++col) {
        if (OnIsVisible) {
            m_index.FindAll(col, times);
        } else {
            const TDateTime base = std::as_const(*m_columns).GetCol(col).BaseDate;
            m_index.Find(col, from + base - kTimeSlack, to + base + kTimeSlack, times);
        }
    }
}

void TSchemaCore::Collect(TColumnRange columns, TDateTime from, TDateTime to, TTimes &times)
{
    Find(columns, from, to, times);
    std::erase_if(times, [this](auto *time) { return !IsVisible(*time); });
}

TSchemaCore::TTimes TSchemaCore::VisibleTimes(TColumnRange columns)
{
    const TVisibleTime visible = VisibleTime();
    TTimes times;
    Collect(columns, visible.From, visible.To, times);
    return times;
}

void TSchemaCore::SortByPlace(const std::vector<TzuDataList *> &lists, TTimes &times)
{
    struct TListPlace
    {
        int List;
        int Position;
        TzuDataEntity_SchemaTime *Time;

        auto operator<=>(const TListPlace &) const = default;
    };
    std::unordered_map<const TzuDataList *, int> orders;
    for (TzuDataList *list : lists) {
        orders.try_emplace(list, static_cast<int>(orders.size()));
    }
    std::vector<TListPlace> places;
    places.reserve(times.size());
    for (TzuDataEntity_SchemaTime *time : times) {
        const TzuDataList *list = time->GetDataList();
        if (const auto order = orders.find(list); order != orders.end()) {
            places.push_back({order->second, list->IndexOf(time), time});
        }
    }
    std::ranges::sort(places);
    times.clear();
    std::ranges::transform(places, std::back_inserter(times), &TListPlace::Time);
}

/// Items that were only announced become times, so that the index knows them.
void TSchemaCore::LoadAll(const std::vector<TzuDataList *> &lists)
{
    for (TzuDataList *list : lists) {
        for (int i = 0; !list->IsFullyLoaded() && i < list->Count(); ++i) {
            list->EnsureLoadedItem(i);
        }
    }
}

std::vector<TSchemaCore::TShownTime> TSchemaCore::ShownIn(const TRect &rect)
{
    const std::vector<TzuDataList *> layers = Layers();
    LoadAll(layers);
    TTimes times;
    TVisibleTime visible = VisibleTime();
    TColumnRange columns = ShownColumns();
    if (!OnGetDrawingRect) { // which may put a time anywhere
        const TPrintScale scale = m_host.AreaPrintScale();
        const TRect unscaled{static_cast<int>(std::floor(rect.Left / scale.X)),
                             static_cast<int>(std::floor(rect.Top / scale.Y)),
                             static_cast<int>(std::ceil(rect.Right / scale.X)),
                             static_cast<int>(std::ceil(rect.Bottom / scale.Y))};
        WorkOutSubCols(ColumnsAt(AlongColumns(unscaled)));
        columns = ColumnsAt(AlongColumns(unscaled)); // fewer, if some have been widened
        visible = NarrowedTo(AlongTime(unscaled), visible);
    }
    Collect(columns, visible.From, visible.To, times);
    SortByPlace(layers, times);
    std::vector<TShownTime> shown;
    shown.reserve(times.size());
    for (TzuDataEntity_SchemaTime *time : times) {
        const auto found = RectFromDataEntity(m_flipView, *time);
        if (found && !found->IsEmpty() && found->Intersects(rect)) {
            shown.push_back({time, *found});
        }
    }
    return shown;
}

/// The part of the visible time whose times may be drawn at these pixels.
TSchemaCore::TVisibleTime TSchemaCore::NarrowedTo(TPixelSpan pixels,
                                                  const TVisibleTime &visible) const
{
    const int before = pixels.From - m_leastTimeLength - 1;
    const TDateTime from = PixelToDate(before - 2);
    const TDateTime to = PixelToDate(pixels.To + 2);
    // Where time is hidden, pixels and dates do not go together between the marks.
    if (!(DateToPixel(from) < before) || !(DateToPixel(to) >= pixels.To)) {
        return visible;
    }
    return {std::max(from, visible.From), std::min(to, visible.To)};
}

TSchemaCore::TTimes TSchemaCore::TimesIn(const TRect &rect)
{
    TTimes times;
    for (const TShownTime &shown : ShownIn(rect)) {
        times.push_back(shown.Time);
    }
    return times;
}

TSchemaCore::TTimes TSchemaCore::VisibleTimesOf(int from, int to)
{
    const std::vector<TzuDataList *> layers = Layers();
    LoadAll(layers);
    TTimes times = VisibleTimes({from, to});
    SortByPlace(layers, times);
    return times;
}

TSchemaCore::TTimes TSchemaCore::TimesOfColumns(int first, int last, TDateTime from, TDateTime to)
{
    const std::vector<TzuDataList *> layers = Layers();
    LoadAll(layers);
    TTimes times;
    Find({std::max(first, 0), std::min(last + 1, m_columns->Count())}, from, to, times);
    // What the handler hides stays hidden; what only the axis does not reach is meant as well.
    std::erase_if(times, [this](auto *time) {
        return OnIsVisible ? !IsVisible(*time) : !time->GetVisible();
    });
    SortByPlace(layers, times);
    return times;
}

TSchemaCore::TTimes TSchemaCore::TimesReached(const TRect &rect)
{
    const TPixelSpan across = AlongColumns(rect);
    const TPixelSpan along = AlongTime(rect);
    TTimes times = TimesOfColumns(m_columns->VirtualColumnAt(m_flipView, across.From) - 1,
                                  m_columns->VirtualColumnAt(m_flipView, across.To),
                                  PixelToDate(along.From - 2 * m_leastTimeLength),
                                  PixelToDate(along.To + m_leastTimeLength));
    std::erase_if(times, [&](auto *time) { return !VirtualRect(*time).Intersects(rect); });
    return times;
}

TzuDataEntity_SchemaTime *TSchemaCore::GetDataEntityFromXY(int x, int y)
{
    const auto shown = ShownIn({x, y, x + 1, y + 1});
    return shown.empty() ? nullptr : shown.front().Time;
}

} // namespace korvane
