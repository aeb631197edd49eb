#pragma once

#include "project/ProjectState.h"

#include <string>
#include <vector>

namespace quarnel {

/// What a project says of its readings besides the rows themselves: what they are, in which units,
/// and which points are ignored. It changes together with the rows when an import replaces them.
struct ReadingSettings {
    int dataType = DepthToGroundwater;
    int slugTestType = RisingHead;
    int timeUnit = Second;
    int levelUnit = Foot;
    std::string preSlugText; ///< level unit, as typed
    std::vector<std::string> ignoreKeys;

    friend bool operator==(const ReadingSettings&, const ReadingSettings&) = default;
};

/// The settings of a project's readings.
ReadingSettings SettingsOf(const ProjectState& state);

/// Exchanges the settings of a project for others, which then hold the former ones.
void ExchangeSettings(ProjectState& state, ReadingSettings& settings) noexcept;

} // namespace quarnel
