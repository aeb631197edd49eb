#pragma once

#include "compare/CompareStatistics.h"

#include <optional>
#include <string>
#include <string_view>

namespace quarnel {

/// K in a unit as a text that carries K in cm/s to the last bit: neighbouring K in cm/s can become
/// one and the same number in another unit, and rows of several files are put into one unit from
/// the cm/s. Mostly these are the shortest digits of the number; where several K in cm/s share it,
/// 19 digits that read as the same number, the last of which say which K it was.
std::string CarriedKText(double kCmPerSec, const CompareUnit& unit);

/// K (cm/s) out of such a text; nothing where it is no number.
std::optional<double> CarriedK(std::string_view text, const CompareUnit& unit);

} // namespace quarnel
