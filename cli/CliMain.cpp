#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "cli/JsonWriter.h"
#include "cli/Output.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <exception>
#include <string>
#include <string_view>
#include <unistd.h>

namespace quarnel {

namespace {

struct Command {
    std::string_view name;
    ExitStatus (*run)(const Words& words);
};

constexpr std::array<Command, 8> Commands = {{
    {"analyze", AnalyzeCommand},
    {"diagnose", DiagnoseCommand},
    {"compare", CompareCommand},
    {"report", ReportCommand},
    {"plot", PlotCommand},
    {"import", ImportCommand},
    {"convert", ConvertCommand},
    {"check", CheckCommand},
}};

ExitStatus ShowVersion(const CommandLine& commandLine) {
    const std::string format = commandLine.IsSet("format") ? commandLine.Value("format") : "text";
    if (format == "text")
        return PrintText(std::string(ProgramName) + " " QUARNEL_VERSION "\n");
    if (format != "json")
        return commandLine.ReportWrongUse("There is no format '" + format + "'.");
    Output output(STDOUT_FILENO);
    JsonWriter json(output);
    json.BeginObject();
    json.Member("program", ProgramName);
    json.Member("version", QUARNEL_VERSION);
    json.EndObject();
    return FinishOutput(output, Done);
}

/// The words before a command: an option of the program itself, or a mistake.
ExitStatus RunWithoutCommand(const Words& words) {
    CommandLine commandLine("COMMAND [options] FILE...",
                            "Analyses slug tests by the Bouwer-Rice method, without a window.\n\n"
                            "Commands:\n"
                            "  analyze   Computes K and prints it as table, JSON or CSV.\n"
                            "  diagnose  Says how far K can be trusted.\n"
                            "  compare   Puts many projects side by side.\n"
                            "  report    Writes the summary report.\n"
                            "  plot      Writes the plot as PDF, SVG or PNG.\n"
                            "  import    Turns a logger's file into a project.\n"
                            "  convert   Saves a project or old input file as a project.\n"
                            "  check     Says what a file is and what of it would be lost.\n\n"
                            "quarnel-cli COMMAND --help tells more of each.");
    commandLine.AddOption("version", "Shows the version.");
    commandLine.AddOption("format", "With --version: text (the default) or json.", "text|json");
    if (const auto status = commandLine.Parse(words))
        return *status;
    const Words names = commandLine.Files();
    if (!names.empty())
        return commandLine.ReportWrongUse("There is no command '" + names.front() + "'.");
    if (commandLine.IsSet("version"))
        return ShowVersion(commandLine);
    return commandLine.ReportWrongUse("No command is given.");
}

ExitStatus Run(const Words& words) {
    if (!words.empty()) {
        const auto* command =
            std::find_if(Commands.begin(), Commands.end(),
                         [&words](const Command& known) { return known.name == words.front(); });
        if (command != Commands.end())
            return command->run(Words(words.begin() + 1, words.end()));
    }
    return RunWithoutCommand(words);
}

} // namespace

} // namespace quarnel

int main(int argc, char** argv) {
    quarnel::SecureStandardStreams();
    const quarnel::Words words(argv + std::min(argc, 1), argv + argc);
    const QCoreApplication application(argc, argv);
    try {
        return quarnel::Run(words);
    } catch (const std::exception& fault) {
        quarnel::PrintMessage(quarnel::ProgramName, fault.what());
        return quarnel::Failed;
    }
}
