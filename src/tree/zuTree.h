// The core of the tree: a hierarchy of entities, the nodes that display it, current and top entity.
#pragma once

#include "data/zuDataTraveser.h"
#include "foundation/zuExport.h"
#include "foundation/zuPublished.h"
#include "tree/zuTreeData.h"
#include "tree/zuTreeDisplay.h"
#include "tree/zuTreeHost.h"

#include <concepts>
#include <memory>
#include <string_view>
#include <utility>
#include <vector>

namespace korvane {

/// A displayed entity and its row in client pixels.
struct TTreeRow
{
    /// Whole, even where the client area cuts it off.
    TzuDataEntity_Tree *Entity = nullptr;
    TRect Rect;
};

/// Something happened to the tree, or to an entity of it.
using TTreeNotify = TMethod<void(TObject *theTree)>;
using TTreeEntityNotify = TMethod<void(TObject *theTree, TzuDataEntity_Tree *theDataEntity)>;

/// The rules of the tree, without its widget. Changes to the content mark the display out of date;
/// the next reader or paint brings it up to date. Handlers may change the content at any time.
class KORVANE_CORE_API TTreeCore : public TObject
{
public:
    /// Makes a list of the tree's own class.
    using TListFactory = TMethod<std::unique_ptr<TzuDataList_Tree>()>;

    /// Host and observer outlive the tree. They are not called during construction.
    TTreeCore(ITreeHost &host, ITreeNodeObserver &observer);
    /// Releases the content, unless DestroyContent has done so.
    ~TTreeCore() override;

    /// Whether entities without children get a placeholder child, so that they can be expanded
    /// before their children are loaded; true by default. A change rebuilds the display.
    bool LoadOnDemand() const { return m_loadOnDemand; }
    void SetLoadOnDemand(bool loadOnDemand);
    /// Entities of a level below this number less 1 are expanded when they are first displayed, and
    /// only they get placeholders. -1: unset, the default.
    int AutoExpandLevels() const { return m_autoExpandLevels; }
    void SetAutoExpandLevels(int levels);
    /// Order of siblings in the display, and of the lists' Sort. Without one nodes stand in list
    /// order. Nodes are sorted when an entity was inserted beside them, stably.
    const TOnEntityCompare &SortCompare() const { return m_sortCompare; }
    void SetSortCompare(TOnEntityCompare compare);

    /// The roots; made when first asked for, nil once the tree is being released. Entities belong
    /// to their lists, lists to their parent entity or to the tree.
    TzuDataList_Tree *DataList();
    /// Every list of the tree that was asked for.
    const TzuDataList2lev &DataLists() const { return *m_lists; }
    /// The controller of all these lists; its slots are the tree's to set.
    TzuListController_Tree &Controller() { return m_controller; }
    /// Appends below the parent, or a root when it is nil. Returns nil when a handler removed it.
    TzuDataEntity_Tree *AddDataEntity(TzuDataEntity_Tree *parent = nullptr);
    /// The same to a list of this tree.
    TzuDataEntity_Tree *AddDataEntity(TzuDataList_Tree &list);
    /// Inserts at an index 0..Count of the list; throws std::out_of_range for others. Nil as above.
    TzuDataEntity_Tree *InsertDataEntity(TzuDataList_Tree &list, int index);
    /// Takes it out and frees it, with all below it; nil and what is in no list are ignored.
    void RemoveDataEntity(TzuDataEntity_Tree *entity);
    /// Removes everything.
    void Clear() { DataList()->Clear(); }

    // Display.
    /// Asks for an update of the display; whether one is due; makes it at once, unless one runs.
    void DisplayOutOfDate();
    bool IsDisplayOutOfDate() const { return m_displayOutOfDate; }
    void EnsureDisplayUpToDate();
    /// Between the two the view is not asked to repaint. They nest.
    void BeginUpdate() { ++m_updateDepth; }
    void EndUpdate();
    /// Nil for nil, for a placeholder and for a node whose entity went.
    static TzuDataEntity_Tree *GetDataEntityFromNode(const TTreeNode_zuSub *node);
    /// The entity whose row holds the client point, nil when none.
    TzuDataEntity_Tree *GetDataEntityAt(int x, int y);
    /// The entity in a display row (counted from the first row of the tree), nil when none.
    TzuDataEntity_Tree *GetDataEntityFromRow(int row);
    /// Display row; -1 when the entity is not visible.
    int GetRow(const TzuDataEntity_Tree &entity);
    /// The row's rectangle in client pixels; (-1, -1, -1, -1) when the entity is not visible or is
    /// scrolled away.
    TRect GetRect(const TzuDataEntity_Tree &entity);
    /// The rows within the client area, top to bottom, without placeholders.
    std::vector<TTreeRow> VisibleRowEntities();
    /// The entity in the next display row that shows one; of nil the first. Nil when there is none
    /// or the entity is not visible.
    TzuDataEntity_Tree *GetNextVisible(const TzuDataEntity_Tree *entity);
    /// The same in the row before; nil for nil.
    TzuDataEntity_Tree *GetPrevVisible(const TzuDataEntity_Tree *entity);
    /// Number of display rows, placeholders included.
    int CountVisible();
    /// Nodes whose children are not loaded stay as they are, here and in the next three.
    void FullExpand();
    void FullCollapse();
    /// Expands the entities of levels 0..levels - 1.
    void ExpandLevels(int levels);
    /// Expands and collapses so that exactly the first `levels` levels show.
    void ShowLevels(int levels);

