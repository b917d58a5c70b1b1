// Which times of a schedule are selected.
#pragma once

#include "data/zuItemSet.h"
#include "foundation/zuExport.h"
#include "foundation/zuInput.h"
#include "schema/zuSchema.h"
#include "schema/zuSchemaInputHost.h"

#include <memory>
#include <unordered_set>
#include <utility>
#include <vector>

namespace korvane {

/// Adds the rules of selecting to the schedule.
///
/// Every time has a Selected mark of its own, which may be set at any time; the operations here set
/// many at once. They select only times of drawn data lists that are visible, or would be if their
/// column or their time were scrolled into view.
///
/// An operation fires OnSelectionChanged_SchemaTime once for each time whose mark has changed, and
/// OnAfterSelectionChanged once in the end. Handlers may change the selection and the times, but
/// not destroy the schedule.
class KORVANE_CORE_API TSchemaSelection : public TSchemaCore
{
public:
    /// Both hosts outlive the schedule; `component` is that of TSchemaCore.
    TSchemaSelection(ISchemaHost &host, ISchemaInputHost &inputHost, TzuSchema_ComBasic *component);
    ~TSchemaSelection() override;

    /// Costs the same however many are selected.
    int SelectedCount() const { return m_selected.Count(); }
    bool IsSelected(const TzuDataEntity_SchemaTime &time) const
    {
        return m_selected.Contains(&time);
    }
    /// In the order of a walk over all data lists. Costs what is selected.
    TTimes SelectedTimes();

    /// Selects every time that the columns have within the visible time.
    void SelectAll();
    /// Deselects every time.
    void ClearSelection();
    /// Makes the time the only one selected.
    void SelectOnly(TzuDataEntity_SchemaTime &time);
    /// Selects what lies in the columns from one time to another and overlaps, relative to the base
    /// dates, the time from the earlier start to the later stop of the two. Replace selects it
    /// alone.
    void SelectRange(TzuDataEntity_SchemaTime &from, TzuDataEntity_SchemaTime &to, TSelectHow how);
    /// Makes the time behind the first selected one, in the order of the data lists, the active one
    /// and selects it alone, or with Add as well; the first one behind the last. Times that no
    /// column can show are passed over. Null when there is none.
    TzuDataEntity_SchemaTime *SelectNeighbour(TSchemaStep step,
                                              TSelectHow how = TSelectHow::Replace);

    /// The rules of a click on a time, or beside all with null. On the press of a button:
    /// - plain: a time that is not selected is selected alone, and null clears the selection; a
    ///   selected one keeps the selection, so that all of it can be dragged;
    /// - Ctrl: a time that is not selected is added;
    /// - Shift: the range from the anchor is selected alone, with Ctrl added. The anchor is the
    ///   time that was last clicked without Shift, or else the active one.
    /// On the release without a drag a selected time is selected alone, or with Ctrl deselected.
    /// The time becomes the active one; null leaves the active one as it is.
    void UpdateMultiSelect(TzuDataEntity_SchemaTime *time, const TShiftState &shift,
                           TSelectStep step);

    /// Takes down what is selected. Until the matching EndSelectInRect, each SelectInRect starts
    /// from that.
    void BeginSelectInRect();
    /// Applies a rectangle in area pixels, which may reach beyond the area to where scrolled
    /// columns and times would lie.
    void SelectInRect(const TRect &rect, TSelectHow how);
    /// Keeps what is selected now.
    void EndSelectInRect() { m_band.reset(); }
    /// Goes back to what was selected at BeginSelectInRect.
    void CancelSelectInRect();
    /// From BeginSelectInRect to its end.
    bool SelectingInRect() const { return m_band != nullptr; }

    /// Scrolls columns and time as little as shows the time; its beginning when it is longer than
    /// the axis.
    void MakeSureInView(const TzuDataEntity_SchemaTime &time);

    void TimeJoined(TzuDataEntity_SchemaTime &time) override;
    void TimeLeft(TzuDataEntity_SchemaTime &time) override;

    /// The selection has changed: once after each operation, or after a single mark was set.
    TPublished<TSchemaNotify> OnAfterSelectionChanged;

protected:
    /// As given to the constructor.
    ISchemaInputHost &InputHost() { return m_inputHost; }
    /// In no particular order.
    const TTimes &Selected() const { return m_selected.Items(); }

    /// Runs a change of marks and times as one operation.
    template <typename Change>
    void ChangeSelection(const Change &change)
    {
        {
            const TChangeScope scope(*this);
            change();
        }
        AfterChange();
    }
    /// Within an operation: whether the time has left the schedule since it began.
    bool WasRemoved(const TzuDataEntity_SchemaTime *time) const { return m_removed.contains(time); }

    void _OnSelectionChanged(TzuDataList *list, TzuDataEntity *item) override;

private:
    class TChangeScope
    {
    public:
        explicit TChangeScope(TSchemaSelection &selection)
            : m_selection(selection)
        {
            ++selection.m_changeDepth;
        }
        TChangeScope(const TChangeScope &) = delete;
        TChangeScope &operator=(const TChangeScope &) = delete;
        ~TChangeScope()
        {
            if (--m_selection.m_changeDepth == 0) {
                m_selection.m_removed.clear();
            }
        }

    private:
        TSchemaSelection &m_selection;
    };
    struct TBand
    {
        std::unordered_set<TzuDataEntity_SchemaTime *> Before; ///< selected when it began
        std::unordered_set<TzuDataEntity_SchemaTime *> Inside;
    };

    void AfterChange();
    void SetMarks(const TTimes &times, bool selected);
    void DeselectOthers(const TTimes &keep);
    void PressOn(TzuDataEntity_SchemaTime &time, const TShiftState &shift);
    TTimes TimesBetween(TzuDataEntity_SchemaTime &from, TzuDataEntity_SchemaTime &to);

    ISchemaInputHost &m_inputHost;
    TItemSet<TzuDataEntity_SchemaTime, TSchemaSelectionPlace> m_selected;
    std::unique_ptr<TBand> m_band;
    TzuDataEntity_SchemaTime *m_anchor = nullptr;
    TzuDataEntity_SchemaTime *m_pressed = nullptr; ///< the release of the button decides about it
    std::unordered_set<const TzuDataEntity_SchemaTime *> m_removed; ///< while an operation runs
    int m_changeDepth = 0;
    bool m_selectionChanged = false;
};

} // namespace korvane
