#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "cli/SaveAndTell.h"
#include "project/Files.h"
#include "project/ProjectState.h"
#include "system/Locale.h"

#include <string>

namespace quarnel {

namespace {

/// Opens and saves as the window does. False after any message.
bool Convert(const std::string& from, const std::string& to) {
    ProjectState state;
    state.DecimalSeparator = SystemDecimalSeparator();
    FileOnDisk file;
    const ReadReport report = OpenProjectFile(from, state, file);
    for (const std::string& message : report.messages)
        PrintMessage(from, message);
    if (report.format == FileFormat::Unrecognised)
        return false;
    if (report.passedOverCount > 0)
        PrintMessage(from, "Items passed over: " + std::to_string(report.passedOverCount) +
                               " (see " + std::string(ProgramName) + " check).");
    const SavedProject saved = SaveAndTell(to, state, file);
    return report.messages.empty() && saved.isSaved && saved.isIntact;
}

} // namespace

ExitStatus ConvertCommand(const Words& words) {
    CommandLine commandLine(
        "convert IN OUT",
        "Opens a project or an old input file and saves it as a project, as Open and\n"
        "Save As do. What could be read is saved even when something failed. An OUT that\n"
        "exists is replaced without asking; one that does not read whole as a project\n"
        "is kept beside it as OUT.bak first.\n"
        "The exit status is 0 when all went well, 1 when anything failed or a text will\n"
        "not read back intact.");
    commandLine.AddArgument("IN", "A project (.qn2) or an old input file (.in).");
    commandLine.AddArgument("OUT", "The project to write (.qn2).");
    if (const auto status = commandLine.Parse(words))
        return *status;
    const Words files = commandLine.Files();
    if (files.size() != 2)
        return commandLine.ReportWrongUse("Exactly two files are needed.");
    return Convert(files[0], files[1]) ? Done : Failed;
}

} // namespace quarnel
