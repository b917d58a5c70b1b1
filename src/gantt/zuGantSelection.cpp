#include "gantt/zuGantSelection.h"

#include "gantt/zuGantSelectionImpl.h"

#include <algorithm>
#include <compare>
#include <iterator>
#include <utility>

namespace korvane {

TGantSelection::TGantSelection(IGantHost &host, IGantInputHost &inputHost,
                               TzuGant_ComBasic *component)
    : TGantCore(host, component)
    , m_inputHost(inputHost)
{
}

TGantSelection::~TGantSelection() = default;

// --- what is selected ----------------------------------------------------------------------------

std::vector<TzuDataEntity_Spanbar *> TGantSelection::SelectedItems() const
{
    struct TPlace
    {
        int Row;
        int Layer;
        int Index;
        TzuDataEntity_Spanbar *Item;

        auto operator<=>(const TPlace &) const = default;
    };
    std::vector<TPlace> places;
    places.reserve(m_selected.Items().size());
    for (TzuDataEntity_Spanbar *item : m_selected.Items()) {
        if (const TGantRow *row = item->GetRow()) {
            places.push_back(
                {GantRows().IndexOf(row), row->LayerOf(*item), item->ListIndex(), item});
        }
    }
    std::ranges::sort(places);
    TItems items;
    items.reserve(places.size());
    std::ranges::transform(places, std::back_inserter(items), &TPlace::Item);
    return items;
}

std::vector<TzuDataEntity_Link *> TGantSelection::SelectedLinks() const
{
    std::vector<TzuDataEntity_Link *> links(m_selectedLinks.begin(), m_selectedLinks.end());
    std::ranges::sort(links, {}, &TzuDataEntity_Link::ListIndex);
    return links;
}

// --- operations ----------------------------------------------------------------------------------

void TGantSelection::KeepAll(const TItems &items)
{
    std::ranges::for_each(items, [](TzuDataEntity_Spanbar *item) { Keep(item); });
}

/// Passes over items that handlers have freed; they are to be kept from before the first handler.
void TGantSelection::SetMarks(const TItems &items, bool selected)
{
    ChangeSelection([&] {
        for (TzuDataEntity_Spanbar *item : items) {
            if (!WasFreed(item)) {
                item->SetSelected(selected);
            }
        }
    });
}

void TGantSelection::DeselectLinks(const TzuDataEntity_Link *except)
{
    if (m_selectedLinks.empty()) {
        return;
    }
    const std::vector<TzuDataEntity_Link *> links(m_selectedLinks.begin(), m_selectedLinks.end());
    ChangeSelection([&] {
        for (TzuDataEntity_Link *link : links) {
            if (link != except && !WasFreed(link)) {
                link->SetSelected(false);
            }
        }
    });
}

/// Deselects all but these items, which come in any order.
void TGantSelection::DeselectOthers(const TItems &keep)
{
    TItems kept = keep;
    std::ranges::sort(kept);
    TItems others;
    std::ranges::copy_if(m_selected.Items(), std::back_inserter(others),
                         [&](auto *item) { return !std::ranges::binary_search(kept, item); });
    SetMarks(others, false);
}

void TGantSelection::SelectAll()
{
    TItems items;
    for (int i = 0; i < GantRows().Count(); ++i) {
        TGantRow *row = GantRows().GetGantRow(i);
        if (!row->GetVisible()) {
            continue;
        }
        TzuDataList2lev &layers = row->Layers();
        for (int layer = std::max(row->GetDrawLayerStart(), 0); layer < layers.Count(); ++layer) {
            const TzuDataList *list = layers.GetDataList(layer);
            for (int position = 0; position < list->LoadedCount(); ++position) {
                TzuDataEntity *item = list->GetLoaded(position);
                if (item->GetVisible() && !item->GetSelected()) {
                    items.push_back(static_cast<TzuDataEntity_Spanbar *>(item));
                }
            }
        }
    }
    KeepAll(items);
    SetMarks(items, true);
}

void TGantSelection::ClearSelection()
{
    ChangeSelection([this] {
        DeselectLinks(nullptr);
        DeselectOthers({});
    });
}

void TGantSelection::SelectOnly(TzuDataEntity_Spanbar &item)
{
    Keep(&item);
    ChangeSelection([&] {
        DeselectLinks(nullptr);
        DeselectOthers({&item});
        SetMarks({&item}, true);
    });
}

void TGantSelection::SelectOnly(TzuDataEntity_Link &link)
{
    Keep(&link);
    ChangeSelection([&] {
        DeselectOthers({});
        DeselectLinks(&link);
        if (!WasFreed(&link)) {
            link.SetSelected(true);
        }
    });
}

void TGantSelection::SelectRange(TzuDataEntity_Spanbar &from, TzuDataEntity_Spanbar &to,
                                 TSelectHow how)
{
    const TItems items = ItemsBetween(from, to);
    KeepAll(items);
    ChangeSelection([&] {
        if (how == TSelectHow::Replace) {
            DeselectLinks(nullptr);
            DeselectOthers(items);
        }
        SetMarks(items, true);
    });
}

// --- clicks --------------------------------------------------------------------------------------

TzuDataEntity_Spanbar *TGantSelection::Anchor() const
{
    return m_anchor != nullptr ? m_anchor : ActiveDataEntity();
}

void TGantSelection::SetAnchor(TzuDataEntity_Spanbar *item)
{
    Keep(item);
    m_anchor = item;
}

void TGantSelection::UpdateMultiSelect(TzuDataEntity_Spanbar *item, const TShiftState &shift,
                                       TSelectStep step)
{
    TzuDataEntity_Spanbar *pressed = std::exchange(m_pressedItem, nullptr);
    m_pressedLink = nullptr;
    if (step == TSelectStep::Press) {
        if (item != nullptr) {
            PressOn(*item, shift);
        } else if (!shift.Ctrl && !shift.Shift) {
            ClearSelection();
        }
        return;
    }
    if (step == TSelectStep::Drop || item == nullptr || item != pressed) {
        return;
    }
    if (shift.Ctrl) {
        SetMarks({item}, false);
    } else {
        SelectOnly(*item);
    }
}

void TGantSelection::PressOn(TzuDataEntity_Spanbar &item, const TShiftState &shift)
{
    TzuDataEntity_Spanbar *anchor = Anchor();
    SetActiveDataEntity(&item);
    if (shift.Shift && anchor != nullptr) {
        SetAnchor(anchor);
        SelectRange(*anchor, item, shift.Ctrl ? TSelectHow::Add : TSelectHow::Replace);
        return;
    }
    SetAnchor(&item);
    if (item.GetSelected()) {
        m_pressedItem = &item;
    } else if (shift.Ctrl) {
        SetMarks({&item}, true);
    } else {
        SelectOnly(item);
    }
}

void TGantSelection::UpdateMultiSelect(TzuDataEntity_Link &link, const TShiftState &shift,
                                       TSelectStep step)
{
    const TzuDataEntity_Link *pressed = std::exchange(m_pressedLink, nullptr);
    m_pressedItem = nullptr;
    const bool add = shift.Ctrl || shift.Shift;
    if (step == TSelectStep::Press) {
        if (link.GetSelected()) {
            Keep(&link);
            m_pressedLink = &link;
        } else if (add) {
            link.SetSelected(true);
        } else {
            SelectOnly(link);
        }
    } else if (step == TSelectStep::Release && pressed == &link) {
        if (add) {
            link.SetSelected(false);
        } else {
            SelectOnly(link);
        }
    }
}

// --- what happens to items and links -------------------------------------------------------------

void TGantSelection::Forget(const TzuDataEntity_Spanbar *item)
{
    m_selected.Remove(item);
    for (auto *kept : {&m_anchor, &m_pressedItem}) {
        *kept = *kept == item ? nullptr : *kept;
    }
    if (m_changeDepth > 0) {
        m_freed.insert(item);
    }
    if (m_band != nullptr) {
        m_band->Before.erase(const_cast<TzuDataEntity_Spanbar *>(item));
        std::erase(m_band->Inside, item);
    }
}

void TGantSelection::Forget(const TzuDataEntity_Link *link)
{
    m_selectedLinks.erase(const_cast<TzuDataEntity_Link *>(link));
    if (m_pressedLink == link) {
        m_pressedLink = nullptr;
    }
    if (m_changeDepth > 0) {
        m_freed.insert(link);
    }
}

void TGantSelection::_OnDeleteItem(TzuDataEntity *item)
{
    Forget(&TimeDataEntity(*item));
    TGantCore::_OnDeleteItem(item);
}

void TGantSelection::_OnItemFreed(const TzuDataEntity_Spanbar *item)
{
    Forget(item);
    TGantCore::_OnItemFreed(item);
}

void TGantSelection::_OnLinkFreed(const TzuDataEntity_Link *link)
{
    Forget(link);
    TGantCore::_OnLinkFreed(link);
}

void TGantSelection::_OnDeleteItem_Link(TzuDataEntity *link)
{
    Forget(&dynamic_cast<TzuDataEntity_Link &>(*link));
    TGantCore::_OnDeleteItem_Link(link);
}

void TGantSelection::_OnBeforeChangeOwner(TzuDataEntity *item)
{
    m_selected.Remove(&TimeDataEntity(*item));
}

void TGantSelection::_OnAfterChangeOwner(TzuDataEntity *item)
{
    if (item->GetSelected()) {
        Keep(&TimeDataEntity(*item));
        m_selected.Add(&TimeDataEntity(*item));
    }
}

void TGantSelection::_OnSelectionChanged(TzuDataList *list, TzuDataEntity *item)
{
    TzuDataEntity_Spanbar &timeItem = TimeDataEntity(*item);
    timeItem.Touch();
    if (item->GetSelected()) {
        Keep(&timeItem);
        m_selected.Add(&timeItem);
    } else {
        m_selected.Remove(&timeItem);
    }
    ChangeSelection([&] {
        m_selectionChanged = true;
        OnSelectionChanged_Spanbar(this, list, item);
    });
}

void TGantSelection::_OnSelectionChanged_Link(TzuDataList *list, TzuDataEntity *link)
{
    auto &changed = dynamic_cast<TzuDataEntity_Link &>(*link);
    if (link->GetSelected()) {
        Keep(&changed);
        m_selectedLinks.insert(&changed);
    } else {
        m_selectedLinks.erase(&changed);
    }
    ChangeSelection([&] {
        m_selectionChanged = true;
        OnSelectionChanged_Link(this, list, link);
    });
}

} // namespace korvane
