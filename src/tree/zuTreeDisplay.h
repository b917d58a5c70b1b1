// Keeps the nodes of a tree in step with its entities, at the cost of what changed.
#pragma once

#include "foundation/zuExport.h"
#include "tree/zuTreeData.h"
#include "tree/zuTreeHost.h"
#include "tree/zuTreeNode.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace korvane {

class TzuBeginUpdate;

/// The nodes below one root and the record of what they lack.
///
/// The nodes are those that a walk over all entities would make: one for each entity that is not
/// hidden and whose parent has one, in list order unless the tree compares, and placeholders below
/// entities without children where the tree wants them. Instead of walking, the display is told
/// which entities and lists to look at.
class KORVANE_CORE_API TTreeDisplay
{
public:
    /// Both outlive the display.
    TTreeDisplay(TTreeCore &tree, ITreeNodeObserver &observer);
    TTreeDisplay(const TTreeDisplay &) = delete;
    TTreeDisplay &operator=(const TTreeDisplay &) = delete;
    ~TTreeDisplay();

    /// Invisible, and above the roots.
    TTreeNode_zuSub &Root() { return m_root; }
    const TTreeNode_zuSub &Root() const { return m_root; }
    /// The node that a list's entities hang below; nil while there is none.
    TTreeNode_zuSub *NodeOf(const TzuDataList_Tree &list);

    /// Looks at the entity (node, placeholder) at the next update.
    void Queue(TzuDataEntity_Tree &entity);
    /// Looks also at the position of the entity's node.
    void QueueMoved(TzuDataEntity_Tree &entity);
    /// Looks also at whether the entity's placeholder has to go.
    void QueuePlaceholder(TzuDataEntity_Tree &entity);
    /// Looks at the entity no longer, for it goes.
    void Unqueue(TzuDataEntity_Tree &entity);
    /// Sorts the list's nodes at the next update when its NeedsSort is set.
    void QueueSort(TzuDataList_Tree &list);
    /// Looks at every entity of the list, and at their order, at the next update.
    void QueueWhole(TzuDataList_Tree &list);
    /// Looks at the list no longer, for it goes.
    void Unqueue(TzuDataList_Tree &list);
    /// Parts the entity from its node, which goes at the next update.
    void CleanTreeNode(TzuDataEntity_Tree &entity);
    /// Whether anything is queued.
    bool HasWork() const;

    /// Brings the nodes up to date.
    void Update();
    /// Makes all nodes anew at the next update.
    void StartAfresh() { m_afresh = true; }
    /// Removes all nodes at once, for a tree that is released. Only outside Update.
    void Clear();

private:
    using TOwner = TTreeNode_zuSub::TOwner;

    /// A queued entity with its position in its list. Entities are named by their place in the
    /// queue, since one may be deleted while the update runs.
    struct TPlaced
    {
        int Position;
        std::size_t Place;
    };
    struct TRun
    {
        TTreeNode_zuSub *Parent;
        int First;
        int Count;
    };
    class TUpdating;

    template <typename T>
    static void Enqueue(std::vector<T *> &queue, T &member);
    template <typename T>
    static void Dequeue(std::vector<T *> &queue, T &member);
    template <typename T>
    static void DropFirst(std::vector<T *> &queue, std::size_t count);

    void UpdateNodes(int &expected);
    void RemoveAllNodes();
    void ReadQueuedLists();
    void DoomHidden();
    int RunsInQueue() const;
    int ListsToOrder() const;
    std::vector<TRun> DoomedRuns();
    void Remove(const TRun &run);
    void InsertQueued(std::size_t count);
    void InsertGroup(TzuDataList_Tree &list, std::vector<TPlaced> &group);
    void ConvertPlaceholder(TTreeNode_zuSub &placeholder, TzuDataEntity_Tree &entity);
    void MoveQueued(std::size_t count);
    void MoveNode(TzuDataList_Tree &list, TTreeNode_zuSub &parent, TTreeNode_zuSub &node);
    void SortLater(TzuDataList_Tree &list);
    void SortQueuedLists();
    void OrderNodes(TzuDataList_Tree &list, TTreeNode_zuSub &parent);
    int PositionFor(const TTreeNode_zuSub &parent, const TzuDataList_Tree &list,
                    int listPosition) const;

    TOwner NewNode(TzuDataEntity_Tree &entity, int level);
    void Bind(TTreeNode_zuSub &node, TzuDataEntity_Tree &entity, int level);
    std::vector<TOwner> NewChildren(TzuDataEntity_Tree &entity, int level);
    void FillBelow(const std::vector<TOwner> &tops, int level);
    void AttachChildren(TTreeNode_zuSub &node, TzuDataEntity_Tree &entity);
    void Attach(TTreeNode_zuSub &parent, int at, std::vector<TOwner> nodes);

    TTreeCore &m_tree;
    ITreeNodeObserver &m_observer;
    TTreeNode_zuSub m_root;
    std::vector<TzuDataEntity_Tree *> m_queue; ///< nil where an entity left
    std::vector<TzuDataList_Tree *> m_lists;   ///< nil where a list left
    std::vector<TTreeNode_zuSub *> m_doomed;   ///< topmost nodes without entity
    TzuBeginUpdate *m_bracket = nullptr;       ///< of the update that runs
    bool m_afresh = false;
};

} // namespace korvane
