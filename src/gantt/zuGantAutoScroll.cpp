#include "gantt/zuGantAutoScroll.h"

#include <algorithm>
#include <cmath>

namespace korvane {

namespace {

constexpr double kLeastPixels = 3;
constexpr double kPixelsPerPixel = 0.25;
constexpr double kMostPixels = 100;
constexpr double kLeastRows = 0.15;
constexpr double kRowsPerPixel = 0.01;
constexpr double kMostRows = 5;

double Speed(int beyond, double least, double perPixel, double most)
{
    if (beyond == 0) {
        return 0;
    }
    return std::copysign(std::min(least + std::abs(double{1} * beyond) * perPixel, most), beyond);
}

} // namespace

void TAutoScroll::SetBeyondY(int pixels)
{
    if ((pixels > 0) != (m_beyondY > 0) || (pixels < 0) != (m_beyondY < 0)) {
        m_rows = 0;
    }
    m_beyondY = pixels;
}

void TAutoScroll::Stop()
{
    *this = {};
}

TAutoScrollStep TAutoScroll::Tick()
{
    m_rows += Speed(m_beyondY, kLeastRows, kRowsPerPixel, kMostRows);
    const double whole = std::trunc(m_rows);
    m_rows -= whole;
    return {static_cast<int>(Speed(m_beyondX, kLeastPixels, kPixelsPerPixel, kMostPixels)),
            static_cast<int>(whole)};
}

int PixelsBeyond(int position, int length)
{
    if (position < 0) {
        return position;
    }
    return std::max(0, position - length + 1);
}

} // namespace korvane
