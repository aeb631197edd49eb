#pragma once

#include "cli/Output.h"

#include <QCommandLineParser>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// What a command hands back to the shell. Scripts rely on the numbers.
enum ExitStatus { Done = 0, Failed = 1, WrongUse = 2 };

inline constexpr std::string_view ProgramName = "quarnel-cli";

/// The words after a command's name: its options and files. They travel through Qt's parser as
/// Latin-1, one character a byte, so that a file's name arrives whatever bytes it is made of.
class CommandLine {
public:
    /// `usage` is what follows the program's name, `description` says what the command does.
    CommandLine(std::string usage, std::string_view description);

    void AddOption(std::string_view name, std::string_view description,
                   std::string_view valueName = {});
    void AddArgument(std::string_view name, std::string_view description);

    /// Takes the words. Hands back the exit status where nothing is left to do: help was asked for
    /// and printed, or the words make no sense and standard error says so.
    std::optional<ExitStatus> Parse(const std::vector<std::string>& words);

    bool IsSet(std::string_view option) const;
    std::string Value(std::string_view option) const;
    std::vector<std::string> Files() const;

    /// Tells on standard error what is wrong and how the command is used.
    ExitStatus ReportWrongUse(std::string_view fault) const;

private:
    std::string HelpText() const;

    std::string usage_;
    QCommandLineParser parser_;
};

/// Hands the rest of `output` to the system and gives `status`; a failure is told on standard error
/// and gives Failed.
ExitStatus FinishOutput(Output& output, ExitStatus status);

/// Prints `text` on standard output.
ExitStatus PrintText(std::string_view text);

} // namespace quarnel
