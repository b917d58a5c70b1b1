// What the keyboard does in the area of a Gantt chart.
#pragma once

#include "gantt/zuGantGestures.h"

namespace korvane {

/// Adds the keyboard to the chart.
class TGantKeys : public TGantGestures
{
public:
    using TGantGestures::TGantGestures;
};

} // namespace korvane
