#include "gantt/zuGantSelection.h"

#include "tree/zuTree.h"

#include <algorithm>
#include <compare>
#include <utility>

namespace korvane {

/// While it lives, marks change without repaint and without OnAfterSelectionChanged, and entities
/// that are freed are remembered.
class TGantSelection::TChangeScope
{
public:
    explicit TChangeScope(TGantSelection &selection)
        : m_selection(selection)
    {
        ++selection.m_changeDepth;
    }
    TChangeScope(const TChangeScope &) = delete;
    TChangeScope &operator=(const TChangeScope &) = delete;
    ~TChangeScope()
    {
        if (--m_selection.m_changeDepth == 0) {
            m_selection.m_freed.clear();
            if (m_selection.m_selectionChanged) {
                m_selection.Host().InvalidateArea();
            }
        }
    }

private:
    TGantSelection &m_selection;
};

/// The state of a growing rectangle.
struct TGantSelection::TBand
{
    std::unordered_set<TzuDataEntity_Spanbar *> Before; ///< selected when it began
    TItems Inside;
    TSelectHow How = TSelectHow::Replace;
    bool Applied = false;

    bool Wants(TzuDataEntity_Spanbar *item, bool inside) const
    {
        switch (How) {
        case TSelectHow::Replace:
            return inside;
        case TSelectHow::Add:
            return inside || Before.contains(item);
        case TSelectHow::Toggle:
            return inside != Before.contains(item);
        }
        return false;
    }
};

TGantSelection::TGantSelection(IGantHost &host, IGantInputHost &inputHost,
                               TzuGant_ComBasic *component)
    : TGantCore(host, component)
    , m_inputHost(inputHost)
{
}

TGantSelection::~TGantSelection() = default;

// --- what is selected
// ---------------------------------------------------------------------------

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

// --- operations
// ---------------------------------------------------------------------------------

template <typename Change>
void TGantSelection::ChangeSelection(const Change &change)
{
    {
        const TChangeScope scope(*this);
        change();
    }
    if (m_changeDepth == 0 && std::exchange(m_selectionChanged, false)) {
        OnAfterSelectionChanged(Component());
    }
}

void TGantSelection::KeepAll(const TItems &items)
{
    std::ranges::for_each(items, [](TzuDataEntity_Spanbar *item) { Keep(item); });
}

/// Passes over items that handlers have freed; they are to be kept from before the first handler.
void TGantSelection::SetMarks(const TItems &items, bool selected)
{
    ChangeSelection([&] {
        for (TzuDataEntity_Spanbar *item : items) {
            if (!m_freed.contains(item)) {
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
            if (link != except && !m_freed.contains(link)) {
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
        if (!m_freed.contains(&link)) {
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

// --- clicks
// -------------------------------------------------------------------------------------

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

// --- ranges and rectangles
// ----------------------------------------------------------------------

TGantRow *TGantSelection::ShownRow(const TGantRow &from, TNodeStep step) const
{
    const TzuDataEntity_Tree *node = from.TreeNode();
    TTreeCore *tree = node != nullptr ? node->Tree() : nullptr;
    TGantRow *row = nullptr;
    while (tree != nullptr && row == nullptr && (node = (tree->*step)(node)) != nullptr) {
        row = GantRows().FindRowFromTreeNode(node);
    }
    return row;
}

TGantRow *TGantSelection::NextShownRow(const TGantRow &row) const
{
    return ShownRow(row, &TTreeCore::GetNextVisible);
}

TGantRow *TGantSelection::PrevShownRow(const TGantRow &row) const
{
    return ShownRow(row, &TTreeCore::GetPrevVisible);
}

TGantSelection::TItems TGantSelection::ItemsBetween(TzuDataEntity_Spanbar &from,
                                                    TzuDataEntity_Spanbar &to) const
{
    const auto lineOf = [](const TGantRow *row) {
        TTreeCore *tree =
            row != nullptr && row->TreeNode() != nullptr ? row->TreeNode()->Tree() : nullptr;
        return tree != nullptr ? tree->GetRow(*row->TreeNode()) : -1;
    };
    TGantRow *top = from.GetRow();
    TGantRow *bottom = to.GetRow();
    if (lineOf(top) < 0 || lineOf(bottom) < 0) {
        return {&to};
    }
    if (lineOf(top) > lineOf(bottom)) {
        std::swap(top, bottom);
    }
    const auto [earliest, latest] = std::minmax({from.GetStartDateTime(), from.GetStopDateTime(),
                                                 to.GetStartDateTime(), to.GetStopDateTime()});
    TItems items;
    for (TGantRow *row = top; row != nullptr; row = NextShownRow(*row)) {
        row->ForEachShown([&, earliest = earliest, latest = latest](TzuDataEntity_Spanbar &item) {
            const auto [start, stop] =
                std::minmax({item.GetStartDateTime(), item.GetStopDateTime()});
            // What only touches an end of the range, as a successor does, lies outside.
            const bool overlaps =
                start < latest && (stop > earliest || (start == stop && stop == earliest));
            if (overlaps || &item == &from || &item == &to) {
                items.push_back(&item);
            }
        });
        if (row == bottom) {
            break;
        }
    }
    return items;
}

namespace {

TRect Normalised(const TRect &rect)
{
    const int left = std::min(rect.Left, rect.Right);
    const int top = std::min(rect.Top, rect.Bottom);
    return {left, top, std::max({rect.Left, rect.Right, left + 1}),
            std::max({rect.Top, rect.Bottom, top + 1})};
}

} // namespace

/// Rows with the vertical place that they have or would have, as far as they meet the rectangle.
std::vector<TGantSelection::TRowBand> TGantSelection::RowsIn(const TRect &rect) const
{
    const auto &onScreen = GantRows().RowsOnScreen();
    if (onScreen.empty()) {
        return {};
    }
    std::vector<TRowBand> rows;
    const auto add = [&](TGantRow *row, int top, int bottom) {
        if (top < rect.Bottom && bottom > rect.Top) {
            rows.push_back({row, {top, bottom}});
        }
    };
    const int height = std::max(CurrentRowHeight(), 1);
    int top = onScreen.front()->GetRect().Top;
    for (TGantRow *row = PrevShownRow(*onScreen.front()); row != nullptr && top > rect.Top;
         row = PrevShownRow(*row)) {
        add(row, top - height, top);
        top -= height;
    }
    for (TGantRow *row : onScreen) {
        add(row, row->GetRect().Top, row->GetRect().Bottom);
    }
    int bottom = onScreen.back()->GetRect().Bottom;
    for (TGantRow *row = NextShownRow(*onScreen.back()); row != nullptr && bottom < rect.Bottom;
         row = NextShownRow(*row)) {
        add(row, bottom, bottom + height);
        bottom += height;
    }
    return rows;
}

TGantSelection::TItems TGantSelection::ItemsIn(const TRect &rect) const
{
    const TRect wanted = Normalised(rect);
    TItems items;
    for (const TRowBand &band : RowsIn(wanted)) {
        band.Row->ForEachShown([&](TzuDataEntity_Spanbar &item) {
            if (band.Row->RectFromDataEntity(item, band.Y).Intersects(wanted)) {
                items.push_back(&item);
            }
        });
    }
    return items;
}

void TGantSelection::BeginSelectInRect()
{
    m_band = std::make_unique<TBand>();
    m_band->Before.insert(m_selected.Items().begin(), m_selected.Items().end());
}

void TGantSelection::EndSelectInRect()
{
    m_band.reset();
}

void TGantSelection::SelectInRect(const TRect &rect, TSelectHow how)
{
    const bool single = m_band == nullptr;
    if (single) {
        BeginSelectInRect();
    }
    UpdateBand(ItemsIn(rect), how);
    if (single) {
        EndSelectInRect();
    }
}

void TGantSelection::CancelSelectInRect()
{
    if (m_band != nullptr) {
        // Nothing inside and everything added: what was selected before.
        UpdateBand({}, TSelectHow::Add);
        EndSelectInRect();
    }
}

void TGantSelection::UpdateBand(TItems inside, TSelectHow how)
{
    KeepAll(inside);
    std::ranges::sort(inside);
    TItems concerned = std::exchange(m_band->Inside, inside);
    concerned.insert(concerned.end(), inside.begin(), inside.end());
    if (std::exchange(m_band->How, how) != how || !std::exchange(m_band->Applied, true)) {
        const TItems &now = m_selected.Items();
        concerned.insert(concerned.end(), now.begin(), now.end());
        concerned.insert(concerned.end(), m_band->Before.begin(), m_band->Before.end());
    }
    std::ranges::sort(concerned);
    concerned.erase(std::ranges::unique(concerned).begin(), concerned.end());
    TItems on;
    TItems off;
    for (TzuDataEntity_Spanbar *item : concerned) {
        const bool wanted = m_band->Wants(item, std::ranges::binary_search(inside, item));
        if (wanted != item->GetSelected()) {
            (wanted ? on : off).push_back(item);
        }
    }
    ChangeSelection([&] {
        if (how == TSelectHow::Replace) {
            DeselectLinks(nullptr);
        }
        SetMarks(off, false);
        SetMarks(on, true);
    });
}

// --- what happens to items and links
// ------------------------------------------------------------

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
