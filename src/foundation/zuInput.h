// What goes with a mouse or key event.
#pragma once

namespace korvane {

enum class TMouseButton : unsigned char { mbLeft, mbRight, mbMiddle };

/// Which modifiers were held.
struct TShiftState
{
    bool Shift = false;
    bool Ctrl = false;
    bool Alt = false;

    friend bool operator==(const TShiftState &, const TShiftState &) = default;
};

} // namespace korvane
