// The core of a grid view: finding text.
#pragma once

#include "cellgrid/zuBabGridEdit.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace korvane {

/// Where a search begins; each goes around once.
enum class TGridFindFrom : std::uint8_t { Here, Next, Previous };

/// How far a search is. Idle: none has begun, or it was given up.
enum class TGridFindState : std::uint8_t { Idle, Searching, Found, NotFound };

/// A search that an application does itself, such as one in rows that are not loaded.
struct TGridFind
{
    std::string Text;                         ///< looked for; not empty
    TGridFindFrom From = TGridFindFrom::Here; ///< counted from the focus
    bool Handled = false;                     ///< the grid does not search
    TGridCellAt Found; ///< gets the focus; a handler that loads rows loads this one, too
};
/// A search begins; the handler may do it.
using TOnGridFind = TMethod<void(TObject *theGrid, TGridFind &theFind)>;

/// Looks for a text in the cells of the shown columns, row by row, those in grids in cells and
/// below collapsed nodes included, whatever its case. Only what is loaded is searched; rows and
/// columns that are hidden are not, and check boxes hold no text. A search goes on step by step, so
/// that it never keeps the user waiting; it bears changes of the grid meanwhile.
class KORVANE_CORE_API TBabGridFind : public TBabGridEdit
{
public:
    /// Both outlive the core and are not called during construction.
    TBabGridFind(IBabGridHost &host, IBabGridEditHost &editHost);

    /// Looks from the focus on for the text. It is marked in the cells until another or an empty
    /// one is looked for.
    void BeginFind(std::string text, TGridFindFrom from);
    /// Looks at that many cells further. What is found gets the focus, what hides it expanded.
    TGridFindState FindOn(int cells);
    /// Ends a search that is under way.
    void CancelFind();
    /// How far the search is that was begun last.
    TGridFindState FindState() const { return m_state; }
    /// Whether the search passed the end, or the beginning, and went on from the other side.
    bool FindWentRound() const { return m_wentRound; }
    /// The text that is marked; empty for none.
    const std::string &FoundText() const { return m_text; }

    /// Fired by BeginFind, unless the text is empty.
    TPublished<TOnGridFind> OnFind;

protected:
    std::string_view MarkedText() const override { return m_text; }
    /// Brings texts into a form in which they are equal when only their case differs. The core
    /// knows ASCII letters, of which this needs not take care.
    virtual std::string FoldCase(std::string text) const { return text; }

private:
    TGridCellAt Step(const TGridCellAt &from) const;
    TGridCellAt NextCell(TGridCellAt at) const;
    TGridCellAt PreviousCell(TGridCellAt at) const;
    TGridCellAt FirstIn(TBabGridCell &grid) const;
    TGridCellAt LastIn(TBabGridCell &grid) const;
    TGridCellAt DeepestLast(TGridCellAt at) const;
    bool Matches(const TGridCellAt &at) const;
    TGridFindState Choose();
    TGridFindState End(TGridFindState state);

    std::string m_text;
    std::string m_folded; ///< of the text
    TGridCellAt m_start;
    TGridCellAt m_at;
    TGridFindFrom m_from = TGridFindFrom::Here;
    TGridFindState m_state = TGridFindState::Idle;
    bool m_lookHere = false; ///< the current cell is still to be looked at
    bool m_wentRound = false;
};

} // namespace korvane
