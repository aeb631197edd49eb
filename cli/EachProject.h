#pragma once

#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "cli/JsonWriter.h"
#include "cli/Output.h"
#include "kcompute/AnalysisRun.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

namespace quarnel {

/// What is asked of a command that computes projects one by one and prints each.
struct EachProjectRequest {
    Words files;
    std::string format = "table";
    std::size_t jobs = 1; ///< how many are read and computed at a time
};

/// How such a command prints one project in each of its formats.
struct ProjectPrinter {
    std::function<void(const AnalysisRun&, Output&)> table;
    std::string csvHeader;
    /// Called on several threads at a time.
    std::function<std::string(const AnalysisRun&)> csvRow;
    std::function<void(const AnalysisRun&, JsonWriter&)> json;
};

/// The option --jobs.
void AddJobsOption(CommandLine& commandLine);
/// Takes it: one job for each core where nothing is said. What is wrong with it, "" when all is
/// well.
std::string TakeJobs(const CommandLine& commandLine, std::size_t& jobs);

/// The option --format of a command that prints each project.
void AddFormatOption(CommandLine& commandLine);
/// The option --jobs and the files, behind the command's own options.
void AddJobsAndFiles(CommandLine& commandLine);
/// Takes format, jobs and files. What is wrong with them, "" when all is well.
std::string TakeEachProject(const CommandLine& commandLine, EachProjectRequest& request);

/// Computes the projects on as many workers as asked for and prints them in the order of the files,
/// the same to the byte however many workers there are; memory does not grow with the number of
/// files. Failed when any K could not be computed or the output was not taken.
ExitStatus PrintEachProject(const EachProjectRequest& request, const ProjectPrinter& printer);

} // namespace quarnel
