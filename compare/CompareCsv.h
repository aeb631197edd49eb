#pragma once

#include "compare/CompareStatistics.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// The table of many tests as CSV: the names of the columns, then a line for each row.
std::string CompareCsv(std::span<const CompareRow> rows, const Comparison& comparison);

/// The rows of such a CSV, or why they could not be had.
struct CompareShard {
    std::string fault; ///< "" where all is well
    std::vector<CompareRow> rows;
};

/// Takes up the CSV of one run, so that the rows of several runs stand side by side as those of one
/// run over all their files would. `grouping` is the one to come: that by site needs a CSV written
/// by site, since no other names the site. `unit` is the one to come where it is named; rows whose
/// own project names none are taken to stand in it.
CompareShard ReadCompareCsv(std::string_view text, Grouping grouping,
                            const std::optional<CompareUnit>& unit);

inline constexpr std::string_view ShardNotOursFault = "This is no table of quarnel-cli compare.";
inline constexpr std::string_view ShardCutFault = "The table is cut: run it again.";

} // namespace quarnel
