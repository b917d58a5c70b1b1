// Nodes that are only counted: their rows, and how they come and go.
#include "grid/zuGrid.h"
#include "grid/zuGridTree.h"

#include <algorithm>
#include <utility>

namespace korvane {

namespace {

using TNode = TzuDataEntity_GridTreeNode;

/// Levels that one row may lead through while its ancestors come back.
constexpr int kMaxLevels = 1000;

TzuDataList_GridTree *ListHolding(const TNode &node)
{
    return dynamic_cast<TzuDataList_GridTree *>(node.GetDataList());
}

} // namespace

// --- rows of what is only counted ----------------------------------------------------------------

bool TzuGridTree::HasRows(const TzuDataList_GridTree &list) const
{
    const TNode *parent = list.ParentEntity();
    return parent != nullptr ? parent->m_row != nullptr : &list == m_rootList;
}

int TzuGridTree::FirstRowOf(const TzuDataList_GridTree &list) const
{
    const TNode *parent = list.ParentEntity();
    return parent != nullptr ? GetRow(*parent) + 1 : Rows().FixedCount();
}

/// The first row of an item by its place among those that are only counted.
int TzuGridTree::RowOfCounted(const TzuDataList_GridTree &list, int place) const
{
    if (place < list.UnloadedBefore() || list.LoadedCount() == 0) {
        return FirstRowOf(list) + list.RowsTo(place);
    }
    const TNode *parent = list.ParentEntity();
    const int end = parent != nullptr ? RowBehind(*parent) - parent->m_countedRows : Rows().Count();
    return end - list.RowsBefore() - list.RowsBehind() + list.RowsTo(place);
}

void TzuGridTree::CountedCame(TzuDataList_GridTree &list, int place, int count)
{
    if (!HasRows(list) || m_destroying) {
        return;
    }
    TNode *parent = list.ParentEntity();
    const bool hide = !DisplaysChildren(parent);
    const int row = RowOfCounted(list, place);
    int awaited = 0; // rows that are there for them
    if (parent != nullptr && place + count == list.Counted().Count()) {
        awaited = std::min(count, parent->m_countedRows);
        parent->m_countedRows -= awaited;
    }
    list.Counted().Fill(place, count, 1);
    if (awaited > 0 && hide) {
        Rows().SetHidden(row, row + awaited - 1, hide);
    }
    Rows().InsertCounted(row + awaited, count - awaited, hide);
}

void TzuGridTree::CountedGo(TzuDataList_GridTree &list, int place, int count)
{
    const int rows = list.RowsTo(place + count) - list.RowsTo(place);
    if (rows > 0 && HasRows(list)) {
        const int row = RowOfCounted(list, place);
        list.Counted().Fill(place, count, 0);
        Rows().EraseCounted(row, rows);
    }
}

/// What was expanded when it was unloaded comes back collapsed.
void TzuGridTree::CollapseCounted(TzuDataList_GridTree &list)
{
    int place = list.m_counted != nullptr && HasRows(list) ? list.m_counted->Count() - 1 : -1;
    while (place >= 0) {
        const TRunSequence::TRun run = list.m_counted->RunAt(place);
        if (run.Value <= 1) {
            place = run.First - 1;
            continue;
        }
        const int row = RowOfCounted(list, place);
        list.m_counted->Fill(place, 1, 1);
        Rows().EraseCounted(row + 1, run.Value - 1);
        --place;
    }
}

/// Takes away the rows of what is only counted, before the row of the parent goes.
void TzuGridTree::LeaveRows(TzuDataList_GridTree &list)
{
    const int before = list.RowsBefore();
    const int behind = list.RowsBehind();
    if (before + behind == 0) {
        return;
    }
    if (HasRows(list)) {
        int row = FirstRowOf(list) + before;
        for (int p = list.LoadedCount() - 1; p >= 0; --p) {
            const auto *last = static_cast<const TNode *>(list.GetLoaded(p));
            if (last->m_row != nullptr) {
                row = GetRow(*last) + RowsOf(*last);
                break;
            }
        }
        Rows().EraseCounted(row, behind);
        Rows().EraseCounted(FirstRowOf(list), before);
    }
    list.Counted().Fill(0, list.Counted().Count(), 0);
}

/// The same of all that the row of a node stands for.
void TzuGridTree::DropCountedRows(TNode &node)
{
    if (node.m_childList != nullptr) {
        LeaveRows(*node.m_childList);
    }
    if (node.m_countedRows > 0) {
        const int behind = GetRow(node) + RowsOf(node);
        const int awaited = std::exchange(node.m_countedRows, 0);
        Rows().EraseCounted(behind - awaited, awaited);
    }
}

/// What stands in a row that is only counted: from the root down, by the rows of what is loaded.
TzuGridTree::TCounted TzuGridTree::CountedAt(int row) const
{
    TzuDataList_GridTree *list = m_rootList;
    int begin = Rows().FixedCount();
    int end = Rows().Count(); // of the list's rows
    while (list != nullptr && row >= begin && row < end) {
        const int before = list->RowsBefore();
        if (row < begin + before) {
            return {list, list->m_counted->IndexAt(row - begin), begin + before};
        }
        const auto nodeAt = [list](int p) {
            return static_cast<const TNode *>(list->GetLoaded(p));
        };
        int low = -1; // the last one whose row is not behind
        for (int high = list->LoadedCount(); high - low > 1;) {
            const int middle = (low + high) / 2;
            const int at = GetRow(*nodeAt(middle));
            (at >= 0 && at <= row ? low : high) = middle;
        }
        const int countedBehind = list->RowsBehind();
        const bool isLast = low + 1 >= list->LoadedCount();
        const int behind = low < 0  ? begin + before
                           : isLast ? end - countedBehind
                                    : GetRow(*nodeAt(low + 1));
        if (row >= behind) {
            const int place =
                list->m_counted == nullptr ? -1 : list->m_counted->IndexAt(before + row - behind);
            return row < end && countedBehind > 0 && place >= 0
                       ? TCounted{list, place + list->LoadedCount(), end}
                       : TCounted();
        }
        const TNode *node = nodeAt(low);
        begin = GetRow(*node) + 1;
        end = behind - node->m_countedRows;
        list = node->m_childList;
    }
    return {};
}

// --- loading -------------------------------------------------------------------------------------

void TzuGridTree::LoadRow(int index)
{
    const std::weak_ptr<char> life = m_life;
    for (int left = kMaxLevels; left > 0; --left) {
        if (m_loadsSincePurge >= kMaxLoaded) {
            Purge();
        }
        if (life.expired() || Rows().FindLoaded(index) != nullptr) {
            return;
        }
        const TCounted counted = CountedAt(index);
        const int loaded = Rows().LoadedCount();
        if (counted.List != nullptr) {
            LoadInList(*counted.List, counted.Item);
        }
        if (life.expired() || Rows().LoadedCount() <= loaded) {
            return; // a handler took it
        }
    }
}

/// Loads one by one what lies between the block and the item, or a new block when that is far.
void TzuGridTree::LoadInList(TzuDataList_GridTree &list, int index)
{
    const TzuLifeWatch lives(list);
    const auto blockEnd = [&list] { return list.UnloadedBefore() + list.LoadedCount(); };
    const int distance =
        index < list.UnloadedBefore() ? list.UnloadedBefore() - index : index - blockEnd() + 1;
    if (list.LoadedCount() > 0 && distance + list.LoadedCount() > kMaxLoaded) {
        Rows().ForgetShown();
        list.Purge();
    }
    bool more = true;
    while (more && lives && index < list.Count() && !list.IsLoaded(index)) {
        const int before = list.LoadedCount();
        if (before == 0) {
            list.EnsureLoadedItem(index); // chooses where the block begins
        } else if (index < list.UnloadedBefore()) {
            const int next = list.UnloadedBefore() - 1;
            list.LoadItems(next, next, TBlockEnd::Front);
        } else {
            list.LoadItems(blockEnd(), blockEnd(), TBlockEnd::Back);
        }
        more = lives && list.LoadedCount() > before;
    }
}

/// Gives rows to all nodes that were loaded with this one, before handlers hear of any.
void TzuGridTree::MakeRows(TNode &node)
{
    InsertRow(node);
    const TzuLifeWatch lives(node);
    for (const int step : {1, -1}) {
        for (int distance = step; lives; distance += step) {
            const TzuDataList *list = node.GetDataList();
            const int position = list != nullptr ? list->IndexOf(&node) + distance : -1;
            if (position < 0 || position >= list->LoadedCount()) {
                break;
            }
            auto *beside = static_cast<TNode *>(list->GetLoaded(position));
            if (beside->m_row != nullptr || beside->m_countedRows == 0) {
                break;
            }
            InsertRow(*beside);
        }
    }
}

/// A node was loaded: it is filled, and what was expanded is expanded again.
void TzuGridTree::LoadItem(TNode &node)
{
    const TzuLifeWatch lives(node);
    const std::weak_ptr<char> life = m_life;
    MakeRows(node);
    ++m_loadsSincePurge;
    if (lives && node.m_row != nullptr && m_gridCell.IsToldSelected(GetRow(node))) {
        node.TreeRowSelected(true);
    }
    TBabGridCellForViewer *viewer = m_gridCell.GetViewerGridCell();
    if (lives && viewer != nullptr && node.m_row != nullptr) {
        viewer->OnVirtualLoad(&m_gridCell, node.m_row, true);
    }
    if (!lives || life.expired() || !node.m_expanded || (!LoadChildren(node) && !lives)) {
        return;
    }
    node.m_expanded = node.HasChildren();
    if (const int left = std::exchange(node.m_countedRows, 0); left > 0 && node.m_row != nullptr) {
        Rows().EraseCounted(RowBehind(node) - left, left);
    }
}

// --- unloading -----------------------------------------------------------------------------------

void TzuGridTree::Purge()
{
    m_loadsSincePurge = 0;
    const std::weak_ptr<char> life = m_life;
    const std::vector<TzuDataList_GridTree *> lists(m_pagedLists.begin(), m_pagedLists.end());
    for (TzuDataList_GridTree *list : lists) {
        if (life.expired()) {
            return;
        }
        if (m_pagedLists.contains(list)) {
            list->Purge();
        }
    }
}

void TzuGridTree::CanUnload(TNode &node, bool &canUnload) const
{
    const TzuDataList_GridTree *list = ListHolding(node);
    TBabGridCellForViewer *viewer = m_gridCell.GetViewerGridCell();
    if (list != nullptr && list->m_counted != nullptr && viewer != nullptr && node.m_row != nullptr
        && m_moving.Node != &node && !Rows().IsShown(GetRow(node), RowBehind(node))) {
        viewer->OnCanUnload(&m_gridCell, node.m_row, true, canUnload);
    }
}

/// Tells the application that the node and all below it go, from the last to the first. False when
/// a handler changed the rows; then the node stays.
bool TzuGridTree::TellUnload(TzuDataList_GridTree &list, TNode &node)
{
    TBabGridCellForViewer *viewer = m_gridCell.GetViewerGridCell();
    const TzuLifeWatch lives(node);
    const std::weak_ptr<char> life = m_life;
    const int first = GetRow(node);
    const int count = Rows().Count();
    const int loaded = Rows().LoadedCount();
    const auto asBefore = [&] {
        return !life.expired() && lives && node.m_row != nullptr && Rows().Count() == count
               && Rows().LoadedCount() == loaded;
    };
    const bool hidden = !DisplaysChildren(list.ParentEntity());
    bool counted = true;
    for (int row = Rows().NearestLoaded(RowBehind(node) - 1, -1); row >= first;
         row = Rows().NearestLoaded(row - 1, -1)) {
        TNode *going = LoadedNodeAt(row);
        if (going != nullptr && (going != &node || hidden)) {
            KeepExpandState(*going); // of a node that is shown its rows tell
        }
        counted = true;
        for (const auto *event : {&viewer->OnAxisItemUnload, &viewer->OnVirtualUnLoad}) {
            if (!asBefore()) {
                return false;
            }
            (*event)(&m_gridCell, Rows().FindLoaded(row), true, counted);
        }
        if (!asBefore()) {
            return false;
        }
    }
    list.m_uncount = !counted;
    return true;
}

/// Makes what the node and all below it have rows that are only counted: as many as are shown.
/// False keeps the node.
bool TzuGridTree::PrepareUnload(TzuDataList_GridTree &list, TNode &node)
{
    list.m_unloadedRows = 0;
    if (node.m_row == nullptr || m_gridCell.GetViewerGridCell() == nullptr) {
        return node.m_row == nullptr;
    }
    if (!TellUnload(list, node)) {
        return false;
    }
    const bool unloading = std::exchange(m_unloading, true);
    const int first = GetRow(node);
    const int end = RowBehind(node);
    const bool hide = !DisplaysChildren(list.ParentEntity());
    for (int row = Rows().NearestLoaded(end - 1, -1); row >= first;
         row = Rows().NearestLoaded(row - 1, -1)) {
        if (TNode *going = LoadedNodeAt(row)) {
            Tell(TGridTreeEvent::RowRemoved, going);
            m_arrived.erase(going);
            going->m_countedRows = 0;
            if (going->m_childList != nullptr && going->m_childList->m_counted != nullptr) {
                TRunSequence &counted = *going->m_childList->m_counted;
                counted.Fill(0, counted.Count(), 0);
            }
        }
        Rows().UnloadAt(row, Rows().SizeAt(row) == 0 && (hide || row > first));
    }
    if (hide || !node.m_expanded) {
        Rows().EraseCounted(first + 1, end - first - 1);
        list.m_unloadedRows = 1;
    } else {
        list.m_unloadedRows = Rows().EraseCountedWithoutSize(first + 1, end) - first;
    }
    if (TzuDataList_GridTree *children = std::exchange(node.m_childList, nullptr)) {
        ReleaseChildren(children);
    }
    m_unloading = unloading;
    return true;
}

} // namespace korvane
