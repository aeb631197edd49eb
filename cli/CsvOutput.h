#pragma once

#include "kcompute/AnalysisRun.h"

#include <string>

namespace quarnel {

/// The names of the columns as one line.
std::string CsvHeader();

/// One analysis as one line: what was not reached is an empty column. Texts out of a file that a
/// spreadsheet would take for a formula begin with an apostrophe.
std::string CsvRow(const AnalysisRun& run);

} // namespace quarnel
