#include "wellgeometry/WellGeometry.h"

#include "project/Texts.h"

#include <cmath>
#include <optional>

namespace quarnel {

namespace {

/// Trims the box, as every check does, and gives its text.
const std::string& TrimBox(ProjectState& state, int index) {
    std::string& text = state.WellGeoText[static_cast<std::size_t>(index)];
    text = std::string(TrimBlanks(text));
    return text;
}

/// The value of a length that must be entered and be above 0; `name` is what messages call it.
Result CheckLength(const std::string& text, const std::string& name, std::string_view separator,
                   double& value) {
    if (text.empty())
        return Result::Error("Well Geometry: " + name + " must have a value.");
    const std::optional<double> number = ParseNumber(text, separator);
    if (!number)
        return Result::Error("Well Geometry: " + name +
                             " cannot be evaluated as a number. Please re-enter.");
    if (!(*number > 0))
        return Result::Error("Well Geometry: " + name + " must be > 0.");
    value = *number;
    return Result::Ok();
}

Result TakeLength(ProjectState& state, int index, const std::string& name, EnteredLength& length) {
    const std::string& text = TrimBox(state, index);
    Result result = CheckLength(text, name, state.DecimalSeparator, length.value);
    if (!result.IsError())
        length.text = text;
    return result;
}

Result TakeDiameter(ProjectState& state, int index, const std::string& name,
                    EnteredDiameter& diameter) {
    const std::string& text = TrimBox(state, index);
    Result result = CheckLength(text, name, state.DecimalSeparator, diameter.value);
    if (!result.IsError()) {
        diameter.text = text;
        diameter.radius = diameter.value / 2;
    }
    return result;
}

Result TakePorosity(ProjectState& state, ComputedValues& computed) {
    std::string text = TrimBox(state, GeoDpor);
    if (text.empty())
        text = "0";
    const std::optional<double> percent = ParseNumber(text, state.DecimalSeparator);
    if (!percent)
        return Result::Error("Well Geometry: dpor, drained filter pack porosity, cannot be "
                             "evaluated as a number. Please re-enter.");
    if (*percent < 0 || *percent > 100)
        return Result::Error(
            "Well Geometry: dpor, drained filter pack porosity, must be from 0 to 100 %.");
    computed.dporText = text;
    computed.n = *percent / 100;
    return Result::Ok();
}

Result TakeEntries(ProjectState& state, ComputedValues& computed) {
    Result result = TakeLength(state, GeoH, "H", computed.H);
    if (!result.IsError())
        result = TakeLength(state, GeoLw, "Lw", computed.Lw);
    if (!result.IsError())
        result = TakeLength(state, GeoLe, "Le", computed.Le);
    if (!result.IsError())
        result = TakeDiameter(state, GeoDw, "dw, well borehole diameter,", computed.dw);
    if (!result.IsError())
        result = TakeDiameter(state, GeoDc, "dc, well casing diameter,", computed.dc);
    if (!result.IsError())
        result = TakePorosity(state, computed);
    return result;
}

/// Compares in single precision, so that values typed with a last digit of noise count as equal.
bool ExceedsAsSingle(double a, double b) {
    return static_cast<float>(a) > static_cast<float>(b);
}

Result CompareLengths(const ComputedValues& computed) {
    Result result;
    if (ExceedsAsSingle(computed.Lw.value, computed.H.value))
        result = Result::Error("Well Geometry: Lw must <= H.");
    if (ExceedsAsSingle(computed.Le.value, computed.Lw.value))
        result = Result::Error("Well Geometry: Le must <= Lw.");
    if (ExceedsAsSingle(computed.dc.value, computed.dw.value))
        result = Result::Error("Well Geometry: dc must be <= dw, well casing diameter must be <= "
                               "well borehole diameter.");
    return result;
}

void DeriveLengths(const ProjectState& state, ComputedValues& computed) {
    computed.verticalUnit = state.WellGeoVertUnitsDDL;
    computed.radialUnit = state.WellGeoRadUnitsDDL;
    const double verticalFactor = UnitFactorToCm(computed.verticalUnit);
    computed.H.cm = computed.H.value * verticalFactor;
    computed.Lw.cm = computed.Lw.value * verticalFactor;
    computed.Le.cm = computed.Le.value * verticalFactor;
    const double radialFactor = UnitFactorToCm(computed.radialUnit);
    const double rw = computed.dw.radius;
    const double rc = computed.dc.radius;
    computed.dw.radiusCm = rw * radialFactor;
    computed.dc.radiusCm = rc * radialFactor;
    computed.re = std::sqrt((rw * rw - rc * rc) * computed.n + rc * rc);
    computed.reCm = computed.re * radialFactor;
    computed.reText = SingleToText(computed.re);
}

} // namespace

Result CheckWellGeometry(ProjectState& state, ComputedValues& computed) {
    Result result = TakeEntries(state, computed);
    if (result.IsError())
        return result;
    result = CompareLengths(computed);
    DeriveLengths(state, computed);
    return result;
}

} // namespace quarnel
