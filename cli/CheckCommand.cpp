#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "project/FieldTables.h"
#include "project/Files.h"
#include "project/PlainText.h"
#include "project/ProjectState.h"
#include "system/Locale.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unistd.h>

namespace quarnel {

namespace {

std::string_view FormatName(FileFormat format) {
    switch (format) {
    case FileFormat::Current:
        return "project file";
    case FileFormat::Legacy:
        return "old input file";
    case FileFormat::Unrecognised:
        break;
    }
    return "not readable as a project";
}

std::string PassedOverLines(const ReadReport& report) {
    std::string lines;
    for (const PassedOverItem& item : report.passedOver)
        lines += "  passed over in line " + std::to_string(item.line) + ": " +
                 PlainText(item.text) + "\n";
    const std::size_t more = report.passedOverCount - report.passedOver.size();
    if (more > 0)
        lines += "  passed over besides: " + std::to_string(more) + " more\n";
    return lines;
}

/// What there is to say of one file, a line each; nothing of a clean one.
std::string Findings(const ReadReport& report, const ProjectState& state) {
    std::string lines;
    for (const std::string& message : report.messages)
        lines += "  failed: " + PlainText(message) + "\n";
    lines += PassedOverLines(report);
    if (report.format != FileFormat::Unrecognised)
        for (const std::string& field : FieldsNotReadBackIntact(state))
            lines += "  would not read back intact: " + PlainText(field) + "\n";
    return lines;
}

/// Says of one file what it is and what would be lost. True when it is clean.
bool Check(const std::string& file, Output& output) {
    ProjectState state;
    state.DecimalSeparator = SystemDecimalSeparator();
    const ReadReport report = OpenProjectFile(file, state);
    const std::string findings = Findings(report, state);
    output.Write(PlainText(file) + ": " + std::string(FormatName(report.format)) +
                 (findings.empty() ? ", clean\n" : "\n") + findings);
    return findings.empty();
}

} // namespace

ExitStatus CheckCommand(const Words& words) {
    CommandLine commandLine(
        "check FILE...",
        "Says of each file which format it has, what of it is passed over or fails when\n"
        "it is opened, and which texts would not come back intact once saved.\n"
        "The exit status is 0 when every file is clean, 1 otherwise.");
    commandLine.AddArgument("FILE...", "Projects (.qn2) or old input files (.in).");
    if (const auto status = commandLine.Parse(words))
        return *status;
    const Words files = commandLine.Files();
    if (files.empty())
        return commandLine.ReportWrongUse("No file is named.");
    Output output(STDOUT_FILENO);
    bool allClean = true;
    for (const std::string& file : files) {
        allClean = Check(file, output) && allClean;
        if (output.HasFailed())
            break;
    }
    return FinishOutput(output, allClean ? Done : Failed);
}

} // namespace quarnel
