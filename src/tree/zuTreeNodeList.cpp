#include "tree/zuTreeNodeList.h"

#include <algorithm>
#include <iterator>

namespace korvane {

namespace {

/// Runs are split beyond this length, into runs of three quarters of it.
constexpr std::size_t kMaxRun = 256;
constexpr std::size_t kNewRun = 192;

std::size_t OffsetIn(const std::vector<TTreeNode_zuSub *> &nodes, const TTreeNode_zuSub &node)
{
    return static_cast<std::size_t>(std::find(nodes.begin(), nodes.end(), &node) - nodes.begin());
}

} // namespace

TTreeNodeList::~TTreeNodeList()
{
    // Not by recursion: the hierarchy may be deeper than the stack.
    std::vector<TTreeNode_zuSub *> pending;
    ReleaseTo(pending);
    while (!pending.empty()) {
        const TOwner node(pending.back());
        pending.pop_back();
        if (node->m_children != nullptr) {
            node->m_children->ReleaseTo(pending);
        }
    }
}

void TTreeNodeList::ReleaseTo(std::vector<TTreeNode_zuSub *> &nodes)
{
    for (const TRun &run : m_runs) {
        nodes.insert(nodes.end(), run.Chunk->Nodes.begin(), run.Chunk->Nodes.end());
    }
    m_runs.clear();
    m_firstStale = 0;
    m_count = 0;
    m_rowCount = 0;
}

void TTreeNodeList::EnsureSums() const
{
    for (; m_firstStale < m_runs.size(); ++m_firstStale) {
        const TRun &run = m_runs[m_firstStale];
        if (m_firstStale == 0) {
            run.FirstPosition = 0;
            run.FirstRow = 0;
            continue;
        }
        const TRun &before = m_runs[m_firstStale - 1];
        run.FirstPosition = before.FirstPosition + static_cast<int>(before.Chunk->Nodes.size());
        run.FirstRow = before.FirstRow + before.Rows;
    }
}

std::size_t TTreeNodeList::RunOfPosition(int position) const
{
    EnsureSums();
    const auto after =
        std::upper_bound(m_runs.begin(), m_runs.end(), position,
                         [](int wanted, const TRun &run) { return wanted < run.FirstPosition; });
    return static_cast<std::size_t>(after - m_runs.begin()) - 1;
}

TTreeNode_zuSub *TTreeNodeList::At(int position) const
{
    const TRun &run = m_runs[RunOfPosition(position)];
    return run.Chunk->Nodes[static_cast<std::size_t>(position - run.FirstPosition)];
}

int TTreeNodeList::PositionOf(const TTreeNode_zuSub &node) const
{
    EnsureSums();
    const TChunk &chunk = *node.m_chunk;
    return m_runs[chunk.Index].FirstPosition + static_cast<int>(OffsetIn(chunk.Nodes, node));
}

int TTreeNodeList::FirstRowOf(const TTreeNode_zuSub &node) const
{
    EnsureSums();
    const TChunk &chunk = *node.m_chunk;
    const TRun &run = m_runs[chunk.Index];
    const std::size_t offset = OffsetIn(chunk.Nodes, node);
    if (run.Rows == static_cast<int>(chunk.Nodes.size())) {
        return run.FirstRow + static_cast<int>(offset); // every node of the run has one row
    }
    int row = run.FirstRow;
    for (std::size_t i = 0; i < offset; ++i) {
        row += chunk.Nodes[i]->m_rowCount;
    }
    return row;
}

TTreeNodeList::THit TTreeNodeList::AtRow(int row) const
{
    EnsureSums();
    const auto after =
        std::upper_bound(m_runs.begin(), m_runs.end(), row,
                         [](int wanted, const TRun &run) { return wanted < run.FirstRow; });
    const TRun &run = *std::prev(after);
    int rest = row - run.FirstRow;
    if (run.Rows == static_cast<int>(run.Chunk->Nodes.size())) {
        return {run.Chunk->Nodes[static_cast<std::size_t>(rest)], 0};
    }
    auto node = run.Chunk->Nodes.begin();
    for (; rest >= (*node)->m_rowCount; ++node) {
        rest -= (*node)->m_rowCount;
    }
    return {*node, rest};
}

TTreeNode_zuSub *TTreeNodeList::Next(const TTreeNode_zuSub &node) const
{
    const TChunk &chunk = *node.m_chunk;
    const std::size_t next = OffsetIn(chunk.Nodes, node) + 1;
    if (next < chunk.Nodes.size()) {
        return chunk.Nodes[next];
    }
    return chunk.Index + 1 < m_runs.size() ? m_runs[chunk.Index + 1].Chunk->Nodes.front() : nullptr;
}

TTreeNodeList::TRun TTreeNodeList::MakeRun(std::span<TTreeNode_zuSub *const> nodes)
{
    TRun run;
    run.Chunk = std::make_unique<TChunk>();
    run.Chunk->List = this;
    run.Chunk->Nodes.assign(nodes.begin(), nodes.end());
    for (TTreeNode_zuSub *node : nodes) {
        node->m_chunk = run.Chunk.get();
        run.Rows += node->m_rowCount;
    }
    return run;
}

/// Puts the nodes in the place of runs first .. last - 1.
void TTreeNodeList::ReplaceRuns(std::size_t first, std::size_t last,
                                std::span<TTreeNode_zuSub *const> nodes)
{
    std::vector<TRun> runs;
    const std::size_t length = nodes.size() <= kMaxRun ? kMaxRun : kNewRun;
    for (std::size_t from = 0; from < nodes.size(); from += length) {
        runs.push_back(MakeRun(nodes.subspan(from, std::min(length, nodes.size() - from))));
    }
    const auto at = m_runs.erase(m_runs.begin() + static_cast<std::ptrdiff_t>(first),
                                 m_runs.begin() + static_cast<std::ptrdiff_t>(last));
    m_runs.insert(at, std::make_move_iterator(runs.begin()), std::make_move_iterator(runs.end()));
    for (std::size_t i = first; i < m_runs.size(); ++i) {
        m_runs[i].Chunk->Index = i;
    }
    StaleFrom(first);
}

void TTreeNodeList::Insert(int position, std::vector<TOwner> nodes)
{
    std::vector<TTreeNode_zuSub *> added;
    added.reserve(nodes.size());
    int rows = 0;
    for (TOwner &node : nodes) {
        rows += node->m_rowCount;
        added.push_back(node.release());
    }
    const int count = static_cast<int>(added.size());
    if (m_runs.empty()) {
        ReplaceRuns(0, 0, added);
    } else {
        // Before the first node of a run means behind the last one of the run before it.
        const std::size_t index = RunOfPosition(std::max(position - 1, 0));
        TRun &run = m_runs[index];
        std::vector<TTreeNode_zuSub *> &present = run.Chunk->Nodes;
        present.insert(present.begin() + (position - run.FirstPosition), added.begin(),
                       added.end());
        if (present.size() <= kMaxRun) {
            for (TTreeNode_zuSub *node : added) {
                node->m_chunk = run.Chunk.get();
            }
            run.Rows += rows;
            StaleFrom(index + 1);
        } else {
            const std::vector<TTreeNode_zuSub *> all = std::move(present);
            ReplaceRuns(index, index + 1, all);
        }
    }
    m_count += count;
    m_rowCount += rows;
}

std::vector<TTreeNodeList::TOwner> TTreeNodeList::Take(int first, int count)
{
    std::vector<TOwner> taken;
    if (count <= 0) {
        return taken;
    }
    taken.reserve(static_cast<std::size_t>(count));
    const std::size_t firstRun = RunOfPosition(first);
    const std::size_t lastRun = RunOfPosition(first + count - 1);
    int position = first - m_runs[firstRun].FirstPosition;
    int left = count;
    bool emptied = false;
    for (std::size_t i = firstRun; i <= lastRun; ++i) {
        TRun &run = m_runs[i];
        std::vector<TTreeNode_zuSub *> &nodes = run.Chunk->Nodes;
        const int here = std::min(left, static_cast<int>(nodes.size()) - position);
        const auto from = nodes.begin() + position;
        for (auto node = from; node != from + here; ++node) {
            run.Rows -= (*node)->m_rowCount;
            m_rowCount -= (*node)->m_rowCount;
            (*node)->m_chunk = nullptr;
            taken.emplace_back(*node);
        }
        nodes.erase(from, from + here);
        emptied = emptied || nodes.empty();
        left -= here;
        position = 0;
    }
    if (emptied) {
        std::erase_if(m_runs, [](const TRun &run) { return run.Chunk->Nodes.empty(); });
        for (std::size_t i = firstRun; i < m_runs.size(); ++i) {
            m_runs[i].Chunk->Index = i;
        }
    }
    m_count -= count;
    StaleFrom(firstRun);
    return taken;
}

void TTreeNodeList::Reorder(std::span<TTreeNode_zuSub *const> order)
{
    ReplaceRuns(0, m_runs.size(), order);
}

void TTreeNodeList::AddRows(const TTreeNode_zuSub &node, int delta)
{
    m_runs[node.m_chunk->Index].Rows += delta;
    m_rowCount += delta;
    StaleFrom(node.m_chunk->Index + 1);
}

} // namespace korvane
