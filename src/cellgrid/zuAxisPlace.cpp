#include "cellgrid/zuAxisPlace.h"

#include <algorithm>

namespace korvane {

int ShiftedPlace(int place, int index, int by)
{
    if (place < index) {
        return place;
    }
    return by < 0 && place < index - by ? -1 : place + by;
}

int PlaceAfterMove(int place, int from, int to, int count)
{
    if (place >= from && place < from + count) {
        return place - from + to;
    }
    const int taken = place > from ? place - count : place;
    return taken >= to ? taken + count : taken;
}

int PlaceAfterReorder(int place, int first, const std::vector<int> &order)
{
    const auto found = std::find(order.begin(), order.end(), place - first);
    return found == order.end() ? place : first + static_cast<int>(found - order.begin());
}

} // namespace korvane
