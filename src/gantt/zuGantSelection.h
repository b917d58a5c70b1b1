// Which items and links of a Gantt chart are selected, and which items are neighbours.
#pragma once

#include "data/zuItemSet.h"
#include "foundation/zuExport.h"
#include "foundation/zuInput.h"
#include "gantt/zuGant.h"
#include "gantt/zuGantInputHost.h"

#include <memory>
#include <unordered_set>
#include <vector>

namespace korvane {

class TTreeCore;

/// Adds the rules of selecting to the chart.
///
/// Every item and link has a Selected mark of its own, which may be set at any time; the operations
/// here set many at once. Only items that are drawn are selected by them, whether they can be
/// edited or not: not those that are hidden, below a layer that is not drawn, or on a row under a
/// collapsed node. Items and links are one selection: what selects one thing alone deselects the
/// others of both kinds.
///
/// An operation fires OnSelectionChanged_Spanbar or _Link once for each entity whose mark has
/// changed, and OnAfterSelectionChanged once in the end. Handlers may change the selection, the
/// items and the links, but not destroy the chart.
class KORVANE_CORE_API TGantSelection : public TGantCore
{
public:
    /// Both hosts outlive the chart; `component` is that of TGantCore.
    TGantSelection(IGantHost &host, IGantInputHost &inputHost, TzuGant_ComBasic *component);
    ~TGantSelection() override;

    /// Of the time items, without the links; costs the same however many are selected.
    int SelectedCount() const { return m_selected.Count(); }
    bool IsSelected(const TzuDataEntity_Spanbar &item) const { return m_selected.Contains(&item); }
    /// The selected items as a walk over all items meets them: by row, layer and place in the
    /// layer. Costs what is selected.
    std::vector<TzuDataEntity_Spanbar *> SelectedItems() const;
    /// The selected links in the order of the link list.
    std::vector<TzuDataEntity_Link *> SelectedLinks() const;

    /// Selects every item that is drawn or would be if its row were scrolled into view. Walks the
    /// items that are loaded.
    void SelectAll();
    /// Deselects all items and links.
    void ClearSelection();
    /// Makes the item the only thing selected.
    void SelectOnly(TzuDataEntity_Spanbar &item);
    void SelectOnly(TzuDataEntity_Link &link);
    /// Selects the range from one item to another: what lies on their rows and the rows between
    /// and overlaps the time from the earlier start to the later stop of the two. Replace selects
    /// it alone.
    void SelectRange(TzuDataEntity_Spanbar &from, TzuDataEntity_Spanbar &to, TSelectHow how);

    /// The rules of a click on an item, or beside all with null. On the press of a button:
    /// - plain: an item that is not selected is selected alone, and null clears the selection; a
    ///   selected one keeps the selection, so that all of it can be dragged;
    /// - Ctrl: an item that is not selected is added;
    /// - Shift: the range from the anchor is selected alone, with Ctrl added. The anchor is the
    ///   item that was last clicked without Shift, or else the active one.
    /// On the release without a drag a selected item is selected alone, or with Ctrl deselected.
    /// The item becomes the active one; null leaves the active one as it is.
    void UpdateMultiSelect(TzuDataEntity_Spanbar *item, const TShiftState &shift, TSelectStep step);
    /// The same for a link; Shift acts like Ctrl.
    void UpdateMultiSelect(TzuDataEntity_Link &link, const TShiftState &shift, TSelectStep step);

    /// Takes down what is selected. Until the matching EndSelectInRect, each SelectInRect starts
    /// from that and costs what is on the rows of the last and the new rectangle.
    void BeginSelectInRect();
    /// Applies a rectangle in area pixels; corners may be given in any order. An item is in it when
    /// any pixel of its rectangle is. The rectangle may reach beyond the area: rows that are
    /// scrolled away are reached at the height of the rows on screen.
    void SelectInRect(const TRect &rect, TSelectHow how);
    /// Keeps what is selected now.
    void EndSelectInRect();
    /// Goes back to what was selected at BeginSelectInRect.
    void CancelSelectInRect();
    /// From BeginSelectInRect to its end.
    bool SelectingInRect() const { return m_band != nullptr; }

    /// The next or previous row with a node that is shown, whether scrolled away or not; null at
    /// either end.
    TGantRow *NextShownRow(const TGantRow &row) const;
    TGantRow *PrevShownRow(const TGantRow &row) const;

    // Neighbours are sought among the items that are drawn, on rows that are shown. Where a row is
    // divided, its sub-rows are lines of their own; an item that spans the row is on the first.
    // Each search costs what is on the rows it passes.

