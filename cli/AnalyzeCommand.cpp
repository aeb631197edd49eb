#include "cli/CsvOutput.h"
#include "cli/EachProject.h"
#include "cli/JsonOutput.h"
#include "cli/TableOutput.h"

namespace quarnel {

ExitStatus AnalyzeCommand(const Words& words) {
    CommandLine commandLine(
        "analyze [--format table|json|csv] [--jobs N] FILE...",
        "Computes the hydraulic conductivity K of each project, and all that belongs to\n"
        "it. A file that fails does not stop the others.\n"
        "The exit status is 0 when K of every project was computed (there may be\n"
        "warnings), 1 when any file failed.");
    AddFormatOption(commandLine);
    AddJobsAndFiles(commandLine);
    if (const auto status = commandLine.Parse(words))
        return *status;
    EachProjectRequest request;
    if (const std::string fault = TakeEachProject(commandLine, request); !fault.empty())
        return commandLine.ReportWrongUse(fault);
    return PrintEachProject(request, {WriteTable, CsvHeader(), CsvRow, WriteJson});
}

} // namespace quarnel
