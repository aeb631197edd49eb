#pragma once

#include "cli/JsonWriter.h"
#include "kcompute/AnalysisRun.h"

namespace quarnel {

/// Writes one analysis as an object. A group that was not reached is null.
void WriteJson(const AnalysisRun& run, JsonWriter& json);

} // namespace quarnel
