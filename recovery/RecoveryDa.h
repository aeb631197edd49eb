#pragma once

#include "project/ProjectState.h"
#include "project/Result.h"
#include "recovery/RecoveryData.h"

#include <string>
#include <string_view>

namespace quarnel {

/// Checks the pre-slug condition and every row of the recovery grid that is not blank, and makes
/// `data.RecoveryPoints` anew from them. Texts are trimmed in `state` before they are checked,
/// and stay trimmed when a check fails. Error: the first fault's message, and no points.
Result CheckRecoveryData(ProjectState& state, RecoveryData& data);

/// Computes for every point Y, the change in head (entered level unit), its logarithms, time in s
/// and Y in cm, then the bounds of the plot. Warning: at least one Y is not above 0; all points are
/// computed all the same.
Result ComputeRecoveryY(RecoveryData& data);

/// Y as the grids show it: rounded to single precision, at most 7 digits, a leading blank for
/// values from 0 on and "-" below; "" beyond single precision.
std::string YText(const RecoveryPoint& point);

/// +1 or -1: what turns (reading - pre-slug reading) into the change in head.
double YSign(int dataType, int slugTestType);

// ---- Headings and labels that follow the lists -------------------------------------------------

/// "Sample", line break, " Number".
std::string SampleHeading();
/// "Time", line break, "(sec)".
std::string TimeHeading(int timeUnit);
/// "Recovery", line break, "D   (ft)".
std::string RecoveryHeading(int dataType, int levelUnit);
/// Blank, line break, "Y   (ft)".
std::string YHeading(int levelUnit);
/// The label of the pre-slug box: the data type and unit, or "Not Applicable" for changes in head.
std::string PreSlugLabel(int dataType, int levelUnit);

} // namespace quarnel
