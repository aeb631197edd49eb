#pragma once

#include "loggerfiles/Rounding.h"
#include "project/GlobalDeclar.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>

namespace quarnel {

/// Units of a logger's readings: lengths and pressures.
enum class WaterUnit {
    Inch,
    Foot,
    Centimetre,
    Metre,
    Millimetre,
    Kilopascal,
    Hectopascal,
    Millibar,
    Bar,
    Psi,
    MillimetreOfMercury,
    InchOfMercury,
    Atmosphere,
    CentimetreOfWater,
    MetreOfWater,
    FootOfWater,
    InchOfWater
};

inline constexpr int WaterUnitCount = 17;

/// The names offered to the user ("in", "ft", "cm", "m", "mm", "kPa", ... "inH2O"), by WaterUnit.
extern const std::array<std::string_view, WaterUnitCount> WaterUnitNames;

/// The unit that a file's or a user's spelling stands for: case, blanks, dots and brackets do not
/// count ("Feet", "mm Hg", "cm H2O", "metres").
std::optional<WaterUnit> KnownWaterUnit(std::string_view spelling);

/// Length of water, in metres, of one `unit`: pressures as water columns at 1000 kg/m3 and
/// g = 9.80665 m/s2.
double MetresOfWater(WaterUnit unit);

/// Whether `unit` is one of pressure.
bool IsPressureUnit(WaterUnit unit);

/// The unit that readings in `unit` are written in unless the user chooses.
LengthUnit WrittenUnit(WaterUnit unit);

/// Metres in one `unit`.
double MetresOfLength(LengthUnit unit);

/// `reading` in `from` as a length in `to`, not rounded.
double ConvertReading(double reading, WaterUnit from, LengthUnit to);

/// "The unit 'TEXT' is not known. Please choose the unit of the readings."
std::string UnknownUnitMessage(std::string_view text);

} // namespace quarnel