    // Current entity and top entity.
    /// The entity of the selected node; nil when there is none.
    TzuDataEntity_Tree *GetCurrentDataEntity();
    /// Selects later, by a deferred call, so that it is one update with the changes made meanwhile.
    void SetCurrentDataEntity(TzuDataEntity_Tree *entity);
    /// Nil when the top node is a placeholder or carries one.
    TzuDataEntity_Tree *GetTopItem();
    /// Scrolls the entity's row to the top, expanding what hides it; nil goes back to the first
    /// row.
    void SetTopItem(TzuDataEntity_Tree *entity);
    /// Expands what hides the entity's row and scrolls as little as shows it whole.
    void MakeVisible(TzuDataEntity_Tree &entity);

    // Events.
    /// A node with a placeholder is about to expand, before OnExpanded: the children are to be
    /// added now. `loaded` is true on entry; a handler that adds them later sets it to false.
    TMethod<void(TObject *theTree, TzuDataEntity_Tree *theDataEntity, bool &loaded)> OnLoadChildren;
    TPublished<TOnInsertItem> OnInsertItem;
    TPublished<TTreeEntityNotify> OnDeleteItem_Tree; ///< fired before OnDeleteItem
    TPublished<TOnDeleteItem> OnDeleteItem;
    TPublished<TTreeEntityNotify> OnLoadItem;
    TPublished<TOnContentChanged> OnContentChanged;
    TPublished<TOnSelectionChanged> OnSelectionChanged;
    TPublished<TTreeEntityNotify> OnVisibleChanged;
    TPublished<TOnInfoPush> OnInfoPush;
    TPublished<TTreeEntityNotify> OnChangeDataEntity; ///< after OnInfoPush
    TPublished<TOnBeforeCanEditItem> OnBeforeCanEditItem;
    TPublished<TTreeEntityNotify> OnValueChanged; ///< the user edited the caption
    TPublished<TTreeNotify> OnTopItemChanged;
    TPublished<TTreeNotify> OnCurrentChanged; ///< another entity became the current one
    TPublished<TTreeEntityNotify> OnExpanded;
    TPublished<TTreeEntityNotify> OnCollapsed;

    /// Makes a node. Outside an update of the display the display is made anew next time.
    TTreeNode_zuSub::TOwner CreateNode();
    /// Whether an entity without children gets a placeholder; not once its children were asked for.
    virtual bool NeedsDummyNode(TzuDataEntity_Tree &entity) const
    {
        return m_loadOnDemand && !entity.ChildrenLoaded();
    }

protected:
    /// For constructors, before the first use of the content.
    void SetListClass(TListFactory create) { m_createList = std::move(create); }
    template <std::derived_from<TzuDataEntity_Tree> T>
    void SetEntityClass()
    {
        m_entityClass = EntityClass::Of<T>();
    }

    /// From the beginning of the release on.
    bool Destroying() const { return m_destroying; }
    /// Releases the content. To be called by the destructor of the class that is the host, and of
    /// every class that overrides a handler below; the first call does it.
    void DestroyContent();
    /// Neither while it is being rebuilt nor in this state is the display brought up to date.
    virtual bool RebuildBlocked() const { return m_destroying; }

    /// The controller's slots: they note what the display lacks and fire their events.
    virtual void _InsertItem(TzuDataEntity_Tree *entity);
    virtual void _DeleteItem(TzuDataEntity_Tree *entity);
    virtual void _OnContentChanged(TzuDataList_Tree *list);
    virtual void _OnSelectionChanged(TzuDataList *list, TzuDataEntity_Tree *entity);
    virtual void _OnVisibleChanged(TzuDataEntity_Tree *entity);
    virtual void _OnInfoPush(TzuDataEntity_Tree *entity);
    virtual void _OnBeforeCanEditItem(TzuDataEntity_Tree *entity);
    /// By SortCompare; without it by caption.
    virtual int _SortCompare(TzuDataEntity_Tree *the1, TzuDataEntity_Tree *the2);
    /// Less than, equal to or greater than 0; by bytes unless an override knows better.
    virtual int CompareCaptions(std::string_view the1, std::string_view the2) const;
    /// The entity goes, for good or to another list, and with it what refers to it.
    virtual void EntityLeaves(TzuDataEntity_Tree &, bool /*forGood*/) {}
    /// The entity came from another list.
    virtual void EntityComes(TzuDataEntity_Tree &) {}

