#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "cli/CsvOutput.h"
#include "cli/JsonOutput.h"
#include "cli/JsonWriter.h"
#include "cli/Output.h"
#include "cli/TableOutput.h"
#include "kcompute/AnalysisRun.h"
#include "project/Result.h"
#include "system/Locale.h"

#include <string>
#include <unistd.h>

namespace quarnel {

namespace {

/// Analyses one file after the other, so that only one is in memory, and hands each to `write`.
/// False when any could not be computed. A reader that has gone ends it early.
template <typename Write> bool AnalyzeEach(const Words& files, Output& output, Write write) {
    const std::string separator = SystemDecimalSeparator();
    bool allComputed = true;
    for (const std::string& file : files) {
        const AnalysisRun run = RunAnalysis(file, separator);
        allComputed = allComputed && run.status != ComputationStatus::Error;
        write(run);
        if (output.HasFailed())
            break;
    }
    return allComputed;
}

bool AnalyzeAsTable(const Words& files, Output& output) {
    bool isFirst = true;
    return AnalyzeEach(files, output, [&](const AnalysisRun& run) {
        output.Write(isFirst ? "" : "\n");
        isFirst = false;
        PrintMessages(run.file, run.messages);
        WriteTable(run, output);
        output.Flush(); // so that messages and tables keep their order on a terminal
    });
}

bool AnalyzeAsCsv(const Words& files, Output& output) {
    output.Write(CsvHeader());
    return AnalyzeEach(files, output, [&](const AnalysisRun& run) {
        PrintMessages(run.file, run.messages);
        output.Write(CsvRow(run));
    });
}

bool AnalyzeAsJson(const Words& files, Output& output) {
    JsonWriter json(output);
    json.BeginArray();
    const bool allComputed =
        AnalyzeEach(files, output, [&](const AnalysisRun& run) { WriteJson(run, json); });
    json.EndArray();
    return allComputed;
}

} // namespace

ExitStatus AnalyzeCommand(const Words& words) {
    CommandLine commandLine(
        "analyze [--format table|json|csv] FILE...",
        "Computes the hydraulic conductivity K of each project, and all that belongs to\n"
        "it. A file that fails does not stop the others.\n"
        "The exit status is 0 when K of every project was computed (there may be\n"
        "warnings), 1 when any file failed.");
    commandLine.AddOption("format",
                          "table (to read, the default), json (everything), csv (one line per "
                          "project).",
                          "table|json|csv");
    commandLine.AddArgument("FILE...", "Projects (.qn2) or old input files (.in).");
    if (const auto status = commandLine.Parse(words))
        return *status;
    const Words files = commandLine.Files();
    const std::string format = commandLine.IsSet("format") ? commandLine.Value("format") : "table";
    if (format != "table" && format != "json" && format != "csv")
        return commandLine.ReportWrongUse("There is no format '" + format + "'.");
    if (files.empty())
        return commandLine.ReportWrongUse("No file is named.");
    Output output(STDOUT_FILENO);
    const bool allComputed = format == "json"  ? AnalyzeAsJson(files, output)
                             : format == "csv" ? AnalyzeAsCsv(files, output)
                                               : AnalyzeAsTable(files, output);
    return FinishOutput(output, allComputed ? Done : Failed);
}

} // namespace quarnel
