// What the mouse does in the area of a Gantt chart.
#pragma once

#include "gantt/zuGantSelection.h"

namespace korvane {

/// Adds the mouse gestures to the chart.
class TGantGestures : public TGantSelection
{
public:
    using TGantSelection::TGantSelection;
};

} // namespace korvane
