// The core of a grid view: editing cells.
#pragma once

#include "cellgrid/zuBabGridEditHost.h"
#include "cellgrid/zuBabGridGestures.h"
#include "cellgrid/zuCellTable.h"
#include "foundation/zuExport.h"

#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

/// A change of one cell that the user wants.
struct TCellEdit
{
    /// The cell, and its column and row.
    TGridCellAt At;
    TAxisContentItem *Column = nullptr;
    TAxisContentItem *Row = nullptr;
    TBabCell *Cell = nullptr; ///< nil where no cell was put into the crossing
    std::string Before;       ///< the text that the cell has
    std::string Text;         ///< that the cell is to get; a handler may change it
    bool Allow = true;        ///< false: the edit is refused
    std::string Reason;       ///< why not; told to the user
};

/// What of a block of texts found a place.
struct TGridPaste
{
    int Stored = 0;          ///< texts
    int ReadOnly = 0;        ///< cells that cannot be changed
    int Refused = 0;         ///< texts that their cells do not take
    int Outside = 0;         ///< beyond the last column or row
    std::string FirstReason; ///< of what was refused; told to the user
};

/// What the user does: an editor or check box, pasting, emptying cells, or dragging rows.
enum class TGridUserChange : std::uint8_t { ucEdit, ucPaste, ucClear, ucMove };

/// The keys that an editor leaves to the grid first.
enum class TEditKey : std::uint8_t {
    Enter,
    ShiftEnter,
    Tab,
    ShiftTab,
    Escape,
    F2,
    Left,
    Right,
    Up,
    Down,
    PageUp,
    PageDown
};

/// A text is about to be stored; the handler may change or refuse it.
using TOnEditStop = TMethod<void(TObject *theGrid, TCellEdit &theEdit)>;
/// A text was stored.
using TOnCellEdited = TMethod<void(TObject *theGrid, const TCellEdit &theEdit)>;
/// Whether the user may change the cell; `theAllow` is true on entry.
using TOnBeforeEdit = TMethod<void(TObject *theGrid, const TGridCellAt &theCell, bool &theAllow)>;
/// An event about one cell.
using TOnCellEvent = TMethod<void(TObject *theGrid, TBabCell *theCell)>;
/// Bracket around everything that one action of the user changes, for applications that can undo.
/// With `theChanged` false all is as before.
using TOnGridBeginUserChange = TMethod<void(TObject *theGrid, TGridUserChange theKind)>;
using TOnGridEndUserChange =
    TMethod<void(TObject *theGrid, TGridUserChange theKind, bool theChanged)>;

/// At most one cell is being edited. A text that is not taken stays in the editor, with the reason,
/// until it is mended or given up. The editor follows its cell, and closes without a change when
/// the cell goes.
///
/// Every change by the user, by editor, check box, pasting or clearing, takes one way: the text is
/// understood by the cell's kind, OnEditStop may refuse it, the cell or OnSetCellText stores it.
/// What these throw counts as a refusal. Each action is one user change.
class KORVANE_CORE_API TBabGridEdit : public TBabGridGestures
{
public:
    /// Both outlive the core and are not called during construction.
    TBabGridEdit(IBabGridHost &host, IBabGridEditHost &editHost);

    /// Whether typing on a cell edits it; false by default. Without, only F2 and a double click do,
    /// and typing looks for the row that begins so.
    bool AutoEditMode() const { return m_autoEditMode; }
    void SetAutoEditMode(bool value) { m_autoEditMode = value; }
    /// Whether the user cannot change any cell; false by default. A change cancels an edit.
    bool ReadOnly() const { return m_readOnly; }
    void SetReadOnly(bool value);

    /// Whether the user may change the cell: its column, the cell and OnBeforeEdit allow it.
    bool MayEdit(TGridCellAt at);
    /// Opens an editor on a cell behind the heads, which gets the focus. False when it has no
    /// editor or may not be changed.
    bool BeginEdit(TGridCellAt at, TEditBegin how, std::string_view typed = {});
    /// Whether an editor is open, and on which cell; no grid when none is.
    bool IsEditing() const { return m_edited.Grid != nullptr; }
    TGridCellAt EditedCell() const { return m_edited; }
    /// Stores what was typed and closes the editor. False when it is refused and still open.
    bool CommitEdit();
    /// Closes the editor, and forgets what was typed; nothing without one.
    void CancelEdit();
    /// Scrolls to the cell that is being edited; for when the user types.
    void ShowEditedCell();
    /// Keeps the editor where its cell is. Called after each layout.
    void PlaceEditor();

    /// A key in the editor. False leaves it to the editor.
    bool EditorKey(TEditKey key);
    /// Tab and Enter, while editing or not: to the next cell; below the cell in which a run of tabs
    /// began. False when there is nowhere to go, or the edit is refused.
    bool TabMove(bool back);
    bool EnterMove(bool up);

