// Labels of the time axis that tell a reader where in the calendar the plan stands.
#pragma once

#include "scaler/zuScaler.h"

namespace korvane::planner {

/// Sets the scaler's label handlers, which use it.
void LabelAxis(TDateScalerCore &scaler);

} // namespace korvane::planner
