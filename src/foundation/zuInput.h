// What goes with a mouse or key event, and what it does to a selection.
#pragma once

namespace korvane {

/// The three buttons that the components know.
enum class TMouseButton : unsigned char { mbLeft, mbRight, mbMiddle };

/// How far, in pixels, the mouse goes from the press on either axis before it drags.
inline constexpr int kDragDistance = 4;

/// Which modifiers were held.
struct TShiftState
{
    bool Shift = false; ///< for ranges
    bool Ctrl = false;  ///< for single additions and copies
    bool Alt = false;   ///< with the keyboard only

    friend bool operator==(const TShiftState &, const TShiftState &) = default;
};

/// When a click changes the selection.
enum class TSelectStep : unsigned char {
    Press,
    Release, ///< of a button that was not dragged
    Drop,    ///< release after a drag, or of another button than the left one
};

/// What becomes of the items that are to be selected, and of the others.
enum class TSelectHow : unsigned char {
    Replace, ///< they alone are selected
    Add,     ///< they are selected as well
    Toggle,  ///< they change sides
};

} // namespace korvane
