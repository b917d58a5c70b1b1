// Seeded numbers for tests.
#pragma once

#include <cmath>
#include <random>

namespace korvane::test {

/// Numbers that are the same on every machine.
class Numbers
{
public:
    double Real(double from, double to) { return from + (to - from) * m_engine() / 4294967296.0; }
    int Int(int from, int to) { return static_cast<int>(std::floor(Real(from, to + 1.0))); }

private:
    std::mt19937 m_engine{20010101};
};

} // namespace korvane::test
