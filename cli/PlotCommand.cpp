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
#include <utility>
#include <vector>

namespace quarnel {

namespace {

/// Painting needs Qt Gui, which this program must run without: a program of its own paints.
constexpr std::string_view PaintingProgram = "quarnel-plot";

/// Becomes the painting program with these arguments, whose exit status is then ours. Comes back
/// only where it cannot be started.
ExitStatus BecomePaintingProgram(Words arguments) {
    const std::string folder =
        QFile::encodeName(QCoreApplication::applicationDirPath()).toStdString();
    std::string program = folder + "/" + std::string(PaintingProgram);
    std::vector<char*> pointers = {program.data()};
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    std::signal(SIGPIPE, SIG_DFL);
    execv(program.c_str(), pointers.data());
    const int systemError = errno;
    std::signal(SIGPIPE, SIG_IGN);
    PrintMessage(ProgramName, "The plot needs " + program + ", which cannot be started: " +
                                  std::generic_category().message(systemError));
    return Failed;
}

} // namespace

ExitStatus PlotCommand(const Words& words) {
    CommandLine commandLine(
        "plot -o OUT [options] FILE...",
        "Computes K of a project and writes its plot: the printed page where OUT ends\n"
        "in .pdf, the plot alone where it ends in .svg or .png. With --normalized Y/H0\n"
        "of all tests of the first well named stands on one axis. No display is needed.");
    commandLine.AddOption("o", "The file to write.", "OUT");
    commandLine.AddOption("head-range",
                          "Shows 0.20 to 0.30 of the first change in head on the plot; the "
                          "printed page never does.");
    commandLine.AddOption("normalized", "Draws all tests of the first well on one axis.");
    commandLine.AddArgument("FILE", "A project (.qn2) or an old input file (.in).");
    if (const auto status = commandLine.Parse(words))
        return *status;
    const Words files = commandLine.Files();
    const bool isNormalized = commandLine.IsSet("normalized");
    if (isNormalized && files.empty())
        return commandLine.ReportWrongUse("No file is named.");
    if (!isNormalized && files.size() != 1)
        return commandLine.ReportWrongUse("Exactly one project is needed.");
    if (isNormalized && commandLine.IsSet("head-range"))
        return commandLine.ReportWrongUse("The head range is shown on the plot of one project.");
    const std::string out = commandLine.Value("o");
    if (out.empty())
        return commandLine.ReportWrongUse("The file to write is needed: -o OUT.");
    for (const std::string& file : files)
        if (IsSameFile(out, file))
            return commandLine.ReportWrongUse("The plot needs a file of its own.");
    Words arguments = {"-o", out};
    for (const char* option : {"head-range", "normalized"})
        if (commandLine.IsSet(option))
            arguments.push_back(std::string("--") + option);
    arguments.emplace_back("--");
    arguments.insert(arguments.end(), files.begin(), files.end());
    return BecomePaintingProgram(std::move(arguments));
}

} // namespace quarnel
