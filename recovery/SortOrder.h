#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace quarnel {

/// The order of `values` from the smallest up, by position counted from 1: `order[k]` is the
/// position of the k-th smallest. Equal values keep their order. A value of 1.0e9 or more is never
/// placed: the places left over hold 0. O(n log n).
std::vector<std::size_t> SortOrderByValue(std::span<const double> values);

} // namespace quarnel
