#include "wellgeometry/WellGeometry.h"

#include "project/FixedLists.h"
#include "project/Texts.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

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

/// The place of the box `index`.
FaultPlace BoxPlace(int index) {
    FaultPlace place;
    place.kind = FaultPlace::GeometryBox;
    place.box = index;
    return place;
}

Result TakeLength(ProjectState& state, int index, const std::string& name, EnteredLength& length) {
    const std::string& text = TrimBox(state, index);
    Result result = CheckLength(text, name, state.DecimalSeparator, length.value);
    result.place = BoxPlace(index);
    if (!result.IsError())
        length.text = text;
    return result;
}

Result TakeDiameter(ProjectState& state, int index, const std::string& name,
                    EnteredDiameter& diameter) {
    const std::string& text = TrimBox(state, index);
    Result result = CheckLength(text, name, state.DecimalSeparator, diameter.value);
    result.place = BoxPlace(index);
    if (!result.IsError()) {
        diameter.text = text;
        diameter.radius = diameter.value / 2;
    }
    return result;
}

Result TakePorosity(ProjectState& state, WellDimensions& well) {
    std::string text = TrimBox(state, GeoDpor);
    if (text.empty())
        text = "0";
    const std::optional<double> percent = ParseNumber(text, state.DecimalSeparator);
    if (!percent)
        return Result::Error("Well Geometry: dpor, drained filter pack porosity, cannot be "
                             "evaluated as a number. Please re-enter.",
                             BoxPlace(GeoDpor));
    if (*percent < 0 || *percent > 100)
        return Result::Error(
            "Well Geometry: dpor, drained filter pack porosity, must be from 0 to 100 %.",
            BoxPlace(GeoDpor));
    well.dporText = text;
    well.n = *percent / 100;
    return Result::Ok();
}

Result TakeEntries(ProjectState& state, WellDimensions& well) {
    Result result = TakeLength(state, GeoH, "H", well.H);
    if (!result.IsError())
        result = TakeLength(state, GeoLw, "Lw", well.Lw);
    if (!result.IsError())
        result = TakeLength(state, GeoLe, "Le", well.Le);
    if (!result.IsError())
        result = TakeDiameter(state, GeoDw, "dw, well borehole diameter,", well.dw);
    if (!result.IsError())
        result = TakeDiameter(state, GeoDc, "dc, well casing diameter,", well.dc);
    if (!result.IsError())
        result = TakePorosity(state, well);
    return result;
}

/// Compares in single precision, so that values typed with a last digit of noise count as equal.
bool ExceedsAsSingle(double a, double b) {
    return static_cast<float>(a) > static_cast<float>(b);
}

void DeriveLengths(WellDimensions& well) {
    const double verticalFactor = UnitFactorToCm(well.verticalUnit);
    well.H.cm = well.H.value * verticalFactor;
    well.Lw.cm = well.Lw.value * verticalFactor;
    well.Le.cm = well.Le.value * verticalFactor;
    const double radialFactor = UnitFactorToCm(well.radialUnit);
    const double rw = well.dw.radius;
    const double rc = well.dc.radius;
    well.dw.radiusCm = rw * radialFactor;
    well.dc.radiusCm = rc * radialFactor;
    well.re = std::sqrt((rw * rw - rc * rc) * well.n + rc * rc);
    well.reCm = well.re * radialFactor;
    well.reText = SingleToText(well.re);
}

} // namespace

Result CompareAndDerive(WellDimensions& well) {
    Result result;
    if (ExceedsAsSingle(well.Lw.value, well.H.value))
        result = Result::Error("Well Geometry: Lw must <= H.", BoxPlace(GeoLw));
    if (ExceedsAsSingle(well.Le.value, well.Lw.value))
        result = Result::Error("Well Geometry: Le must <= Lw.", BoxPlace(GeoLe));
    if (ExceedsAsSingle(well.dc.value, well.dw.value))
        result = Result::Error("Well Geometry: dc must be <= dw, well casing diameter must be <= "
                               "well borehole diameter.",
                               BoxPlace(GeoDc));
    DeriveLengths(well);
    return result;
}

Result CheckWellGeometry(ProjectState& state, WellDimensions& well) {
    Result result = TakeEntries(state, well);
    if (result.IsError())
        return result;
    well.verticalUnit = state.WellGeoVertUnitsDDL;
    well.radialUnit = state.WellGeoRadUnitsDDL;
    return CompareAndDerive(well);
}

bool IsScreenAtWaterTable(const WellDimensions& well) {
    return static_cast<float>(well.Le.value) == static_cast<float>(well.Lw.value);
}

} // namespace quarnel
