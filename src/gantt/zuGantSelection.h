// Which items and links of a Gantt chart are selected, and which items are neighbours.
#pragma once

#include "foundation/zuInput.h"
#include "gantt/zuGant.h"
#include "gantt/zuGantInputHost.h"
#include "gantt/zuGantItemSet.h"

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
class TGantSelection : public TGantCore
{
public:
    TGantSelection(IGantHost &host, IGantInputHost &inputHost, TzuGant_ComBasic *component);
    ~TGantSelection() override;

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
    void EndSelectInRect();
    /// Goes back to what was selected at BeginSelectInRect.
    void CancelSelectInRect();
    bool SelectingInRect() const { return m_band != nullptr; }

    /// The next row with a node that is shown, whether scrolled away or not; null at either end.
    TGantRow *NextShownRow(const TGantRow &row) const;
    TGantRow *PrevShownRow(const TGantRow &row) const;

    /// The selection has changed: once after each operation, or after a single mark was set.
    TOnGantNotify OnAfterSelectionChanged;

protected:
    IGantInputHost &InputHost() { return m_inputHost; }
    const IGantInputHost &InputHost() const { return m_inputHost; }

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
    using TNodeStep = TzuDataEntity_Tree *(TTreeCore::*)(const TzuDataEntity_Tree *);
    struct TRowBand
    {
        TGantRow *Row;
        TPixelSpan Y;
    };
    class TChangeScope;
    struct TBand;

    template <typename Change>
    void ChangeSelection(const Change &change);
    static void KeepAll(const TItems &items);
    void SetMarks(const TItems &items, bool selected);
    void DeselectLinks(const TzuDataEntity_Link *except);
    void DeselectOthers(const TItems &keep);
    void PressOn(TzuDataEntity_Spanbar &item, const TShiftState &shift);
    void Forget(const TzuDataEntity_Spanbar *item);
    void Forget(const TzuDataEntity_Link *link);
    TzuDataEntity_Spanbar *Anchor() const;
    void SetAnchor(TzuDataEntity_Spanbar *item);
    TItems ItemsBetween(TzuDataEntity_Spanbar &from, TzuDataEntity_Spanbar &to) const;
    TItems ItemsIn(const TRect &rect) const;
    std::vector<TRowBand> RowsIn(const TRect &rect) const;
    void UpdateBand(TItems inside, TSelectHow how);
    TGantRow *ShownRow(const TGantRow &from, TNodeStep step) const;

    IGantInputHost &m_inputHost;
    TGantItemSet m_selected;
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
