// The separation of intervals as its rule states it: the oracle of tests, the yardstick of timings.
#pragma once

#include "data/zuTimeDistinctGeneric.h"

namespace korvane::test {

/// Every holder against every other, last to first; at a conflict both are placed.
inline void ResolvePlainly(TDistinctTimeHolderList &list)
{
    TTimeDistinctGeneric separation(list);
    const auto place = [&](TDistinctTimeHolder &holder) {
        if (holder.SubCol == 0) {
            separation.MoveToConflictFreePosition(holder);
        }
    };
    for (int i = list.Count() - 1; i >= 0; --i) {
        for (int j = list.Count() - 1; j >= 0; --j) {
            if (j != i && TTimeDistinctGeneric::InConflict(list.Get(i), list.Get(j))) {
                place(list.Get(i));
                place(list.Get(j));
            }
        }
    }
}

} // namespace korvane::test
