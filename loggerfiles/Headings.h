#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace quarnel {

/// A column's heading taken apart.
struct Heading {
    std::string name;
    std::string unit; ///< "" where the heading names none
};

/// "Pressure[cm]", "Depth to water (ft)", "Druck (psi) (900001)": the unit is in the last bracket
/// that holds a known one, else in the last bracket. Without brackets a known unit behind the last
/// comma is it ("Level, m").
Heading SplitHeading(std::string_view heading);

/// "Abs Pres, kPa (LGR S/N: 1, SEN S/N: 1)": the name runs up to the last comma before the bracket,
/// the unit is behind it. A heading without such a comma is taken apart by SplitHeading.
Heading SplitCommaHeading(std::string_view heading);

/// Whether `unit` is one of temperature ("°C", "Deg C", "F").
bool IsTemperatureUnit(std::string_view unit);

/// "KEY = VALUE" or "KEY: VALUE" taken apart, both trimmed; the key is all of it where there is
/// neither sign.
std::pair<std::string_view, std::string_view> KeyAndValue(std::string_view line);

} // namespace quarnel
