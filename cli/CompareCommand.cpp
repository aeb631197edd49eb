#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "cli/CompareOutput.h"
#include "cli/CompareRecords.h"
#include "cli/EachProject.h"
#include "compare/CompareCsv.h"
#include "compare/CompareLines.h"
#include "compare/CompareRun.h"
#include "compare/ProjectList.h"
#include "system/InOrder.h"
#include "system/Locale.h"
#include "system/OpenFile.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <unistd.h>

namespace quarnel {

namespace {

/// What the words after "compare" ask for.
struct CompareRequest {
    std::vector<std::string> files; ///< projects, or with `join` tables
    std::string format = "table";
    CompareSettings settings;
    std::size_t jobs = DefaultJobs();
    std::optional<std::string> recordFolder;
    bool join = false;
};

void AddOptions(CommandLine& commandLine) {
    commandLine.AddOption("format",
                          "table (to read, the default), csv (one line per project), json "
                          "(everything).",
                          "table|csv|json");
    commandLine.AddOption("group",
                          "Which tests belong together: those of one well label (the default), of "
                          "one site name and well label, or all.",
                          "well|site|none");
    commandLine.AddOption(
        "unit", "Unit of all K, as m/day; otherwise that of the first project with a K.", "L/T");
    commandLine.AddOption("record",
                          "Also write the record of each test into this folder as "
                          "NAME-record.txt, replacing what is there.",
                          "FOLDER");
    AddJobsOption(commandLine);
    commandLine.AddOption("join", "The files are tables that compare --format csv wrote: puts them "
                                  "together as one run over all projects would have.");
    commandLine.AddArgument("FILE...",
                            "Projects (.qn2) or old input files (.in), folders of them, or names "
                            "with wildcards.");
}

std::string TakeGrouping(const std::string& name, Grouping& grouping) {
    for (const Grouping known : {Grouping::Well, Grouping::Site, Grouping::None})
        if (NameOf(known) == name) {
            grouping = known;
            return {};
        }
    return "There is no group '" + name + "'.";
}

/// The sentence about what is wrong with the words, "" when all is well.
std::string TakeRequest(const CommandLine& commandLine, CompareRequest& request) {
    std::string fault;
    if (commandLine.IsSet("format"))
        request.format = commandLine.Value("format");
    if (request.format != "table" && request.format != "csv" && request.format != "json")
        return "There is no format '" + request.format + "'.";
    if (commandLine.IsSet("group"))
        fault = TakeGrouping(commandLine.Value("group"), request.settings.grouping);
    if (fault.empty() && commandLine.IsSet("unit")) {
        request.settings.unit = CompareUnitNamed(commandLine.Value("unit"));
        if (!request.settings.unit)
            fault = "There is no unit '" + commandLine.Value("unit") + "'.";
    }
    if (fault.empty())
        fault = TakeJobs(commandLine, request.jobs);
    if (commandLine.IsSet("record"))
        request.recordFolder = commandLine.Value("record");
    request.join = commandLine.IsSet("join");
    if (fault.empty() && request.join && request.recordFolder)
        fault = "The records need the projects themselves, not their tables.";
    request.files = commandLine.Files();
    return fault.empty() && request.files.empty() ? "No file is named." : fault;
}

/// Reads every project into `rows`. False where a record could not be written.
bool ReadProjects(const CompareRequest& request, std::vector<CompareRow>& rows) {
    const std::string separator = SystemDecimalSeparator();
    const std::vector<std::string> files = ProjectsNamed(request.files);
    std::optional<CompareRecords> records;
    if (request.recordFolder)
        records.emplace(*request.recordFolder, files);
    rows.reserve(files.size());
    PathResolver paths;
    const CompareReader read = [&](const std::string& file) {
        const AnalysisRun run = RunAnalysis(file, separator);
        if (records)
            records->Write(run);
        return MakeCompareRow(run, CompareKeep(), paths);
    };
    ReadCompareRows(files, request.jobs, read,
                    [&rows](std::size_t, CompareRow row) { rows.push_back(std::move(row)); });
    return !records || !records->HasFailed();
}

/// Takes up one table. False, and standard error says why, where it cannot be.
bool TakeTable(const std::string& path, const CompareSettings& settings,
               std::vector<CompareRow>& rows) {
    const FileBytes bytes = ReadFileBytes(path);
    if (bytes.failure != FileFailure::None) {
        PrintMessage(path, FileErrorMessage(bytes.failure));
        return false;
    }
    CompareShard shard = ReadCompareCsv(bytes.View(), settings.grouping, settings.unit);
    if (!shard.fault.empty()) {
        PrintMessage(path, shard.fault);
        return false;
    }
    std::move(shard.rows.begin(), shard.rows.end(), std::back_inserter(rows));
    return true;
}

/// Takes up every table; false where one is missing, since statistics without it would look whole.
bool JoinTables(const CompareRequest& request, std::vector<CompareRow>& rows) {
    bool isWhole = true;
    for (const std::string& file : FilesNamed(request.files))
        isWhole = TakeTable(file, request.settings, rows) && isWhole;
    return isWhole;
}

bool IsComputed(const CompareRow& row) {
    return row.kCmPerSec && row.failure.empty();
}

ExitStatus WriteComparison(const CompareRequest& request, const std::vector<CompareRow>& rows) {
    const Comparison comparison = CompareRows(rows, request.settings);
    Output output(STDOUT_FILENO);
    if (request.format == "csv") {
        output.Write(CompareCsv(rows, comparison));
    } else if (request.format == "json") {
        JsonWriter json(output);
        WriteCompareJson(rows, comparison, json);
    } else {
        WriteCompareTable(rows, comparison, output);
    }
    return FinishOutput(output, std::ranges::all_of(rows, IsComputed) ? Done : Failed);
}

} // namespace

ExitStatus CompareCommand(const Words& words) {
    CommandLine commandLine(
        "compare [options] FILE...",
        "Puts the K of many projects side by side in one unit, with statistics of each\n"
        "well and of all, and checks repeated tests of a well against each other. A file\n"
        "that fails is a row and does not stop the others.\n"
        "The exit status is 0 when K of every project was computed, 1 when any failed.");
    AddOptions(commandLine);
    if (const auto status = commandLine.Parse(words))
        return *status;
    CompareRequest request;
    if (const std::string fault = TakeRequest(commandLine, request); !fault.empty())
        return commandLine.ReportWrongUse(fault);
    std::vector<CompareRow> rows;
    if (request.join)
        return JoinTables(request, rows) ? WriteComparison(request, rows) : Failed;
    const bool isRecorded = ReadProjects(request, rows);
    const ExitStatus status = WriteComparison(request, rows);
    return isRecorded ? status : Failed;
}

} // namespace quarnel
