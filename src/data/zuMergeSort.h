// A stable sort that survives any comparison.
#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace korvane {

/// Orders the items stably. Unlike the standard algorithms it stays within bounds whatever the
/// comparison answers. Comparing items that are nearly in order takes linear time.
template <typename T, typename Less>
void MergeSort(std::vector<T> &items, const Less &less)
{
    std::vector<T> merged(items.size());
    for (std::size_t width = 1; width < items.size(); width *= 2) {
        for (std::size_t first = 0; first < items.size(); first += 2 * width) {
            const std::size_t middle = std::min(first + width, items.size());
            const std::size_t end = std::min(middle + width, items.size());
            const bool inOrder = middle == end || !less(items[middle], items[middle - 1]);
            std::size_t left = first;
            std::size_t right = middle;
            for (std::size_t to = first; to < end; ++to) {
                const bool takeRight =
                    left == middle || (!inOrder && right < end && less(items[right], items[left]));
                merged[to] = takeRight ? items[right++] : items[left++];
            }
        }
        items.swap(merged);
    }
}

} // namespace korvane
