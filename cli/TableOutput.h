#pragma once

#include "cli/Output.h"
#include "kcompute/AnalysisRun.h"

namespace quarnel {

/// Writes one analysis for a person to read: well, geometry, coefficients, points, fit and, last of
/// all, K. What was not reached is left out.
void WriteTable(const AnalysisRun& run, Output& output);

} // namespace quarnel
