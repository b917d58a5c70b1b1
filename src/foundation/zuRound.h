// Rounding of the library: to nearest, ties to even, saturating at the range of the result.
#pragma once

#include <cmath>
#include <cstdint>
#include <limits>

namespace korvane {

/// Nearest integer, ties to even; NaN gives 0 and values out of range the nearest 64-bit limit.
/// Relies on the default floating-point rounding mode, which the library never changes.
inline std::int64_t Round(double value)
{
    constexpr double kLimit = 9223372036854775808.0; // 2^63
    if (std::isnan(value)) {
        return 0;
    }
    if (value >= kLimit) {
        return std::numeric_limits<std::int64_t>::max();
    }
    if (value < -kLimit) {
        return std::numeric_limits<std::int64_t>::min();
    }
    return static_cast<std::int64_t>(std::nearbyint(value));
}

/// Like Round, saturating at the 32-bit range of pixel coordinates.
inline int RoundToPixel(double value)
{
    if (std::isnan(value)) {
        return 0;
    }
    if (value >= std::numeric_limits<int>::max()) {
        return std::numeric_limits<int>::max();
    }
    if (value <= std::numeric_limits<int>::min()) {
        return std::numeric_limits<int>::min();
    }
    return static_cast<int>(std::nearbyint(value));
}

} // namespace korvane
