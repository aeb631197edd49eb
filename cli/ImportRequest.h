#pragma once

#include "cli/CommandLine.h"
#include "loggerfiles/ImportPlan.h"

#include <optional>
#include <string>
#include <vector>

namespace quarnel {

/// What the words after "import" ask for. What depends on the file (its channels, its times) is
/// kept as text until the file is read.
struct ImportRequest {
    std::string file;
    std::string out;       ///< -o; "" with --list
    std::string from;      ///< "" for a new project
    std::string barometer; ///< "" without one
    std::optional<std::string> channel;
    std::optional<std::string> start;
    std::optional<std::string> end;
    ReadOptions reading;
    ImportChoices choices; ///< all but channel, start, end and barometer
    bool listOnly = false;
    bool asJson = false;
};

/// The options of the command, for help and parsing.
void AddImportOptions(CommandLine& commandLine);

/// Takes the words into `request`. The sentence about what is wrong with them, "" when all is well.
std::string TakeImportRequest(const CommandLine& commandLine, ImportRequest& request);

} // namespace quarnel
