#pragma once

#include "cli/JsonWriter.h"
#include "cli/Output.h"
#include "compare/CompareStatistics.h"

#include <span>

namespace quarnel {

/// Writes the table of many tests for a person to read: the rows, then a blank line, then the lines
/// of statistics and repeated tests.
void WriteCompareTable(std::span<const CompareRow> rows, const Comparison& comparison,
                       Output& output);

/// Writes the same as one object. Every key is always there; what is absent is null.
void WriteCompareJson(std::span<const CompareRow> rows, const Comparison& comparison,
                      JsonWriter& json);

} // namespace quarnel
