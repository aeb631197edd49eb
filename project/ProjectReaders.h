#pragma once

#include "project/Files.h"
#include "project/ItemReader.h"
#include "project/ProjectState.h"

#include <array>
#include <string>
#include <string_view>

namespace quarnel {

/// Reads a project file whose first line has been read and recognised: clears the project as New
/// does, which makes it a recognised one, then takes every record it knows, in any order.
/// `wholeText` is what `reader` walks through.
void ReadProjectFile(ItemReader& reader, std::string_view wholeText, ProjectState& state,
                     ReadReport& report);

/// Reads an old positional input file whose first five lines have been read and recognised: clears
/// the project as New does, fills the texts of lines 1 to 4, then takes geometry and readings.
void ReadLegacyInputFile(ItemReader& reader, const std::array<std::string_view, 5>& firstLines,
                         ProjectState& state, ReadReport& report);

} // namespace quarnel
