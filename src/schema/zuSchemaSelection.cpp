#include "schema/zuSchemaSelection.h"

#include "scaler/zuScalerGestures.h"

#include <algorithm>
#include <iterator>

namespace korvane {

TSchemaSelection::TSchemaSelection(ISchemaHost &host, ISchemaInputHost &inputHost,
                                   TzuSchema_ComBasic *component)
    : TSchemaCore(host, component)
    , m_inputHost(inputHost)
{
}

TSchemaSelection::~TSchemaSelection() = default;

TSchemaCore::TTimes TSchemaSelection::SelectedTimes()
{
    TTimes times = m_selected.Items();
    SortByPlace(AllLists(), times);
    return times;
}

// --- operations ----------------------------------------------------------------------------------

void TSchemaSelection::AfterChange()
{
    if (m_changeDepth == 0 && std::exchange(m_selectionChanged, false)) {
        m_inputHost.SelectionChanged();
        OnAfterSelectionChanged(Component());
    }
}

/// Passes over times that handlers have removed.
void TSchemaSelection::SetMarks(const TTimes &times, bool selected)
{
    ChangeSelection([&] {
        for (TzuDataEntity_SchemaTime *time : times) {
            if (!WasRemoved(time)) {
                time->SetSelected(selected);
            }
        }
    });
}

void TSchemaSelection::DeselectOthers(const TTimes &keep)
{
    const std::unordered_set<const TzuDataEntity_SchemaTime *> kept(keep.begin(), keep.end());
    TTimes others;
    std::ranges::copy_if(m_selected.Items(), std::back_inserter(others),
                         [&kept](const auto *time) { return !kept.contains(time); });
    SetMarks(others, false);
}

void TSchemaSelection::SelectAll()
{
    SetMarks(VisibleTimesOfAllColumns(), true);
}

void TSchemaSelection::ClearSelection()
{
    DeselectOthers({});
}

void TSchemaSelection::SelectOnly(TzuDataEntity_SchemaTime &time)
{
    ChangeSelection([&] {
        DeselectOthers({&time});
        SetMarks({&time}, true);
    });
}

TSchemaCore::TTimes TSchemaSelection::TimesBetween(TzuDataEntity_SchemaTime &from,
                                                   TzuDataEntity_SchemaTime &to)
{
    const TPlace a = GetStartStopDateAndCol(from);
    const TPlace b = GetStartStopDateAndCol(to);
    const auto [firstCol, lastCol] = std::minmax(a.Col, b.Col);
    const auto [earliest, latest] = std::minmax({a.Start, a.Stop, b.Start, b.Stop});
    TTimes times = TimesOfColumns(firstCol, lastCol, earliest, latest);
    std::erase_if(times, [&, earliest = earliest, latest = latest](const auto *time) {
        // What only touches an end of the range, as a successor does, lies outside.
        const TPlace place = GetStartStopDateAndCol(*time);
        const bool overlaps = place.Start < latest && place.Stop > earliest;
        return !overlaps && time != &from && time != &to;
    });
    return times;
}

void TSchemaSelection::SelectRange(TzuDataEntity_SchemaTime &from, TzuDataEntity_SchemaTime &to,
                                   TSelectHow how)
{
    const TTimes times = TimesBetween(from, to);
    ChangeSelection([&] {
        if (how == TSelectHow::Replace) {
            DeselectOthers(times);
        }
        SetMarks(times, true);
    });
}

TzuDataEntity_SchemaTime *TSchemaSelection::SelectNeighbour(TSchemaStep step, TSelectHow how)
{
    const std::vector<TzuDataList *> lists = AllLists();
    const int direction = static_cast<int>(step);
    const TTimes selected = SelectedTimes();
    TzuDataEntity_SchemaTime *from = selected.empty() ? nullptr : selected.front();
    if (how == TSelectHow::Add && GetActiveDataEntity() != nullptr) {
        from = GetActiveDataEntity();
    }
    const auto count = static_cast<int>(lists.size());
    int list = direction > 0 ? 0 : count - 1;
    int index = direction > 0 ? 0 : count > 0 ? lists.back()->Count() - 1 : 0;
    if (from != nullptr) {
        list = static_cast<int>(std::ranges::find(lists, from->GetDataList()) - lists.begin());
        index =
            from->GetDataList()->UnloadedBefore() + from->GetDataList()->IndexOf(from) + direction;
    }
    // Once round, and to the end of the list that it began in.
    for (int passed = 0; passed <= count && list < count; ++passed) {
        TzuDataList &items = *lists[static_cast<std::size_t>(list)];
        for (; index >= 0 && index < items.Count(); index += direction) {
            auto &time = DataEntity_Schema(*items.GetItems(index));
            if (IsInColumn(time) && time.GetVisible()) {
                SetActiveDataEntity(&time);
                how == TSelectHow::Replace ? SelectOnly(time) : SetMarks({&time}, true);
                return &time;
            }
        }
        list = (list + direction + count) % count;
        index = direction > 0 ? 0 : lists[static_cast<std::size_t>(list)]->Count() - 1;
    }
    return nullptr;
}

// --- clicks --------------------------------------------------------------------------------------

void TSchemaSelection::UpdateMultiSelect(TzuDataEntity_SchemaTime *time, const TShiftState &shift,
                                         TSelectStep step)
{
    const TzuDataEntity_SchemaTime *pressed = std::exchange(m_pressed, nullptr);
    if (step == TSelectStep::Press) {
        if (time != nullptr) {
            PressOn(*time, shift);
        } else if (!shift.Ctrl && !shift.Shift) {
            ClearSelection();
        }
        return;
    }
    if (step == TSelectStep::Drop || time == nullptr || time != pressed) {
        return;
    }
    if (shift.Ctrl) {
        SetMarks({time}, false);
    } else {
        SelectOnly(*time);
    }
}

void TSchemaSelection::PressOn(TzuDataEntity_SchemaTime &time, const TShiftState &shift)
{
    TzuDataEntity_SchemaTime *anchor = m_anchor != nullptr ? m_anchor : GetActiveDataEntity();
    SetActiveDataEntity(&time);
    if (shift.Shift && anchor != nullptr) {
        m_anchor = anchor;
        SelectRange(*anchor, time, shift.Ctrl ? TSelectHow::Add : TSelectHow::Replace);
        return;
    }
    m_anchor = &time;
    if (time.GetSelected()) {
        m_pressed = &time;
    } else if (shift.Ctrl) {
        SetMarks({&time}, true);
    } else {
        SelectOnly(time);
    }
}

// --- rubber band ---------------------------------------------------------------------------------

void TSchemaSelection::BeginSelectInRect()
{
    m_band = std::make_unique<TBand>();
    m_band->Before.insert(m_selected.Items().begin(), m_selected.Items().end());
}

void TSchemaSelection::SelectInRect(const TRect &rect, TSelectHow how)
{
    if (m_band == nullptr) {
        return;
    }
    const TTimes now = TimesReached(rect);
    // Those that the last rectangle held and those that this one holds may change; with Replace the
    // ones from before as well.
    std::unordered_set<TzuDataEntity_SchemaTime *> touched = std::exchange(m_band->Inside, {});
    m_band->Inside.insert(now.begin(), now.end());
    touched.insert(now.begin(), now.end());
    if (how == TSelectHow::Replace) {
        touched.insert(m_selected.Items().begin(), m_selected.Items().end());
    }
    ChangeSelection([&] {
        for (TzuDataEntity_SchemaTime *time : touched) {
            if (m_band == nullptr || WasRemoved(time)) {
                continue;
            }
            const bool inside = m_band->Inside.contains(time);
            const bool before = m_band->Before.contains(time);
            time->SetSelected(how == TSelectHow::Replace ? inside
                              : how == TSelectHow::Add   ? inside || before
                                                         : inside != before);
        }
    });
}

void TSchemaSelection::CancelSelectInRect()
{
    if (m_band == nullptr) {
        return;
    }
    const TTimes before(m_band->Before.begin(), m_band->Before.end());
    m_band.reset();
    ChangeSelection([&] {
        DeselectOthers(before);
        SetMarks(before, true);
    });
}

// --- view ----------------------------------------------------------------------------------------

void TSchemaSelection::MakeSureInView(const TzuDataEntity_SchemaTime &time)
{
    if (!IsInColumn(time)) {
        return;
    }
    Columns().MakeColumnVisible(time.Col());
    UpdateColumnScroller();
    const TPlace place = GetStartStopDateAndCol(time);
    TDateScalerGestures &scaler = Host().Scaler();
    const TDateTime start = scaler.GetStart();
    const TDateTime stop = scaler.GetStop();
    if (place.Start < start || place.Stop - place.Start > stop - start) {
        scaler.MoveTo(place.Start);
    } else if (place.Stop > stop) {
        scaler.MoveTo(start + place.Stop - stop);
    }
}

// --- what happens to times -----------------------------------------------------------------------

void TSchemaSelection::TimeLeft(TzuDataEntity_SchemaTime &time)
{
    if (m_selected.Contains(&time)) {
        m_selected.Remove(&time);
    }
    for (auto *kept : {&m_anchor, &m_pressed}) {
        *kept = *kept == &time ? nullptr : *kept;
    }
    if (m_changeDepth > 0) {
        m_removed.insert(&time);
    }
    if (m_band != nullptr) {
        m_band->Before.erase(&time);
        m_band->Inside.erase(&time);
    }
    TSchemaCore::TimeLeft(time);
}

void TSchemaSelection::TimeJoined(TzuDataEntity_SchemaTime &time)
{
    TSchemaCore::TimeJoined(time);
    if (time.GetSelected()) {
        m_selected.Add(&time);
    }
}

void TSchemaSelection::_OnSelectionChanged(TzuDataList *list, TzuDataEntity *item)
{
    TzuDataEntity_SchemaTime &time = DataEntity_Schema(*item);
    if (!time.GetSelected()) {
        m_selected.Remove(&time);
    } else if (Knows(&time)) {
        m_selected.Add(&time);
    }
    ChangeSelection([&] {
        m_selectionChanged = true;
        TSchemaCore::_OnSelectionChanged(list, item);
    });
}

} // namespace korvane
