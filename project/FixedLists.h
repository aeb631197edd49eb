#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace quarnel {

// The lists that a project chooses from; a position in one is the code kept in the project file.

inline constexpr std::array<std::string_view, 4> LengthUnitNames = {"in", "ft", "cm", "m"};
inline constexpr std::array<std::string_view, 4> TimeUnitNames = {"sec", "min", "hr", "day"};
inline constexpr std::array<std::string_view, 3> DataTypeNames = {
    "D: Depth to Groundwater ", "H: Groundwater Head ", "Y: Change in Head "};
inline constexpr std::array<std::string_view, 3> DataTypeLetters = {"D", "H", "Y"};
inline constexpr std::array<std::string_view, 2> SlugTestTypeNames = {"Rising head ",
                                                                      "Falling head "};
/// The slug test type shown for readings that are changes in head already.
inline constexpr std::string_view NotApplicable = "Not Applicable";

enum LengthUnit { Inch = 0, Foot = 1, Centimetre = 2, Metre = 3 };
enum TimeUnit { Second = 0, Minute = 1, Hour = 2, Day = 3 };
enum DataType { DepthToGroundwater = 0, GroundwaterHead = 1, ChangeInHead = 2 };
enum SlugTestType { RisingHead = 0, FallingHead = 1, SlugTestTypeNotApplicable = 2 };

/// Centimetres in one length unit; 0 for a position that names no unit.
double UnitFactorToCm(int lengthUnit);
/// Seconds in one time unit; 0 for a position that names no unit.
double UnitFactorToSec(int timeUnit);
/// The name at `position` of a fixed list, "" where nothing is selected.
template <std::size_t N>
std::string_view NameAt(const std::array<std::string_view, N>& names, int position) {
    return position >= 0 && static_cast<std::size_t>(position) < N
               ? names[static_cast<std::size_t>(position)]
               : std::string_view();
}

} // namespace quarnel
