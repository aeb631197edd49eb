#pragma once

#include "compare/CompareStatistics.h"
#include "output/Sheet.h"

#include <span>

namespace quarnel {

/// The comparison on paper: the table, the lines of statistics and repeated tests, and a normalized
/// plot for each group with a counted test. The rows must keep their points; everything is read
/// here and not kept, but the measure must outlive the sheet.
Sheet CompareSheet(std::span<const CompareRow> rows, const Comparison& comparison,
                   bool divideByTimeLag, const Paper& paper, const TextMeasure& measure);

} // namespace quarnel
