// Which item lies next to another, and how it is brought into view.
#include "gantt/zuGantSelection.h"
#include "scaler/zuScalerGestures.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace korvane {

namespace {

TDateTime Distance(const TzuDataEntity_Spanbar &item, TDateTime date)
{
    const auto [start, stop] = std::minmax({item.GetStartDateTime(), item.GetStopDateTime()});
    return std::max({start - date, date - stop, 0.0});
}

/// Of items that the time lies in, the one that began last comes first.
bool IsCloser(const TzuDataEntity_Spanbar &item, const TzuDataEntity_Spanbar *than, TDateTime date)
{
    if (than == nullptr) {
        return true;
    }
    const auto measure = [date](const TzuDataEntity_Spanbar &of) {
        return std::pair(Distance(of, date), std::abs(of.GetStartDateTime() - date));
    };
    return measure(item) < measure(*than);
}

/// The line of its row that an item is on: the sub-row, or the first one when it spans the row.
int LineOf(const TGantRow &row, const TzuDataEntity_Spanbar &item)
{
    return row.UseSubCols() > 1 ? row.SubRowOf(item).value_or(0) : 0;
}

/// The order of items along a line. Those with equal times follow one another as they are drawn.
bool IsBefore(const TGantRow &row, const TzuDataEntity_Spanbar &a, const TzuDataEntity_Spanbar &b)
{
    const auto timesOf = [](const TzuDataEntity_Spanbar &item) {
        return std::pair(item.GetStartDateTime(), item.GetStopDateTime());
    };
    if (timesOf(a) != timesOf(b)) {
        return timesOf(a) < timesOf(b);
    }
    const auto placeOf = [&row](const TzuDataEntity_Spanbar &item) {
        return std::pair(row.LayerOf(item), item.ListIndex());
    };
    return placeOf(a) < placeOf(b);
}

constexpr int kNoLine = std::numeric_limits<int>::max();

} // namespace

/// Visits the items on a row that the keyboard reaches.
template <typename Visit>
void TGantSelection::ForEachReached(TGantRow &row, const Visit &visit) const
{
    int only = -1;
    if (OnKeyNavigateDataList) {
        only = OnKeyNavigateDataList(Component(), &row);
    }
    const TzuDataList *list =
        only >= 0 && only < row.Layers().Count() ? row.Layers().GetDataList(only) : nullptr;
    row.ForEachShown([&](TzuDataEntity_Spanbar &item) {
        if (list == nullptr || item.GetDataList() == list) {
            visit(item);
        }
    });
}

TzuDataEntity_Spanbar *TGantSelection::FindNeighbourClosest(TGantRow &row, TDateTime date) const
{
    TzuDataEntity_Spanbar *closest = nullptr;
    ForEachReached(row, [&](TzuDataEntity_Spanbar &item) {
        if (IsCloser(item, closest, date)) {
            closest = &item;
        }
    });
    return closest;
}

TzuDataEntity_Spanbar *TGantSelection::FindNeighbourToRightLeft(const TzuDataEntity_Spanbar &item,
                                                                TGantStep step) const
{
    TGantRow *row = item.GetRow();
    if (row == nullptr) {
        return nullptr;
    }
    const int line = LineOf(*row, item);
    const bool forward = step == TGantStep::Forward;
    TzuDataEntity_Spanbar *found = nullptr;
    ForEachReached(*row, [&](TzuDataEntity_Spanbar &other) {
        const bool beyond = forward ? IsBefore(*row, item, other) : IsBefore(*row, other, item);
        const bool nearest =
            found == nullptr
            || (forward ? IsBefore(*row, other, *found) : IsBefore(*row, *found, other));
        if (beyond && nearest && LineOf(*row, other) == line) {
            found = &other;
        }
    });
    return found;
}

TzuDataEntity_Spanbar *TGantSelection::FindAtEndOfRow(const TzuDataEntity_Spanbar &item,
                                                      TGantStep step) const
{
    TGantRow *row = item.GetRow();
    if (row == nullptr) {
        return nullptr;
    }
    const int line = LineOf(*row, item);
    TzuDataEntity_Spanbar *found = nullptr;
    ForEachReached(*row, [&](TzuDataEntity_Spanbar &other) {
        if (LineOf(*row, other) != line) {
            return;
        }
        const bool farther =
            found == nullptr
            || (step == TGantStep::Forward ? other.GetStartDateTime() > found->GetStartDateTime()
                                           : other.GetStartDateTime() < found->GetStartDateTime());
        found = farther ? &other : found;
    });
    return found;
}

/// The closest item on the next line of the row, in the direction of the step, that has any.
/// Without a line to start from that is the row's first or last one.
TzuDataEntity_Spanbar *TGantSelection::ClosestOnNextLine(TGantRow &row, int fromLine,
                                                         TGantStep step, TDateTime date) const
{
    const int sign = static_cast<int>(step);
    TzuDataEntity_Spanbar *closest = nullptr;
    int nextLine = kNoLine;
    ForEachReached(row, [&](TzuDataEntity_Spanbar &item) {
        const int line = LineOf(row, item) * sign;
        if (fromLine != kNoLine && line <= fromLine * sign) {
            return;
        }
        if (line < nextLine || (line == nextLine && IsCloser(item, closest, date))) {
            closest = &item;
            nextLine = line;
        }
    });
    return closest;
}

TzuDataEntity_Spanbar *TGantSelection::FindNeighbourToUpDown(const TzuDataEntity_Spanbar &item,
                                                             TGantStep step, TDateTime date) const
{
    TGantRow *row = item.GetRow();
    TzuDataEntity_Spanbar *found =
        row != nullptr ? ClosestOnNextLine(*row, LineOf(*row, item), step, date) : nullptr;
    while (row != nullptr && found == nullptr) {
        row = step == TGantStep::Forward ? NextShownRow(*row) : PrevShownRow(*row);
        found = row != nullptr ? ClosestOnNextLine(*row, kNoLine, step, date) : nullptr;
    }
    return found;
}

void TGantSelection::MakeSureRowInView(TGantRow &row)
{
    m_inputHost.Lines().BringIntoView(row);
}

void TGantSelection::MakeSureTimeInView(TDateTime start, TDateTime stop)
{
    TDateScalerCore &scaler = Host().Scaler();
    const TDateTime first = scaler.GetStart();
    const TDateTime last = scaler.GetStop();
    TDateTime shift = 0;
    if (start < first || stop - start > last - first) {
        shift = start - first;
    } else if (stop > last) {
        shift = stop - last;
    }
    // Of what is longer than the axis any part will do.
    const bool fills = start <= first && stop >= last;
    if (shift == 0 || fills || last <= first) {
        return;
    }
    scaler.BeginUpdate();
    scaler.SetStart(first + shift);
    scaler.SetStop(last + shift);
    scaler.EndUpdate();
}

void TGantSelection::MakeSureActiveInView()
{
    TzuDataEntity_Spanbar *item = ActiveDataEntity();
    TGantRow *row = item != nullptr ? item->GetRow() : nullptr;
    if (row == nullptr) {
        return;
    }
    MakeSureRowInView(*row);
    const auto [start, stop] = std::minmax({item->GetStartDateTime(), item->GetStopDateTime()});
    MakeSureTimeInView(start, stop);
}

} // namespace korvane
