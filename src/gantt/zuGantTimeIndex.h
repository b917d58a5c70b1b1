// The items of a long layer in order of time.
#pragma once

#include "foundation/zuTypes.h"

#include <cstddef>
#include <vector>

namespace korvane {

class TzuDataEntity_Spanbar;

/// Finds the items of a layer that lie within a stretch of time. Costs the items that are found,
/// and little for the others; adding and removing one costs about the same at any size.
///
/// Items are observed. Their times must not change while they are in the index.
class TGantTimeIndex
{
public:
    /// Of different items.
    explicit TGantTimeIndex(const std::vector<TzuDataEntity_Spanbar *> &items);

    void Add(TzuDataEntity_Spanbar &item);
    /// Nothing when the item is not in the index.
    void Remove(TzuDataEntity_Spanbar &item);
    std::size_t Count() const { return m_count; }
    /// All items, in order of time.
    std::vector<TzuDataEntity_Spanbar *> Items() const;

    /// Appends the items that touch the time from..to, both included, in no particular order. An
    /// item that stops before it starts counts as its start.
    void Find(TDateTime from, TDateTime to, std::vector<TzuDataEntity_Spanbar *> &items) const;

private:
    /// Not a number is before everything as a start and after everything as a stop.
    struct TEntry
    {
        explicit TEntry(TzuDataEntity_Spanbar &item);

        bool IsBefore(const TEntry &other) const;

        TDateTime Start;
        TDateTime Stop;
        TzuDataEntity_Spanbar *Item;
    };
    struct TBlock
    {
        std::vector<TEntry> Entries; ///< never empty
        TDateTime LastStop;

        void UpdateLastStop();
    };
    using TBlocks = std::vector<TBlock>;

    TBlocks::iterator BlockFor(const TEntry &entry);
    void Split(TBlocks::iterator block);
    void MergeWithNext(TBlocks::iterator block);

    TBlocks m_blocks; ///< one after the other in time
    std::size_t m_count = 0;
};

} // namespace korvane