    /// Turns the check box of a cell.
    void ToggleCheckBox(const TGridCellAt &at);
    /// Empties the selected cells; those of selected rows only when cells are selected, too.
    void ClearCells();
    /// Puts lines of tab-separated texts, quoted as spreadsheets do, into the shown cells from the
    /// first selected one on, and selects these. A single text fills all selected cells.
    TGridPaste PasteText(std::string_view text);
    /// Writes the shown columns and rows of the view's grid, with the header texts, as
    /// comma-separated values by RFC 4180. Dates and times are written by ISO 8601; a text that
    /// spreadsheets would take for a formula gets an apostrophe.
    void WriteCsv(std::ostream &out);

    /// Asked whenever the user wants to change a cell, and by MayEdit.
    TOnBeforeEdit OnBeforeEdit;
    /// A combo is about to open, or a text to be checked by it: fill the Items of the cell's
    /// TBabCellData_Combo. A cell that is made for this goes afterwards.
    TPublished<TOnCellEvent> OnBeforeEditWithCombo;
    TPublished<TOnEditStop> OnEditStop;     ///< before the text is stored
    TPublished<TOnCellEdited> OnCellEdited; ///< after the text was stored
    /// A pasted block reaches that many rows beyond the last one: the application may add them.
    TPublished<TMethod<void(TObject *theGrid, TBabGridCell *theGridCell, int theCount)>>
        OnAddRowsForPaste;
    /// Around each action of the user; see the types.
    TPublished<TOnGridBeginUserChange> OnBeginUserChange;
    TPublished<TOnGridEndUserChange> OnEndUserChange;

protected:
    void CountChanged(TAxisContentList *list, int index, int by) override;
    void ItemsMoved(TAxisContentList *list, int from, int to, int count) override;
    void RowsReordered(TAxisContentList *list, int first, const std::vector<int> &order) override;
    void SubGridGoes(TBabGridCell *grid) override;
    bool MayLeaveCell() override { return CommitEdit(); }
    /// From now on the place follows its cell, and is none when that goes. For members only.
    void Follow(TGridCellAt &at) { m_followed.push_back(&at); }
    /// Expires with the view.
    std::weak_ptr<char> Life() const { return m_life; }
    /// The default is an edit, and the turn of the check box.
    void CellDoubleClicked(const TGridCellAt &at) override;
    void CheckBoxClicked(const TGridCellAt &at) override { ToggleCheckBox(at); }
    /// As one user change.
    void DropRows(const TGridRowDrop &drop) override;

private:
    class TFollow;
    struct TChoices
    {
        std::vector<std::string> Items;
        bool FreeText = true;
    };

    static TColumnKind KindOf(const TGridCellAt &at);
    bool FinishAndMove(TGridMove move);
    void EndEdit();
    template <typename Change>
    void ChangePlaces(const TAxisContentList &list, const Change &change);
    TChoices ChoicesOf(TGridCellAt at);
    bool Store(TGridCellAt at, const std::string &text, std::string &reason);
    static bool Resolve(const TFollow &follow, TCellEdit &edit);
    bool StoreAllowed(const TFollow &follow, TCellEdit &edit, std::string &reason);
    bool Understand(const TFollow &follow, TCellEdit &edit, std::string &reason);
    bool Write(const TFollow &follow, TCellEdit &edit, std::string &reason);
    template <typename Body>
    void AsUserChange(TGridUserChange kind, const Body &body);
    template <typename Visit>
    void ForEachSelectedCell(const Visit &visit);
    void PasteInto(TGridCellAt at, const std::string &text, TGridPaste &result);
    void AddRowsFor(const TGridCellAt &start, int rows);
    void PasteBlock(const TCellTable &block, TGridPaste &result);
    std::string CsvText(TAxisContentItem &column, TAxisContentItem &row);
    TRect ClipOf(const TBabGridCell &grid);
    void TellPasted(const TGridPaste &result);

    IBabGridEditHost &m_editHost;
    std::shared_ptr<char> m_life = std::make_shared<char>(); ///< watched across handlers
    std::vector<TGridCellAt *> m_followed;                   ///< kept where their cells are
    TGridCellAt m_edited;
    std::string m_before; ///< text of the cell when the editor opened
    TColumnKind m_editKind = TColumnKind::tckSimpleEdit;
    TEditBegin m_how = TEditBegin::Whole;
    TGridCellAt m_tabFrom; ///< where a run of tabs began
    TGridCellAt m_tabTo;   ///< and how far it has come
    int m_userChanges = 0;
    int m_edits = 0; ///< that began; tells one from the next
    bool m_committing = false;
    bool m_autoEditMode = false;
    bool m_readOnly = false;
};

} // namespace korvane
