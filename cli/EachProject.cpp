#include "cli/EachProject.h"

#include "project/Result.h"
#include "system/InOrder.h"
#include "system/Locale.h"

#include <charconv>
#include <stop_token>
#include <unistd.h>
#include <utility>
#include <vector>

namespace quarnel {

namespace {

/// Computes each file on one of the workers, makes of it there what `make` makes, and hands that to
/// `write` in the order of the files; `ahead` of them may wait for their turn. A reader that has
/// gone ends it early.
template <typename Made, typename Make, typename Write>
void MakeEach(const EachProjectRequest& request, std::size_t ahead, Output& output,
              const Make& make, const Write& write) {
    const std::string separator = SystemDecimalSeparator();
    std::stop_source stop;
    InOrder<Made> each(
        [&](std::size_t i) { return make(RunAnalysis(request.files[i], separator)); },
        [&](std::size_t, const Made& made) {
            write(made);
            if (output.HasFailed())
                stop.request_stop();
        },
        ahead, stop.get_token());
    each.Run(request.files.size(), request.jobs);
}

bool IsComputed(const AnalysisRun& run) {
    return run.status != ComputationStatus::Error;
}

/// Hands each run to `write` with its points: no more of them wait than are being made.
template <typename Write>
bool WriteEach(const EachProjectRequest& request, Output& output, const Write& write) {
    bool allComputed = true;
    MakeEach<AnalysisRun>(
        request, request.jobs, output, [](AnalysisRun run) { return run; },
        [&](const AnalysisRun& run) {
            allComputed = allComputed && IsComputed(run);
            write(run);
        });
    return allComputed;
}

bool PrintTables(const EachProjectRequest& request, const ProjectPrinter& printer, Output& output) {
    bool isFirst = true;
    return WriteEach(request, output, [&](const AnalysisRun& run) {
        output.Write(isFirst ? "" : "\n");
        isFirst = false;
        PrintMessages(run.file, run.messages);
        printer.table(run, output);
        output.Flush(); // so that messages and tables keep their order on a terminal
    });
}

/// What a run leaves behind in a table of one line for each project.
struct CsvLine {
    std::string file;
    std::vector<std::string> messages;
    std::string row;
    bool isComputed = false;
};

bool PrintCsv(const EachProjectRequest& request, const ProjectPrinter& printer, Output& output) {
    output.Write(printer.csvHeader);
    bool allComputed = true;
    MakeEach<CsvLine>(
        request, request.files.size(), output,
        [&](const AnalysisRun& run) {
            return CsvLine{run.file, run.messages, printer.csvRow(run), IsComputed(run)};
        },
        [&](const CsvLine& line) {
            allComputed = allComputed && line.isComputed;
            PrintMessages(line.file, line.messages);
            output.Write(line.row);
        });
    return allComputed;
}

bool PrintJson(const EachProjectRequest& request, const ProjectPrinter& printer, Output& output) {
    JsonWriter json(output);
    json.BeginArray();
    const bool allComputed =
        WriteEach(request, output, [&](const AnalysisRun& run) { printer.json(run, json); });
    json.EndArray();
    return allComputed;
}

} // namespace

void AddJobsOption(CommandLine& commandLine) {
    commandLine.AddOption("jobs", "Projects to read at a time; otherwise one for each core.", "N");
}

std::string TakeJobs(const CommandLine& commandLine, std::size_t& jobs) {
    jobs = DefaultJobs();
    if (!commandLine.IsSet("jobs"))
        return {};
    const std::string text = commandLine.Value("jobs");
    const auto result = std::from_chars(text.data(), text.data() + text.size(), jobs);
    const bool isWhole = result.ec == std::errc() && result.ptr == text.data() + text.size();
    return isWhole && jobs > 0 ? "" : "The number of jobs must be a whole number from 1.";
}

void AddFormatOption(CommandLine& commandLine) {
    commandLine.AddOption("format",
                          "table (to read, the default), json (everything), csv (one line per "
                          "project).",
                          "table|json|csv");
}

void AddJobsAndFiles(CommandLine& commandLine) {
    AddJobsOption(commandLine);
    commandLine.AddArgument("FILE...", "Projects (.qn2) or old input files (.in).");
}

std::string TakeEachProject(const CommandLine& commandLine, EachProjectRequest& request) {
    request.files = commandLine.Files();
    if (commandLine.IsSet("format"))
        request.format = commandLine.Value("format");
    if (request.format != "table" && request.format != "json" && request.format != "csv")
        return "There is no format '" + request.format + "'.";
    std::string fault = TakeJobs(commandLine, request.jobs);
    if (fault.empty() && request.files.empty())
        fault = "No file is named.";
    return fault;
}

ExitStatus PrintEachProject(const EachProjectRequest& request, const ProjectPrinter& printer) {
    Output output(STDOUT_FILENO);
    const bool allComputed = request.format == "json"  ? PrintJson(request, printer, output)
                             : request.format == "csv" ? PrintCsv(request, printer, output)
                                                       : PrintTables(request, printer, output);
    return FinishOutput(output, allComputed ? Done : Failed);
}

} // namespace quarnel
