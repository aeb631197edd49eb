#include "cli/CommandLine.h"
#include "cli/Commands.h"
#include "cli/Output.h"
#include "system/OpenFile.h"

#include <QCoreApplication>
#include <QFile>
#include <cerrno>
#include <csignal>
#include <string>
#include <string_view>
#include <system_error>
#include <unistd.h>

namespace quarnel {

namespace {

/// Painting needs Qt Gui, which this program must run without: a program of its own paints.
constexpr std::string_view PaintingProgram = "quarnel-plot";

/// Becomes the painting program, whose exit status is then ours. Comes back only where it cannot be
/// started.
ExitStatus BecomePaintingProgram(std::string out, bool showHeadRange, std::string file) {
    const std::string folder =
        QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
    std::string program = folder + "/" + std::string(PaintingProgram);
    std::string outOption = "-o";
    std::string headRangeOption = "--head-range";
    std::string endOfOptions = "--";
    std::vector<char*> arguments = {program.data(), outOption.data(), out.data()};
    if (showHeadRange)
        arguments.push_back(headRangeOption.data());
    arguments.insert(arguments.end(), {endOfOptions.data(), file.data(), nullptr});
    std::signal(SIGPIPE, SIG_DFL);
    execv(program.c_str(), arguments.data());
    const int systemError = errno;
    std::signal(SIGPIPE, SIG_IGN);
    PrintMessage(ProgramName, "The plot needs " + program + ", which cannot be started: " +
                                  std::generic_category().message(systemError));
    return Failed;
}

} // namespace

ExitStatus PlotCommand(const Words& words) {
    CommandLine commandLine(
        "plot -o OUT [--head-range] FILE",
        "Computes K of a project and writes its plot: the printed page where OUT ends in\n"
        ".pdf, the plot alone where it ends in .svg or .png. No display is needed.");
    commandLine.AddOption("o", "The file to write.", "OUT");
    commandLine.AddOption("head-range",
                          "Shows 0.20 to 0.30 of the first change in head on the plot; the "
                          "printed page never does.");
    commandLine.AddArgument("FILE", "A project (.qn2) or an old input file (.in).");
    if (const auto status = commandLine.Parse(words))
        return *status;
    const Words files = commandLine.Files();
    if (files.size() != 1)
        return commandLine.ReportWrongUse("Exactly one project is needed.");
    if (commandLine.Value("o").empty())
        return commandLine.ReportWrongUse("The file to write is needed: -o OUT.");
    if (IsSameFile(commandLine.Value("o"), files.front()))
        return commandLine.ReportWrongUse("The plot needs a file of its own.");
    return BecomePaintingProgram(commandLine.Value("o"), commandLine.IsSet("head-range"),
                                 files.front());
}

} // namespace quarnel
