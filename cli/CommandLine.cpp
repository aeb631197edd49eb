#include "cli/CommandLine.h"

#include <unistd.h>
#include <utility>

namespace quarnel {

namespace {

QString FromBytes(std::string_view bytes) {
    return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

std::string ToBytes(const QString& text) {
    return text.toLatin1().toStdString();
}

} // namespace

CommandLine::CommandLine(std::string usage, std::string_view description)
    : usage_(std::move(usage)) {
    parser_.setApplicationDescription(FromBytes(description));
    parser_.addOption({{FromBytes("h"), FromBytes("help")}, FromBytes("Shows this help.")});
}

void CommandLine::AddOption(std::string_view name, std::string_view description,
                            std::string_view valueName) {
    parser_.addOption({FromBytes(name), FromBytes(description), FromBytes(valueName)});
}

void CommandLine::AddArgument(std::string_view name, std::string_view description) {
    parser_.addPositionalArgument(FromBytes(name), FromBytes(description));
}

std::optional<ExitStatus> CommandLine::Parse(const std::vector<std::string>& words) {
    QStringList arguments{FromBytes(ProgramName)};
    for (const std::string& word : words)
        arguments.append(FromBytes(word));
    if (!parser_.parse(arguments))
        return ReportWrongUse(ToBytes(parser_.errorText()));
    if (IsSet("help"))
        return PrintText(HelpText());
    return std::nullopt;
}

bool CommandLine::IsSet(std::string_view option) const {
    return parser_.isSet(FromBytes(option));
}

std::string CommandLine::Value(std::string_view option) const {
    return ToBytes(parser_.value(FromBytes(option)));
}

std::vector<std::string> CommandLine::Files() const {
    std::vector<std::string> files;
    for (const QString& file : parser_.positionalArguments())
        files.push_back(ToBytes(file));
    return files;
}

/// Qt's help with our first line: its own names the program by its whole path, before the command.
std::string CommandLine::HelpText() const {
    const std::string text = ToBytes(parser_.helpText());
    return "Usage: " + std::string(ProgramName) + " " + usage_ + "\n\n" +
           text.substr(text.find('\n') + 1);
}

ExitStatus CommandLine::ReportWrongUse(std::string_view fault) const {
    PrintMessage(ProgramName, fault);
    PrintMessage("Usage", std::string(ProgramName) + " " + usage_);
    return WrongUse;
}

ExitStatus FinishOutput(Output& output, ExitStatus status) {
    if (output.Flush())
        return status;
    PrintMessage(ProgramName, "Standard output cannot be written: " + output.FailureText());
    return Failed;
}

ExitStatus PrintText(std::string_view text) {
    Output output(STDOUT_FILENO);
    output.Write(text);
    return FinishOutput(output, Done);
}

} // namespace quarnel