    /// Notifications. The entity of Expand and Collapse is nil when there may be many.
    virtual void Expand(TzuDataEntity_Tree *entity);
    virtual void Collapse(TzuDataEntity_Tree *entity);
    virtual void DoCurrentChanged() { OnCurrentChanged(this); }
    virtual void AfterUpdateDisplay() {}
    /// Fires OnTopItemChanged if there is another one than last time.
    void DoUpdateTopItem();

    /// Asks for the children of a node when a placeholder stands for them. Returns false when none
    /// came, or the entity went; the node is collapsed then.
    bool LoadChildren(TTreeNode_zuSub &node);

    /// What the user did in the view. The view shows it already.
    void NodeExpandedByUser(TTreeNode_zuSub &node, bool expanded);
    void NodeSelectedByUser(TTreeNode_zuSub *node);
    /// Takes over the view's selection mark of one node.
    void NodeMarkedByUser(TTreeNode_zuSub &node, bool selected);

    /// As given to the constructor.
    ITreeHost &Host() const { return m_host; }
    /// A list of DataLists; the index must be valid.
    TzuDataList_Tree &ListAt(int index) const;
    /// The invisible node above the roots, and the current one or nil.
    const TTreeNode_zuSub &RootNode() const { return m_display.Root(); }
    TTreeNode_zuSub *SelectedNode() const { return m_selectedNode; }

private:
    friend class TTreeDisplay;
    friend class TzuDataEntity_Tree;
    friend class TzuDataList_Tree;

    class TKeepTop;
    struct TMoving
    {
        TzuDataEntity_Tree *Entity = nullptr;
        TzuDataList_Tree *List = nullptr;
        int Position = 0;
        TzuDataEntity_Tree *PendingCurrent = nullptr; ///< at or below the entity
    };

    static bool IsAtOrBelow(const TzuDataEntity_Tree &entity, const TzuDataEntity_Tree &above);
    void FillController();
    void UpdateDisplay();
    TzuDataList_Tree *NewList(TzuDataEntity_Tree *parent);
    void ReleaseList(TzuDataList_Tree *list);
    void ReleaseContent();
    void ReleaseChildren(TzuDataList_Tree *children);
    void Forget(TzuDataEntity_Tree &entity);
    void ItemLoaded(TzuDataEntity_Tree *entity);
    void ItemMoved(TzuDataEntity_Tree *entity);
    void BeforeChangeOwner(TzuDataEntity_Tree *entity);
    void AfterChangeOwner(TzuDataEntity_Tree *entity);
    void AdoptChildren(TzuDataEntity_Tree &entity);
    void SetCurrentDataEntity_Async(TObject *parameter);
    void SelectNothingIfDoomed();
    void SetEntityExpanded(TzuDataEntity_Tree &entity, bool expanded);
    void SetNodeExpanded(TTreeNode_zuSub &node, bool expanded);
    static void ExpandAncestors(const TzuDataEntity_Tree &entity);
    template <typename Wanted>
    void SetExpansions(const Wanted &wanted);
    static TRect RowRect(int row, const TTreeGeometry &geometry);
    void Invalidate();

    ITreeHost &m_host;
    ITreeNodeObserver &m_observer;
    TzuListController_Tree m_controller;
    EntityClass m_entityClass;
    TListFactory m_createList;
    std::unique_ptr<TzuDataList2lev> m_lists;
    TzuDataList_Tree *m_rootList = nullptr;
    TTreeDisplay m_display;
    TOnEntityCompare m_sortCompare;
    TzuDataEntity_Tree *m_pendingCurrent = nullptr;
    TzuDataEntity_Tree *m_lastTopItem = nullptr;
    TzuDataEntity_Tree *m_keptTop = nullptr;
    TTreeNode_zuSub *m_selectedNode = nullptr;
    TMoving m_moving;
    std::vector<TzuDataList_Tree *> m_waitingLists; ///< of deleted entities, yet to be released
    int m_deletionDepth = 0;
    int m_autoExpandLevels = -1;
    int m_updateDepth = 0;
    bool m_loadOnDemand = true;
    bool m_displayOutOfDate = false;
    bool m_rebuilding = false;
    bool m_markingFromView = false;
    bool m_currentLost = false; ///< and to be told when the update is over
    bool m_nodesCreatedOutside = false;
    bool m_invalidatePending = false;
    bool m_destroying = false;
};

} // namespace korvane
