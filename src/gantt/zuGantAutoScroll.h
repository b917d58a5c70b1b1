// How fast a chart scrolls while a gesture is held past the edges of its area.
#pragma once

#include "foundation/zuTypes.h"

namespace korvane {

/// What one tick of the timer scrolls.
struct TAutoScrollStep
{
    int Pixels = 0; ///< of the axis; to later times when positive
    int Rows = 0;   ///< down when positive
};

/// Turns the distance from the pointer to the area into a speed: the farther, the faster.
///
/// The axis moves by a few pixels a tick near the edge and by up to a hundred far away. Rows begin
/// slowly, since they move whole: one in several ticks near the edge, up to five a tick.
class TAutoScroll
{
public:
    /// The time between two ticks.
    static constexpr int kTickMilliseconds = 30;

    /// Pixels past the left (negative) or right edge; 0 = inside.
    void SetBeyondX(int pixels) { m_beyondX = pixels; }
    /// Pixels past the top (negative) or bottom edge; 0 = inside.
    void SetBeyondY(int pixels);
    void Stop();
    bool IsRunning() const { return m_beyondX != 0 || m_beyondY != 0; }

    TAutoScrollStep Tick();

private:
    int m_beyondX = 0;
    int m_beyondY = 0;
    double m_rows = 0; ///< the part of a row that is due
};

/// How far a position lies before 0 (negative) or behind the last of `length` pixels; 0 = inside.
int PixelsBeyond(int position, int length);

} // namespace korvane
