#pragma once

#include "cli/CommandLine.h"

#include <string>
#include <vector>

namespace quarnel {

using Words = std::vector<std::string>;

/// Each command takes the words after its name and says how it went.

/// Computes K of each project and prints it as table, JSON or CSV.
ExitStatus AnalyzeCommand(const Words& words);
/// Says how far K of each project can be trusted.
ExitStatus DiagnoseCommand(const Words& words);
/// Puts many projects side by side.
ExitStatus CompareCommand(const Words& words);
/// Reads a project of either format and saves it in the current one.
ExitStatus ConvertCommand(const Words& words);
/// Turns the readings of a logger's file into a project.
ExitStatus ImportCommand(const Words& words);
/// Says what each file is and what of it would be lost.
ExitStatus CheckCommand(const Words& words);
/// Writes the summary report.
ExitStatus ReportCommand(const Words& words);
/// Writes the plot, with the program that can paint.
ExitStatus PlotCommand(const Words& words);

} // namespace quarnel