    /// The item on the row that holds the time, or else the one closest to it; null on an empty
    /// row.
    TzuDataEntity_Spanbar *FindNeighbourClosest(TGantRow &row, TDateTime date) const;
    /// The item that begins next on the same line, or before; null at either end.
    TzuDataEntity_Spanbar *FindNeighbourToRightLeft(const TzuDataEntity_Spanbar &item,
                                                    TGantStep step) const;
    /// The item that begins first or last on the same line.
    TzuDataEntity_Spanbar *FindAtEndOfRow(const TzuDataEntity_Spanbar &item, TGantStep step) const;
    /// The item closest to a time on the next line below that has any, or above; null at either
    /// end.
    TzuDataEntity_Spanbar *FindNeighbourToUpDown(const TzuDataEntity_Spanbar &item, TGantStep step,
                                                 TDateTime date) const;
    /// Expands and scrolls the row tree as little as shows the row.
    void MakeSureRowInView(TGantRow &row);
    /// Moves the visible time as little as shows all between the two, or the beginning when that is
    /// longer than the axis.
    void MakeSureTimeInView(TDateTime start, TDateTime stop);
    /// Scrolls rows and time as little as shows the active item.
    void MakeSureActiveInView();

    /// The index of the one layer of the row in which neighbours are sought. Without a handler, and
    /// for an index that the row does not have, they are sought in all layers.
    TOnKeyNavigateDataList OnKeyNavigateDataList;
    /// The selection has changed: once after each operation, or after a single mark was set.
    TPublished<TOnGantNotify> OnAfterSelectionChanged;

protected:
    /// As given to the constructor.
    IGantInputHost &InputHost() { return m_inputHost; }
    const IGantInputHost &InputHost() const { return m_inputHost; }

    /// Runs a change of marks and entities as one operation. Include zuGantSelectionImpl.h.
    template <typename Change>
    void ChangeSelection(const Change &change);
    /// From now on WasFreed knows of the release of these.
    static void KeepAll(const std::vector<TzuDataEntity_Spanbar *> &items);
    /// Within an operation: whether an entity that was kept has been deleted since it began.
    bool WasFreed(const void *entity) const { return m_freed.contains(entity); }
    bool AnyFreed() const { return !m_freed.empty(); }
    /// The item from which Shift extends, or null.
    TzuDataEntity_Spanbar *Anchor() const;
    void SetAnchor(TzuDataEntity_Spanbar *item);
    /// The first row that is shown, or with Forward the last one.
    TGantRow *EdgeRow(TGantStep step) const;

    void _OnDeleteItem(TzuDataEntity *item) override;
    void _OnBeforeChangeOwner(TzuDataEntity *item) override;
    void _OnAfterChangeOwner(TzuDataEntity *item) override;
    void _OnSelectionChanged(TzuDataList *list, TzuDataEntity *item) override;
    void _OnDeleteItem_Link(TzuDataEntity *link) override;
    void _OnSelectionChanged_Link(TzuDataList *list, TzuDataEntity *link) override;
    void _OnItemFreed(const TzuDataEntity_Spanbar *item) override;
    void _OnLinkFreed(const TzuDataEntity_Link *link) override;

private:
    using TItems = std::vector<TzuDataEntity_Spanbar *>;
    struct TRowBand
    {
        TGantRow *Row;
        TPixelSpan Y;
    };
    class TChangeScope;
    struct TBand;

    void SetMarks(const TItems &items, bool selected);
    void DeselectLinks(const TzuDataEntity_Link *except);
    void DeselectOthers(const TItems &keep);
    void PressOn(TzuDataEntity_Spanbar &item, const TShiftState &shift);
    void Forget(const TzuDataEntity_Spanbar *item);
    void Forget(const TzuDataEntity_Link *link);
    TItems ItemsBetween(TzuDataEntity_Spanbar &from, TzuDataEntity_Spanbar &to) const;
    TItems ItemsIn(const TRect &rect) const;
    std::vector<TRowBand> RowsIn(const TRect &rect) const;
    void UpdateBand(TItems inside, TSelectHow how);
    template <typename Visit>
    void ForEachReached(TGantRow &row, const Visit &visit) const;
    TzuDataEntity_Spanbar *ClosestOnNextLine(TGantRow &row, int fromLine, TGantStep step,
                                             TDateTime date) const;

    IGantInputHost &m_inputHost;
    TItemSet<TzuDataEntity_Spanbar, TSpanbarSetPlace> m_selected;
    std::unordered_set<TzuDataEntity_Link *> m_selectedLinks;
    std::unique_ptr<TBand> m_band;
    TzuDataEntity_Spanbar *m_anchor = nullptr;
    /// What the release of the button decides about.
    TzuDataEntity_Spanbar *m_pressedItem = nullptr;
    const TzuDataEntity_Link *m_pressedLink = nullptr;
    /// Freed while an operation runs.
    std::unordered_set<const void *> m_freed;
    int m_changeDepth = 0;
    bool m_selectionChanged = false;
};

} // namespace korvane
