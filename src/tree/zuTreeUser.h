// What a user does with a tree: select, move about, edit, sort, move entities, delete.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuInput.h"
#include "tree/zuTree.h"

#include <cstdint>
#include <string>
#include <unordered_set>
#include <vector>

namespace korvane {

/// Entities of one tree; observed.
using TTreeEntities = std::vector<TzuDataEntity_Tree *>;

/// Keys that a tree knows.
enum class TTreeKey : std::uint8_t {
    Up,
    Down,
    Left,
    Right,
    Home,
    End,
    PageUp,
    PageDown,
    Expand,
    Collapse,
    ExpandAll, ///< the current node and what is loaded below it
    Select,
    SelectAll
};

/// Which part of its target's row a drop is on: a quarter at either edge, or the middle.
enum class TTreeDropPlace : std::uint8_t { Above, On, Below };

/// Where a drop would go. Without target it is behind the last root.
struct TTreeDrop
{
    /// Nil: behind the last root.
    TzuDataEntity_Tree *Target = nullptr;
    TTreeDropPlace Place = TTreeDropPlace::Below;

    friend bool operator==(const TTreeDrop &, const TTreeDrop &) = default;
};

/// Entities that are to come below a parent (nil: as roots), in their order, before what stands at
/// Index of its list now; an Index of Count or more is behind the last one.
struct TTreeMove
{
    /// See above.
    TTreeEntities Entities;
    TzuDataEntity_Tree *NewParent = nullptr;
    int Index = 0;
};

/// Children to be sorted: those of a parent (nil: the roots), or those of every entity.
struct TTreeSort
{
    /// See above. Without AllLevels only the children of Parent.
    TzuDataEntity_Tree *Parent = nullptr;
    TSortDirection Direction = TSortDirection::Ascending;
    bool AllLevels = false;
};

/// The rules of a tree that a user works with. Whatever the user starts is asked of the application
/// first: `allow` is true on entry and ends it when false. A handler may do the work itself, for
/// example as a step that can be undone, and set `handled`. Handlers may change the content, but
/// not destroy the tree.
class KORVANE_CORE_API TTreeUserCore : public TTreeCore
{
public:
    /// Asks whether what the user began may go on.
    using TOnBeforeEdit =
        TMethod<void(TObject *theTree, TzuDataEntity_Tree *theDataEntity, bool &allow)>;
    using TOnEdited = TMethod<void(TObject *theTree, TzuDataEntity_Tree *theDataEntity,
                                   std::string &text, bool &allow)>;
    using TOnBeforeMove =
        TMethod<void(TObject *theTree, const TTreeMove &move, bool &allow, bool &handled)>;
    /// Entities were moved by the user, as the move says.
    using TOnMoved = TMethod<void(TObject *theTree, const TTreeMove &move)>;
    /// As above.
    using TOnBeforeDelete =
        TMethod<void(TObject *theTree, const TTreeEntities &entities, bool &allow, bool &handled)>;
    using TOnBeforeSort =
        TMethod<void(TObject *theTree, const TTreeSort &sort, bool &allow, bool &handled)>;
    /// Where MoveSelected moves to.
    enum class TStep : std::uint8_t { Indent, Outdent, Up, Down };

    using TTreeCore::TTreeCore;
    ~TTreeUserCore() override;

    /// Whether more than one entity can be selected; false by default. Switching it off leaves at
    /// most the current entity selected.
    bool MultiSelect() const { return m_multiSelect; }
    virtual void SetMultiSelect(bool multi);
    /// Whether a node is expanded when the user makes it the current one; false by default.
    bool AutoExpand() const { return m_autoExpand; }
    void SetAutoExpand(bool expand) { m_autoExpand = expand; }
    /// Whether captions cannot be edited; false by default.
    bool ReadOnly() const { return m_readOnly; }
    void SetReadOnly(bool readOnly) { m_readOnly = readOnly; }
    /// How many levels there may be after what the user does: a move by drag or by MoveSelected
    /// that would put an entity, or one below it, on a deeper level is refused. The application's
    /// own changes are not limited. 0, the default: no limit.
    int MaxLevels() const { return m_maxLevels; }
    void SetMaxLevels(int levels) { m_maxLevels = levels > 0 ? levels : 0; }
    /// Whether the user may sort, and delete entities; true and false by default.
    bool AllowSort() const { return m_allowSort; }
    void SetAllowSort(bool allow) { m_allowSort = allow; }
    bool AllowDelete() const { return m_allowDelete; }
    void SetAllowDelete(bool allow) { m_allowDelete = allow; }

    // Selection: the entities' Selected.
    /// Number of entities whose Selected is set; read at no cost.
    int SelectedCount() const { return static_cast<int>(m_selected.size()); }
    /// In the order of the tree.
    TTreeEntities SelectedEntities();
    /// The selected entities without those below another selected one.
    TTreeEntities TopmostSelected();
    /// Selects a node as a click or a step with these keys held does: alone; with Ctrl the other
    /// way round than it was; with Shift all rows from the last one selected without Shift to this
    /// one, alone or with Ctrl beside the others. Alone unless MultiSelect.
    void UpdateMultiSelect(TTreeNode_zuSub &node, TShiftState shift);
    /// All entities with a row; without MultiSelect nothing happens.
    void SelectAll();
    /// Deselects all entities; the current one stays current.
    void ClearSelection();

