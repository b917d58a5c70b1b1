// How fast rows or columns scroll while a gesture is held past the edges of an area.
#pragma once

#include "foundation/zuExport.h"

namespace korvane {

/// Turns the distance from the pointer to the area into a speed: the farther, the faster. It begins
/// slowly, since rows move whole: one in several ticks near the edge, up to five a tick.
class KORVANE_CORE_API TAutoScroll
{
public:
    /// The time between two ticks.
    static constexpr int kTickMilliseconds = 30;

    /// Pixels past the top (negative) or bottom edge; 0 = inside.
    void SetBeyond(int pixels);
    /// As SetBeyond(0), and forgets the part of a row that was due.
    void Stop() { *this = {}; }
    /// Whether the pointer was past an edge last.
    bool IsRunning() const { return m_beyond != 0; }

    /// The rows to scroll now, down when positive.
    int Tick();

private:
    int m_beyond = 0;
    double m_rows = 0; ///< the part of a row that is due
};

/// How far a position lies before 0 (negative) or behind the last of `length` pixels; 0 = inside.
KORVANE_CORE_API int PixelsBeyond(int position, int length);

} // namespace korvane
