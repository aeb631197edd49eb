#include "recovery/SortOrder.h"

#include <algorithm>

namespace quarnel {

namespace {
/// The bound from which on a value is never placed.
constexpr double NeverPlaced = 1.0e9;
} // namespace

std::vector<std::size_t> SortOrderByValue(std::span<const double> values) {
    std::vector<std::size_t> order;
    order.reserve(values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        if (values[i] < NeverPlaced)
            order.push_back(i + 1);
    std::stable_sort(order.begin(), order.end(), [&values](std::size_t a, std::size_t b) {
        return values[a - 1] < values[b - 1];
    });
    order.resize(values.size(), 0);
    return order;
}

} // namespace quarnel
