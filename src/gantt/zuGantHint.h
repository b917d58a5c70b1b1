// What a gesture in the chart tells in words.
#pragma once

#include "foundation/zuExport.h"
#include "foundation/zuGestureHint.h"
#include "gantt/zuGantData.h"

#include <span>
#include <string>

namespace korvane {

/// The captions of the item a link starts at and of the one it would end at, which may be null.
KORVANE_CORE_API TGestureHint HintOfDependency(const TzuDataEntity_Spanbar *first,
                                               const TzuDataEntity_Spanbar *second);

/// What an item dragged out of the chart offers: captions and times of all.
KORVANE_CORE_API TItemDragData DragDataOf(std::span<TzuDataEntity_Spanbar *const> items, bool copy);

} // namespace korvane
