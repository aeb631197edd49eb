#pragma once

#include "loggerfiles/ImportPlan.h"

#include <string>
#include <vector>

namespace quarnel {

inline constexpr std::string_view NoStartMessage =
    "No start of the test was found. Please click the first reading after the slug.";
inline constexpr std::string_view EndBeforeStartMessage = "The end lies before the start.";

/// The rows that are left out, one sentence each, "and k more rows" after the twentieth.
std::vector<std::string> LeftOutMessages(const LeftOutRows& rows);

/// Everything that is told of a plan whose other members are worked out.
std::vector<std::string> MessagesOf(const ImportPlan& plan);

/// What an import that was carried out has done, for the status bar: which channel, how many
/// readings of how many, time zero, and the static level from how many readings.
std::string ImportedText(const ImportPlan& plan);

} // namespace quarnel
