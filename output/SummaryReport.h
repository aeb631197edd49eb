#pragma once

#include "kcompute/Computation.h"
#include "project/ProjectState.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

inline constexpr std::string_view ReportTitle = "BOUWER-RICE SLUG TEST ANALYSIS";

/// One block of the report: its heading in capitals and the lines under it. A line that needs a
/// computation is empty while there is none.
struct ReportBlock {
    std::string heading;
    std::vector<std::string> lines;
};

/// One row of the point table: time, reading, criterion, Y, fitted Y.
using ReportRow = std::array<std::string, 5>;

/// The blocks from the site down to the fitted line, in the order of the page. Identification texts
/// are trimmed, and those that are empty have no line. K stands in the units chosen in `state`.
std::vector<ReportBlock> SummaryReportBlocks(const ProjectState& state,
                                             const Computation* computation);

/// The headings of the point table, with the units of the computation or, without one, those chosen
/// in `state`.
ReportRow ReportTableHeadings(const ProjectState& state, const Computation* computation);

/// The row of a point (counted from 0).
ReportRow ReportTableRow(const Computation& computation, std::size_t point);

/// Adds a row of the point table, or its headings, to a text: columns at 1, 15, 35, 50 and 65
/// counted in characters.
void AppendReportRow(std::string& text, const ReportRow& row);

/// How many points the table has; none without a computation.
std::size_t ReportTableSize(const Computation* computation);

/// The whole report as text: UTF-8, lines ended by CR LF, table columns at 1, 15, 35, 50 and 65
/// counted in characters. Without a computation the lines that need one are empty.
std::string SummaryReportText(const ProjectState& state, const Computation* computation);

/// The bytes of the report's file, encoded as a project file is.
std::string ReportBytes(const ProjectState& state, const Computation* computation);

} // namespace quarnel
