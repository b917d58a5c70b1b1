// The items of a long layer in order of time.
#pragma once

#include "data/zuTimeIndex.h"
#include "foundation/zuExport.h"

#include <optional>
#include <vector>

namespace korvane {

class TzuDataEntity_Spanbar;

/// Some visible items that begin one after the other, as far as it matters where many lie on the
/// same pixels.
struct TGantItemGroup
{
    TzuDataEntity_Spanbar *First = nullptr;  ///< that begins first
    TzuDataEntity_Spanbar *Last = nullptr;   ///< that begins last
    TzuDataEntity_Spanbar *Latest = nullptr; ///< that stops last
    TzuDataEntity_Spanbar *Top = nullptr;    ///< that is drawn last
    TDateTime FirstStart = 0;                ///< of First
    TDateTime LastStop = 0;                  ///< of Latest
    TDateTime Busy = 0;                      ///< sum of the lengths
    int Count = 0;                           ///< of all, Instants included
    int Instants = 0;                        ///< items without a length
    /// They are drawn alike and lie at the same height: bars, or symbols of one look and size. All
    /// are selected or none is, and none is drawn by the application.
    bool Uniform = true;
};

/// What takes the items of a stretch of time, groups of them at once where it can.
class KORVANE_CORE_API TGantGroupVisitor
{
public:
    virtual ~TGantGroupVisitor() = default;

    /// False: the group is visited in smaller parts, down to its items. Some of its items may lie
    /// outside the time asked for.
    virtual bool TakeGroup(const TGantItemGroup &group) = 0;
    /// An item of a group that was not taken.
    virtual void TakeItem(TzuDataEntity_Spanbar &item) = 0;
    /// Grows in the order in which items are drawn.
    virtual int RankOf(const TzuDataEntity_Spanbar &item) const = 0;
};

/// What is kept about a block of the index.
struct TGantBlockNotes
{
    /// A binary tree over runs of entries, the root at 1; empty until it is asked for.
    std::vector<TGantItemGroup> Groups;
    /// Whether any item has links, if that is known.
    std::optional<bool> Linked;
};

/// The items of a layer in order of time, with what drawing and hit tests ask of many at once.
class KORVANE_CORE_API TGantTimeIndex
    : public TNotedTimeIndex<TzuDataEntity_Spanbar, TGantBlockNotes>
{
public:
    using TNotedTimeIndex::TNotedTimeIndex;

    /// Appends the items that touch the time from..to, both included, and have links. Others cost
    /// little.
    void FindLinked(TDateTime from, TDateTime to, std::vector<TzuDataEntity_Spanbar *> &items);
    /// Visits the visible items that touch the time from..to, in groups as large as the visitor
    /// takes. Groups are kept until an item of theirs changes.
    void Visit(TDateTime from, TDateTime to, TGantGroupVisitor &visitor);
};

} // namespace korvane
