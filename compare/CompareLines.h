#pragma once

#include "compare/CompareStatistics.h"

#include <array>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// The columns of the table of many tests.
enum CompareColumn : std::size_t {
    CompareNumber = 0,
    CompareWell,
    CompareDate,
    CompareTest,
    CompareUsed,
    CompareFirstY,
    CompareK,
    CompareKAsShown,
    CompareHalfWidth,
    CompareRange,
    CompareRemarks,
    CompareFile,
    CompareColumnCount
};

/// Whether a column holds numbers, which stand to the right and sort by value.
bool IsNumberColumn(std::size_t column);

/// Stands below what is said of repeated tests, whatever that is.
inline constexpr std::string_view SkinNote =
    "Agreement does not rule out a skin around the screen.";
inline constexpr std::string_view NoTestCountedText = "No test is counted.";

/// A line for a person to read.
struct CompareLine {
    std::string text;
    std::optional<std::size_t> group; ///< the one it belongs to; none of what is said of all
    std::optional<CheckLevel> level;  ///< of a remark on repeated tests
};

/// The headings with the common unit: "K (m/day)".
std::array<std::string, CompareColumnCount> CompareHeadings(const Comparison& comparison);

/// The texts of one row.
std::array<std::string, CompareColumnCount>
CompareTexts(const CompareRow& row, const Comparison& comparison, std::size_t index);

/// What a cell shows on pointing at it: the path for the file, the sentences for the remarks where
/// the row keeps them; "" for others.
std::string CompareToolTip(const CompareRow& row, const ComparedRow& compared, std::size_t column);

/// The number a cell sorts by; none where it shows a dash or is no number.
std::optional<double> CompareSortValue(const CompareRow& row, const Comparison& comparison,
                                       std::size_t index, std::size_t column);

/// The statistics and the remarks on repeated tests of every group in turn, of all rows together
/// where there are 2 or more groups, and below them the note, where a well has repeated tests.
std::vector<CompareLine> CompareLines(const Comparison& comparison);
/// The same of some groups, without what is said of all rows together.
std::vector<CompareLine> CompareLines(const Comparison& comparison,
                                      std::span<const std::size_t> groups);

/// The sentence of a remark; `unit` names the length unit of heads.
std::string RepeatText(RepeatId id, const RepeatTests& repeats, int lengthUnit);

/// "counted", "not counted", "failed".
std::string_view NameOf(CompareStatus status);
/// "well", "site", "none".
std::string_view NameOf(Grouping grouping);
/// "adjusted", "plain".
std::string_view NameOf(HalfWidthKind kind);

} // namespace quarnel
