// Dark colours where the system does not bring its own.
#pragma once

#include <QPalette>

namespace korvane::planner {

QPalette DarkPalette();

} // namespace korvane::planner
