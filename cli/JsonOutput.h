#pragma once

#include "cli/AnalysisRun.h"
#include "cli/JsonWriter.h"

namespace quarnel {

/// Writes one analysis as an object. A group that was not reached is null.
void WriteJson(const AnalysisRun& run, JsonWriter& json);

} // namespace quarnel
