#include "cli/DiagnoseOutput.h"
#include "cli/EachProject.h"
#include "diagnostics/Sensitivity.h"
#include "project/Texts.h"

#include <optional>

namespace quarnel {

namespace {

bool IsPercent(std::optional<double> percent) {
    return percent && *percent >= LeastSensitivityPercent && *percent <= GreatestSensitivityPercent;
}

} // namespace

ExitStatus DiagnoseCommand(const Words& words) {
    CommandLine commandLine(
        "diagnose [options] FILE...",
        "Says how far K of each project can be trusted: statistics of the fit, K from\n"
        "other readings, checks, and what moves K. A file that fails does not stop the\n"
        "others.\n"
        "The exit status is 0 when K of every project was computed (there may be\n"
        "warnings), 1 when any file failed.");
    AddFormatOption(commandLine);
    commandLine.AddOption("sensitivity", "Also what moves K: each entry changed at a time.");
    commandLine.AddOption("percent", "Change of each entry, 1 to 50 (10); implies --sensitivity.",
                          "P");
    AddJobsAndFiles(commandLine);
    if (const auto status = commandLine.Parse(words))
        return *status;
    EachProjectRequest request;
    if (const std::string fault = TakeEachProject(commandLine, request); !fault.empty())
        return commandLine.ReportWrongUse(fault);
    DiagnoseOptions options;
    if (commandLine.IsSet("sensitivity"))
        options.percent = DefaultSensitivityPercent;
    if (commandLine.IsSet("percent"))
        options.percent = ParseNumber(commandLine.Value("percent"));
    if (commandLine.IsSet("percent") && !IsPercent(options.percent))
        return commandLine.ReportWrongUse("The percent must be a number from 1 to 50.");
    ProjectPrinter printer;
    printer.table = [&options](const AnalysisRun& run, Output& output) {
        WriteDiagnosticsTable(run, options, output);
    };
    printer.csvHeader = DiagnosticsCsvHeader();
    printer.csvRow = DiagnosticsCsvRow;
    printer.json = [&options](const AnalysisRun& run, JsonWriter& json) {
        WriteDiagnosticsJson(run, options, json);
    };
    return PrintEachProject(request, printer);
}

} // namespace quarnel
