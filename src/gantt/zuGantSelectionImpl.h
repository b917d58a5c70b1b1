// How an operation on the selection runs; for the sources of the chart alone.
#pragma once

#include "gantt/zuGantSelection.h"

#include <utility>

namespace korvane {

/// While it lives, marks change without repaint and without OnAfterSelectionChanged, and entities
/// that are freed are remembered.
class TGantSelection::TChangeScope
{
public:
    /// Scopes nest; the outermost asks for the repaint.
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
    /// Items in the rectangle now; how it was applied last, and whether it was.
    TItems Inside;
    TSelectHow How = TSelectHow::Replace;
    bool Applied = false;

    /// Whether an item is selected that lies inside or outside.
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

template <typename Change>
void TGantSelection::ChangeSelection(const Change &change)
{
    {
        const TChangeScope scope(*this);
        change();
    }
    if (m_changeDepth == 0 && std::exchange(m_selectionChanged, false)) {
        m_inputHost.SelectionChanged();
        OnAfterSelectionChanged(Component());
    }
}

} // namespace korvane
