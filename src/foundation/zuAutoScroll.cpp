#include "foundation/zuAutoScroll.h"

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

constexpr double kLeastRows = 0.15;
constexpr double kRowsPerPixel = 0.01;
constexpr double kMostRows = 5;

} // namespace

void TAutoScroll::SetBeyond(int pixels)
{
    if ((pixels > 0) != (m_beyond > 0) || (pixels < 0) != (m_beyond < 0)) {
        m_rows = 0;
    }
    m_beyond = pixels;
}

int TAutoScroll::Tick()
{
    if (m_beyond == 0) {
        return 0;
    }
    const double speed = kLeastRows + std::abs(static_cast<double>(m_beyond)) * kRowsPerPixel;
    m_rows += std::copysign(std::min(speed, kMostRows), m_beyond);
    const double whole = std::trunc(m_rows);
    m_rows -= whole;
    return static_cast<int>(whole);
}

int PixelsBeyond(int position, int length)
{
    if (position < 0) {
        return position;
    }
    return std::max(0, position - length + 1);
}

} // namespace korvane
