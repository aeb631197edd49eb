#pragma once

#include "project/ProjectState.h"
#include "project/Result.h"
#include "wellgeometry/WellDimensions.h"

namespace quarnel {

/// Checks the six texts of the well geometry one by one and stores what is accepted in `well`:
/// texts, values, cm, radii and the effective radius
///     re = sqrt((rw^2 - rc^2) n + rc^2)
/// which corrects the casing radius for the drained filter pack (Bouwer and Rice, 1976; Bouwer,
/// 1989). Each text is trimmed in `state` before it is checked; an empty porosity counts as "0".
/// The first text at fault ends the check; of the comparisons of lengths at the end the last
/// failing one is reported, with the derived values computed all the same. Status: Ok or Error.
Result CheckWellGeometry(ProjectState& state, WellDimensions& well);

/// The end of that check, for values that are set (lengths, diameters with their radii, porosity
/// and units): compares the lengths and derives those in cm and the effective radius. Status as
/// there.
Result CompareAndDerive(WellDimensions& well);

/// Whether the screen reaches up to the water table: Le and Lw are equal as entered, in single
/// precision as the check compares them.
bool IsScreenAtWaterTable(const WellDimensions& well);

} // namespace quarnel
