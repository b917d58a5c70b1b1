// Where an index of an axis stands after a change.
#pragma once

#include "foundation/zuExport.h"

#include <vector>

namespace korvane {

/// After `by` items came at another index, or went from it; -1 when it went.
KORVANE_CORE_API int ShiftedPlace(int place, int index, int by);
/// After the items `from`..`from + count - 1` were moved to `to`, counted without them.
KORVANE_CORE_API int PlaceAfterMove(int place, int from, int to, int count = 1);
/// After items from `first` on took another order: the new one at first + i was at first +
/// order[i].
KORVANE_CORE_API int PlaceAfterReorder(int place, int first, const std::vector<int> &order);

} // namespace korvane
