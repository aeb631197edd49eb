#pragma once

#include "cli/JsonWriter.h"
#include "cli/Output.h"
#include "kcompute/AnalysisRun.h"

#include <optional>
#include <string>

namespace quarnel {

/// What is written of each project beside its diagnostics.
struct DiagnoseOptions {
    /// By how much each entry is changed to see what moves K, in percent; nothing leaves that out.
    std::optional<double> percent;
};

/// Writes the diagnostics of one project for a person to read, page by page as in the window.
void WriteDiagnosticsTable(const AnalysisRun& run, const DiagnoseOptions& options, Output& output);

/// Writes them as an object. Every key is always there; what is absent is null.
void WriteDiagnosticsJson(const AnalysisRun& run, const DiagnoseOptions& options, JsonWriter& json);

/// The names of the columns as one line, and one project as one line.
std::string DiagnosticsCsvHeader();
std::string DiagnosticsCsvRow(const AnalysisRun& run);

} // namespace quarnel
