#pragma once

#include "kcompute/Computation.h"
#include "project/ProjectState.h"

#include <string>

namespace quarnel {

/// K (cm/s) in the units chosen in `state`, rounded to single precision; 0 where no unit is
/// selected.
float DisplayedK(const ProjectState& state, double kInCmPerSec);

/// The text of any K (cm/s) in the units chosen in `state`, by the one number formatter; "" with no
/// unit selected.
std::string KText(const ProjectState& state, double kInCmPerSec);

/// The text of the computed K as its label shows it; "" without a computation or with no unit
/// selected.
std::string ShowComputedK(const ProjectState& state, const Computation* computation);

/// The chosen units of K: length unit, "/", time unit.
std::string KUnitText(const ProjectState& state);

/// "Hydraulic Conductivity: ", K in the chosen units, one blank, length unit, "/", time unit; ""
/// without a computation.
std::string KLine(const ProjectState& state, const Computation* computation);

} // namespace quarnel
