#include "gantt/zuGantTimeIndex.h"

#include "gantt/zuGantData.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <span>

namespace korvane {

namespace {

/// Entries that are grouped first.
constexpr std::size_t kRun = 16;

bool LookAlike(const TzuDataEntity_Spanbar &a, const TzuDataEntity_Spanbar &b)
{
    const bool alike = a.FixedSize() == b.FixedSize() && a.SubCol() == b.SubCol()
                       && a.InsetTop() == b.InsetTop() && a.InsetBottom() == b.InsetBottom()
                       && a.GetSelected() == b.GetSelected();
    // Bars that are crowded look the same in any style.
    return alike
           && (a.IsResizable()
               || (a.GetStyle() == b.GetStyle() && a.ImageIndex() == b.ImageIndex()));
}

/// A group while it is made.
struct TRankedGroup
{
    TGantItemGroup Group;
    int TopRank = 0;

    /// The items of the other one begin later.
    void Append(const TRankedGroup &other)
    {
        const TGantItemGroup &more = other.Group;
        if (more.Count == 0) {
            return;
        }
        if (Group.Count == 0) {
            *this = other;
            return;
        }
        Group.Uniform = Group.Uniform && more.Uniform && LookAlike(*Group.First, *more.First);
        Group.Last = more.Last;
        if (more.LastStop > Group.LastStop) {
            Group.LastStop = more.LastStop;
            Group.Latest = more.Latest;
        }
        if (other.TopRank > TopRank) {
            TopRank = other.TopRank;
            Group.Top = more.Top;
        }
        Group.Busy += more.Busy;
        Group.Count += more.Count;
        Group.Instants += more.Instants;
    }
};

using TEntry = TGantTimeIndex::TEntry;
using TEntries = TGantTimeIndex::TEntries;

std::vector<TGantItemGroup> GroupsOf(const TEntries &entries, const TGantGroupVisitor &visitor)
{
    const std::size_t runs = std::bit_ceil((entries.size() + kRun - 1) / kRun);
    std::vector<TRankedGroup> nodes(2 * runs);
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const TEntry &entry = entries[i];
        TzuDataEntity_Spanbar *item = entry.Owner;
        if (!item->GetVisible()) {
            continue;
        }
        const bool timed = std::isfinite(entry.Start) && std::isfinite(entry.Stop);
        const TDateTime length = timed ? entry.Stop - entry.Start : 0;
        nodes[runs + i / kRun].Append(
            {{.First = item,
              .Last = item,
              .Latest = item,
              .Top = item,
              .FirstStart = entry.Start,
              .LastStop = entry.Stop,
              .Busy = length,
              .Count = 1,
              .Instants = length > 0 ? 0 : 1,
              .Uniform = timed && item->GetStyle() != TSpanbarStyle::sbsUser},
             visitor.RankOf(*item)});
    }
    for (std::size_t node = runs; --node > 0;) {
        nodes[node] = nodes[2 * node];
        nodes[node].Append(nodes[2 * node + 1]);
    }
    std::vector<TGantItemGroup> groups;
    groups.reserve(nodes.size());
    for (const TRankedGroup &node : nodes) {
        groups.push_back(node.Group);
    }
    return groups;
}

/// One walk over the groups of blocks.
class TVisit
{
public:
    TVisit(TDateTime from, TDateTime to, TGantGroupVisitor &visitor)
        : m_from(from)
        , m_to(to)
        , m_visitor(visitor)
    {
    }

    void Visit(const TEntries &entries, const std::vector<TGantItemGroup> &groups,
               std::size_t node) const
    {
        const TGantItemGroup &group = groups[node];
        if (group.Count == 0 || group.FirstStart > m_to || group.LastStop < m_from
            || m_visitor.TakeGroup(group)) {
            return;
        }
        const std::size_t runs = groups.size() / 2;
        if (node < runs) {
            Visit(entries, groups, 2 * node);
            Visit(entries, groups, 2 * node + 1);
            return;
        }
        const std::size_t first = (node - runs) * kRun;
        const std::size_t count = std::min(kRun, entries.size() - first);
        for (const auto &entry : std::span(entries).subspan(first, count)) {
            if (entry.Start <= m_to && entry.Stop >= m_from && entry.Owner->GetVisible()) {
                m_visitor.TakeItem(*entry.Owner);
            }
        }
    }

private:
    TDateTime m_from;
    TDateTime m_to;
    TGantGroupVisitor &m_visitor;
};

} // namespace

void TGantTimeIndex::FindLinked(TDateTime from, TDateTime to,
                                std::vector<TzuDataEntity_Spanbar *> &items)
{
    const auto hasLinks = [](const TEntry &entry) { return !entry.Owner->Links().empty(); };
    ForEachBlock(from, to, [&](const TEntries &entries, TGantBlockNotes &notes) {
        if (!notes.Linked) {
            notes.Linked = std::ranges::any_of(entries, hasLinks);
        }
        if (!*notes.Linked) {
            return;
        }
        for (const TEntry &entry : entries) {
            if (entry.Start <= to && entry.Stop >= from && hasLinks(entry)) {
                items.push_back(entry.Owner);
            }
        }
    });
}

void TGantTimeIndex::Visit(TDateTime from, TDateTime to, TGantGroupVisitor &visitor)
{
    const TVisit visit(from, to, visitor);
    ForEachBlock(from, to, [&](const TEntries &entries, TGantBlockNotes &notes) {
        if (notes.Groups.empty()) {
            notes.Groups = GroupsOf(entries, visitor);
        }
        visit.Visit(entries, notes.Groups, 1);
    });
}

} // namespace korvane
