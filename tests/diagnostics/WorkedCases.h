#pragma once

#include "tests/SourceFolder.h"

#include <algorithm>
#include <boost/property_tree/json_parser.hpp>
#include <charconv>
#include <cmath>
#include <gtest/gtest.h>
#include <optional>
#include <string>
#include <vector>

namespace quarnel::test {

using Json = boost::property_tree::ptree;

/// The number of a node; nothing for null.
inline std::optional<double> NumberOf(const Json& node) {
    const std::string text = node.data();
    double value = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ptr != text.data() + text.size() || text.empty())
        return std::nullopt;
    return value;
}

inline std::optional<double> NumberAt(const Json& node, const std::string& key) {
    const auto child = node.find(key);
    return child == node.not_found() ? std::nullopt : NumberOf(child->second);
}

inline bool Has(const Json& node, const std::string& key) {
    return node.find(key) != node.not_found();
}

inline std::vector<double> NumbersOf(const Json& array) {
    std::vector<double> numbers;
    for (const auto& child : array)
        numbers.push_back(NumberOf(child.second).value());
    return numbers;
}

inline std::vector<Json> ItemsOf(const Json& array) {
    std::vector<Json> items;
    for (const auto& child : array)
        items.push_back(child.second);
    return items;
}

/// A case of tests/diagnostics/cases/diagnostics-worked.json.
struct WorkedCase {
    Json input;
    Json expected;
    double tolerance = 1e-9;
};

inline WorkedCase ReadWorkedCase(const std::string& id) {
    static const Json file = [] {
        Json read;
        boost::property_tree::read_json(
            test::SourceFolder() + "/tests/diagnostics/cases/diagnostics-worked.json", read);
        return read;
    }();
    for (const auto& [name, node] : file.get_child("cases"))
        if (node.get<std::string>("id") == id)
            return {node.get_child("input"), node.get_child("expected"),
                    NumberAt(node, "tolerance_relative").value_or(1e-9)};
    ADD_FAILURE() << "no case " << id;
    return {};
}

/// `actual` as worked out to `tolerance` of the expected size; numbers that should be 0 to 1e-12.
inline void ExpectWorked(double actual, double expected, const std::string& what,
                         double tolerance = 1e-9) {
    const double bound = std::fabs(expected) < 1e-12 ? 1e-12 : tolerance * std::fabs(expected);
    EXPECT_NEAR(actual, expected, bound) << what;
}

/// The same for a number that may be absent: null in the case.
inline void ExpectWorked(std::optional<double> actual, const Json& expected,
                         const std::string& what) {
    const std::optional<double> number = NumberOf(expected);
    ASSERT_EQ(actual.has_value(), number.has_value()) << what;
    if (number)
        ExpectWorked(*actual, *number, what);
}

/// Metres a day in cm/s.
inline constexpr double SecPerDay = 86400;
inline double MetresPerDay(double kCmPerSec) {
    return kCmPerSec * SecPerDay / 100;
}

} // namespace quarnel::test
