// The order of readings by time, against the selection it is described by.

#include "recovery/SortOrder.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace quarnel {
namespace {

using Order = std::vector<std::size_t>;

/// For each place the smallest value not yet taken, searched from the first one up with a strict
/// comparison that starts from 1e9.
Order BySelection(const std::vector<double>& values) {
    Order order(values.size(), 0);
    std::vector<bool> taken(values.size(), false);
    for (std::size_t& place : order) {
        double smallest = 1.0e9;
        for (std::size_t i = 0; i < values.size(); ++i)
            if (!taken[i] && values[i] < smallest) {
                smallest = values[i];
                place = i + 1;
            }
        if (place > 0)
            taken[place - 1] = true;
    }
    return order;
}

TEST(SortOrderByValue, PutsTheSmallestFirst) {
    EXPECT_EQ(SortOrderByValue(std::vector<double>{3, 1, 2}), (Order{2, 3, 1}));
}

TEST(SortOrderByValue, EqualValuesKeepTheirOrder) {
    EXPECT_EQ(SortOrderByValue(std::vector<double>{5, 1, 5, 1}), (Order{2, 4, 1, 3}));
    EXPECT_EQ(SortOrderByValue(std::vector<double>{0.0, -0.0, 0.0}), (Order{1, 2, 3}));
}

TEST(SortOrderByValue, FromABillionOnNothingIsPlaced) {
    EXPECT_EQ(SortOrderByValue(std::vector<double>{1.0e9, 2, 999999999.5}), (Order{2, 3, 0}));
    EXPECT_EQ(SortOrderByValue(std::vector<double>{1.0e300}), (Order{0}));
}

TEST(SortOrderByValue, NothingHasNoOrder) {
    EXPECT_EQ(SortOrderByValue({}), Order{});
}

TEST(SortOrderByValue, IsWhatRepeatedSelectionGives) {
    std::mt19937 random(20240611);
    for (int round = 0; round < 300; ++round) {
        std::vector<double> values(random() % 40);
        for (double& value : values)
            value = random() % 5 == 0 ? 1.0e9 + static_cast<double>(random() % 3) - 1
                                      : static_cast<double>(random() % 20) - 5;
        EXPECT_EQ(SortOrderByValue(values), BySelection(values));
    }
}

} // namespace
} // namespace quarnel
