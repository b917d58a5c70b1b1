// What the editing of cells asks of the control that shows the grid.
#pragma once

#include "cellgrid/zuBabColumn.h"
#include "cellgrid/zuBabGridLayout.h"
#include "foundation/zuExport.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// What an editor begins with, and which keys finish it.
enum class TEditBegin : std::uint8_t {
    Whole,  ///< the cell's text, selected as a whole
    AtEnd,  ///< the cell's text with the caret behind it
    Replace ///< what was typed on the cell in place of its text; arrow keys finish, too
};

/// An editor that is to open.
struct TEditStart
{
    TGridCellAt At;                                ///< the cell
    TColumnKind Kind = TColumnKind::tckSimpleEdit; ///< of its column
    TEditBegin How = TEditBegin::Whole;            ///< see the type
    std::string Text;                              ///< that it begins with
    std::vector<std::string> Items;                ///< to choose from; for a combo
    bool FreeText = true;                          ///< whether other texts than the items are taken
};

/// Shows the editor and tells what is in it.
class KORVANE_CORE_API IBabGridEditHost
{
public:
    virtual ~IBabGridEditHost() = default;

    /// PlaceEditor follows. At most one editor is open.
    virtual void OpenEditor(const TEditStart &start) = 0;
    /// What the editor holds now, UTF-8.
    virtual std::string EditorText() const = 0;
    /// The cell has come to lie at `cell`, of which what lies in `clip` may be covered. In pixels
    /// of the view.
    virtual void PlaceEditor(const TRect &cell, const TRect &clip) = 0;
    /// The editor goes, whether its text was taken or not, and the view has the keyboard again.
    virtual void CloseEditor() = 0;
    /// Tells the user why something was not taken, at a cell or, if there is one, at the editor.
    virtual void ShowRefusal(const TRect &cell, std::string_view reason) = 0;
};

} // namespace korvane