    /// Keys. Returns whether the key did, or could have done, something.
    bool KeyDown(TTreeKey key, TShiftState shift);

    // Editing.
    /// Whether the caption may be edited: not when ReadOnly, when the entity's CanEdit says no, or
    /// by OnBeforeEdit.
    virtual bool CanEdit(TzuDataEntity_Tree &entity);
    /// Stores a caption that the user entered, after OnEdited, and fires OnValueChanged. Returns
    /// false when it was not allowed. Throws as TzuDataEntity_Tree::SetText.
    virtual bool Edit(TzuDataEntity_Tree &entity, std::string text);

    // Order.
    /// Sorts by _SortCompare, stably in both directions, without asking. With a SortCompare later
    /// children keep to the direction.
    void Sort(const TTreeSort &sort);
    /// The same for the user, when AllowSort.
    bool SortByUser(const TTreeSort &sort);

    // Moving and deleting.
    /// Where a drop at a client point would go; behind the last root outside of all rows.
    TTreeDrop DropAt(int x, int y);
    /// The move that a drop of the entities is.
    TTreeMove MoveTo(const TTreeDrop &drop, TTreeEntities entities);
    /// Whether the tree's structure and MaxLevels permit the move: never to or below one of the
    /// entities themselves.
    bool CanMove(const TTreeMove &move) const;
    /// Moves without asking. Selection, expansion and the current entity stay.
    void MoveEntities(const TTreeMove &move);
    /// As the user wants it: asked by OnBeforeMove. A new parent's children are loaded first.
    bool MoveByUser(TTreeMove move);
    /// Moves the topmost selected entities, which must be neighbours: below the one before them,
    /// behind their parent, or by one among their siblings.
    bool MoveSelected(TStep step);
    /// Deletes entities, none below another, when AllowDelete; a neighbour becomes current.
    bool DeleteByUser(const TTreeEntities &entities);
    /// The same with the topmost selected entities.
    bool DeleteSelected() { return DeleteByUser(TopmostSelected()); }

    /// The user wants to edit a caption, after ReadOnly and CanEdit have allowed it.
    TOnBeforeEdit OnBeforeEdit;
    /// The user finished with another caption, which the handler may change or refuse.
    TOnEdited OnEdited;
    /// The user wants to move, delete or sort entities; see above.
    TOnBeforeMove OnBeforeMove;
    TPublished<TOnMoved> OnMoved; ///< after a move by the user
    TOnBeforeDelete OnBeforeDelete;
    TOnBeforeSort OnBeforeSort;

protected:
    void _OnSelectionChanged(TzuDataList *list, TzuDataEntity_Tree *entity) override;
    void EntityLeaves(TzuDataEntity_Tree &entity, bool forGood) override;
    void EntityComes(TzuDataEntity_Tree &entity) override;
    void AfterUpdateDisplay() override;
    /// The user made the entity the current one.
    virtual void HandleAutoExpand(TzuDataEntity_Tree &entity);

    /// In no order.
    const std::unordered_set<TzuDataEntity_Tree *> &Selected() const { return m_selected; }
    /// Makes the node current, without selecting it.
    void MakeCurrent(TTreeNode_zuSub &node);
    /// The button went down on a node, or up again. One of several selected nodes stays selected
    /// with the others until the button is released.
    void MousePressed(TTreeNode_zuSub &node, TShiftState shift, TMouseButton button);
    void MouseReleased();
    /// The button went up elsewhere.
    void ForgetPress() { m_pressed = nullptr; }
    /// Whether this is the current entity and the only one selected.
    bool IsOnlySelected(const TzuDataEntity_Tree &entity) const;

private:
    class TGuard;

    void SortList(TzuDataList_Tree &list, TSortDirection direction);
    void SelectOnly(TzuDataEntity_Tree &entity);
    void SelectRange(TzuDataEntity_Tree &entity, bool keepOthers);
    bool ExtendRange(int anchorRow, int newRow);
    void SetRows(int first, int last, bool selected);
    void MoveCurrentTo(TTreeNode_zuSub *node, TShiftState shift);
    TTreeNode_zuSub *ShownCurrent() const;
    TTreeNode_zuSub *EntityNodeFrom(int row, int step) const;
    TTreeNode_zuSub *KeyTarget(TTreeKey key, TTreeNode_zuSub *current) const;
    bool KeyOnNode(TTreeKey key, TTreeNode_zuSub &current, TShiftState shift);
    void ExpandLoaded(TzuDataEntity_Tree &entity);
    bool FitsLevels(const TTreeMove &move) const;
    TTreeMove StepMove(TStep step, TTreeEntities entities);

    std::unordered_set<TzuDataEntity_Tree *> m_selected;
    TzuDataEntity_Tree *m_anchor = nullptr;   ///< where ranges begin
    TzuDataEntity_Tree *m_rangeEnd = nullptr; ///< while the selection is the range to there
    TzuDataEntity_Tree *m_pressed = nullptr;  ///< to be selected alone on release
    TGuard *m_guard = nullptr;
    int m_maxLevels = 0;
    unsigned m_departures = 0; ///< counts what may have taken nodes or entities away
    bool m_selecting = false;
    bool m_multiSelect = false;
    bool m_autoExpand = false;
    bool m_readOnly = false;
    bool m_allowSort = true;
    bool m_allowDelete = false;
};

} // namespace korvane
