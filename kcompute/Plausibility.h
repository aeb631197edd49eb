#pragma once

#include "project/ProjectState.h"
#include "recovery/RecoveryData.h"
#include "wellgeometry/WellDimensions.h"

#include <optional>
#include <string>

namespace quarnel {

/// Beyond these limits a length is more likely one in a wrong unit; the program's own, from no
/// paper.
inline constexpr double UnusualScreenCm = 100 * 100.0;
inline constexpr double UnusualThinCasingCm = 1;
inline constexpr double UnusualWideCasingCm = 2 * 100.0;

/// The well as the next check would accept it; nothing where it would find a fault. The texts stay
/// as they are.
std::optional<WellDimensions> WellAsTyped(const ProjectState& state);

/// The points that the readings would give at their next check; none where it would find a fault.
/// The texts stay as they are.
RecoveryPointList ReadingsAsTyped(const ProjectState& state);

/// What a check has read, in metric units, so that a unit chosen by mistake is seen: "Read: rw
/// 0.3175 cm, rc 0.1626 cm, screen 1.52 m long, Lw 20.11 m, H 50.6 m, first Y 0.663 m". Where there
/// is no well or no Y above 0 in `points` it is left out; "" without both. What lies beyond the
/// limits, and a first Y (the first in time) larger than Lw, comes first: "Unusual: casing under 1
/// cm. Read: ...". Lengths have four significant digits.
std::string CheckedText(const std::optional<WellDimensions>& well, const RecoveryPointList& points);

} // namespace quarnel
