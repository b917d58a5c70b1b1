#include "tree/zuTreeDisplay.h"

#include "foundation/zuBeginUpdate.h"
#include "tree/zuTree.h"

#include <algorithm>
#include <functional>
#include <unordered_map>
#include <utility>

namespace korvane {

/// Marks the update that runs.
class TTreeDisplay::TUpdating
{
public:
    TUpdating(TTreeDisplay &display, TzuBeginUpdate &bracket)
        : m_display(display)
    {
        m_display.m_bracket = &bracket;
    }
    TUpdating(const TUpdating &) = delete;
    TUpdating &operator=(const TUpdating &) = delete;
    ~TUpdating() { m_display.m_bracket = nullptr; }

private:
    TTreeDisplay &m_display;
};

TTreeDisplay::TTreeDisplay(TTreeCore &tree, ITreeNodeObserver &observer)
    : m_tree(tree)
    , m_observer(observer)
{
    m_root.SetExpanded(true);
}

TTreeDisplay::~TTreeDisplay() = default;

TTreeNode_zuSub *TTreeDisplay::NodeOf(const TzuDataList_Tree &list)
{
    if (const TzuDataEntity_Tree *parent = list.ParentEntity()) {
        return parent->m_node;
    }
    return &list == m_tree.m_rootList ? &m_root : nullptr;
}

template <typename T>
void TTreeDisplay::Enqueue(std::vector<T *> &queue, T &member)
{
    if (member.m_queuePlace == 0) {
        queue.push_back(&member);
        member.m_queuePlace = static_cast<std::uint32_t>(queue.size());
    }
}

template <typename T>
void TTreeDisplay::Dequeue(std::vector<T *> &queue, T &member)
{
    if (member.m_queuePlace != 0) {
        queue[member.m_queuePlace - 1] = nullptr;
        member.m_queuePlace = 0;
    }
}

/// Drops the first entries of a queue; the others move up.
template <typename T>
void TTreeDisplay::DropFirst(std::vector<T *> &queue, std::size_t count)
{
    for (std::size_t i = 0; i < queue.size(); ++i) {
        if (queue[i] != nullptr) {
            queue[i]->m_queuePlace = i < count ? 0 : static_cast<std::uint32_t>(i - count + 1);
        }
    }
    queue.erase(queue.begin(), queue.begin() + static_cast<std::ptrdiff_t>(count));
}

// --- what to look at -----------------------------------------------------------------------------

void TTreeDisplay::Queue(TzuDataEntity_Tree &entity)
{
    if (entity.m_leaving) {
        return;
    }
    if (m_bracket != nullptr) {
        // A handler changes the content while nodes are placed: all of it is for the next update,
        // and the order may not come out right in this one.
        Unqueue(entity);
        if (auto *list = dynamic_cast<TzuDataList_Tree *>(entity.GetDataList())) {
            QueueWhole(*list);
        }
    }
    Enqueue(m_queue, entity);
}

void TTreeDisplay::QueueMoved(TzuDataEntity_Tree &entity)
{
    entity.m_moved = true;
    Queue(entity);
}

void TTreeDisplay::QueuePlaceholder(TzuDataEntity_Tree &entity)
{
    TTreeNode_zuSub *placeholder = entity.DummyNode();
    if (placeholder != nullptr && !entity.HasChildren() && !placeholder->Deleting()
        && !m_tree.NeedsDummyNode(entity)) {
        placeholder->SetDeleting();
        m_doomed.push_back(placeholder);
    }
    Queue(entity);
}

void TTreeDisplay::Unqueue(TzuDataEntity_Tree &entity)
{
    Dequeue(m_queue, entity);
}

void TTreeDisplay::QueueSort(TzuDataList_Tree &list)
{
    Enqueue(m_lists, list);
}

void TTreeDisplay::QueueWhole(TzuDataList_Tree &list)
{
    list.m_orderUnknown = true;
    QueueSort(list);
}

void TTreeDisplay::Unqueue(TzuDataList_Tree &list)
{
    Dequeue(m_lists, list);
}

void TTreeDisplay::CleanTreeNode(TzuDataEntity_Tree &entity)
{
    TTreeNode_zuSub *node = std::exchange(entity.m_node, nullptr);
    if (node == nullptr) {
        return;
    }
    node->SetData(nullptr);
    node->SetDeleting();
    if (node->Parent() == nullptr || !node->Parent()->Deleting()) {
        m_doomed.push_back(node);
    }
}

bool TTreeDisplay::HasWork() const
{
    return m_afresh || !m_queue.empty() || !m_lists.empty() || !m_doomed.empty();
}

void TTreeDisplay::Clear()
{
    m_doomed.clear();
    m_root.Clear();
}

// --- the update ----------------------------------------------------------------------------------

void TTreeDisplay::Update()
{
    int expected = 0;
    TzuBeginUpdate bracket([this, &expected] { m_observer.BeginNodes(expected); },
                           [this] { m_observer.EndNodes(); });
    const TUpdating updating(*this, bracket);
    try {
        UpdateNodes(expected);
    } catch (...) {
        // A handler or an override threw: what was half made is made again.
        m_doomed.clear();
        m_afresh = true;
        throw;
    }
}

void TTreeDisplay::UpdateNodes(int &expected)
{
    if (std::exchange(m_afresh, false)) {
        expected = m_root.ChildCount();
        RemoveAllNodes();
    }
    ReadQueuedLists();
    DoomHidden();
    const std::vector<TRun> doomed = DoomedRuns();
    expected = static_cast<int>(doomed.size()) + RunsInQueue() + ListsToOrder();
    m_tree.SelectNothingIfDoomed();
    for (const TRun &run : doomed) {
        Remove(run);
    }
    // Handlers may queue more meanwhile, for the next update.
    const std::size_t entities = m_queue.size();
    MoveQueued(entities); // first: what is inserted finds its place among nodes in order
    InsertQueued(entities);
    for (std::size_t i = 0; i < entities; ++i) {
        TzuDataEntity_Tree *entity = m_queue[i];
        if (entity != nullptr && entity->m_node != nullptr && entity->m_node->ChildCount() == 0) {
            AttachChildren(*entity->m_node, *entity);
        }
    }
    SortQueuedLists();
    DropFirst(m_queue, entities);
}

void TTreeDisplay::RemoveAllNodes()
{
    m_doomed.clear();
    for (int i = 0; i < m_root.ChildCount(); ++i) {
        m_root.Child(i)->SetDeleting();
    }
    m_tree.SelectNothingIfDoomed();
    if (m_root.ChildCount() > 0) {
        Remove({&m_root, 0, m_root.ChildCount()});
    }
    QueueWhole(*m_tree.DataList());
}

/// Queues the entities without node of the lists of which anything may have changed, loading them.
void TTreeDisplay::ReadQueuedLists()
{
    for (std::size_t i = 0; i < m_lists.size(); ++i) {
        TzuDataList_Tree *list = m_lists[i];
        if (list == nullptr || !list->m_orderUnknown || NodeOf(*list) == nullptr) {
            continue;
        }
        for (int index = 0; m_lists[i] != nullptr && index < list->Count(); ++index) {
            TzuDataEntity_Tree *entity = list->Entity(index);
            if (entity != nullptr && entity->m_node == nullptr) {
                Enqueue(m_queue, *entity);
            }
        }
    }
}

void TTreeDisplay::DoomHidden()
{
    for (TzuDataEntity_Tree *entity : m_queue) {
        if (entity != nullptr && entity->m_hideNode) {
            CleanTreeNode(*entity);
        }
    }
}

/// How many runs of neighbours the queue consists of, near enough.
int TTreeDisplay::RunsInQueue() const
{
    int runs = 0;
    const TzuDataList *lastList = nullptr;
    int next = 0;
    for (const TzuDataEntity_Tree *entity : m_queue) {
        if (entity == nullptr || entity->GetDataList() == nullptr) {
            continue;
        }
        const TzuDataList *list = entity->GetDataList();
        const int position = list->IndexOf(entity);
        runs += list != lastList || position != next ? 1 : 0;
        lastList = list;
        next = position + 1;
    }
    return runs;
}

/// How many lists' nodes may come to stand otherwise.
int TTreeDisplay::ListsToOrder() const
{
    const bool compares = static_cast<bool>(m_tree.SortCompare());
    return static_cast<int>(
        std::count_if(m_lists.begin(), m_lists.end(), [compares](const TzuDataList_Tree *list) {
            return list != nullptr && (list->m_orderUnknown || (compares && list->NeedsSort()));
        }));
}

void TTreeDisplay::SortQueuedLists()
{
    const std::size_t count = m_lists.size();
    for (std::size_t i = 0; i < count; ++i) {
        TzuDataList_Tree *list = m_lists[i];
        if (list == nullptr) {
            continue;
        }
        Unqueue(*list);
        TTreeNode_zuSub *parent = NodeOf(*list);
        const bool sorts = list->NeedsSort() && list->Count() > 0 && parent != nullptr;
        const bool orders = list->m_orderUnknown && parent != nullptr;
        if (sorts) {
            list->SetNeedsSort(false);
        }
        list->m_orderUnknown = list->m_orderUnknown && !orders;
        if (orders || (sorts && m_tree.SortCompare())) {
            OrderNodes(*list, *parent);
        }
    }
    DropFirst(m_lists, count);
}

// --- removing ------------------------------------------------------------------------------------

/// The nodes without entity as runs of siblings, each parent's from the last to the first. A node
/// that goes with one above it is left out.
std::vector<TTreeDisplay::TRun> TTreeDisplay::DoomedRuns()
{
    std::vector<TTreeNode_zuSub *> parents;
    std::unordered_map<TTreeNode_zuSub *, std::vector<int>> places;
    for (const TTreeNode_zuSub *node : std::exchange(m_doomed, {})) {
        const TTreeNode_zuSub *above = node->Parent();
        while (above != nullptr && !above->Deleting()) {
            above = above->Parent();
        }
        if (above != nullptr || node->Parent() == nullptr) {
            continue;
        }
        std::vector<int> &ofParent = places[node->Parent()];
        if (ofParent.empty()) {
            parents.push_back(node->Parent());
        }
        ofParent.push_back(node->Index());
    }
    std::vector<TRun> runs;
    for (TTreeNode_zuSub *parent : parents) {
        std::vector<int> &ofParent = places[parent];
        std::sort(ofParent.begin(), ofParent.end(), std::greater());
        for (std::size_t i = 0; i < ofParent.size(); ++i) {
            if (i > 0 && ofParent[i] == runs.back().First - 1) {
                --runs.back().First;
                ++runs.back().Count;
            } else {
                runs.push_back({parent, ofParent[i], 1});
            }
        }
    }
    return runs;
}

void TTreeDisplay::Remove(const TRun &run)
{
    const TNodeChangeInfo change{TNodeChange::Remove, run.Parent, run.First, run.Count, 0};
    m_bracket->Mark();
    m_observer.BeforeChange(change);
    const std::vector<TOwner> gone = run.Parent->TakeChildren(run.First, run.Count);
    m_observer.AfterChange(change);
}

} // namespace korvane
