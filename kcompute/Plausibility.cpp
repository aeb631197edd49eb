#include "kcompute/Plausibility.h"

#include "kcompute/FirstChange.h"
#include "project/Texts.h"
#include "recovery/RecoveryDa.h"
#include "wellgeometry/WellGeometry.h"

#include <array>
#include <charconv>
#include <string_view>
#include <vector>

namespace quarnel {

namespace {

constexpr double CmPerMetre = 100;

/// `value` with four significant digits.
std::string FourFigures(double value) {
    constexpr int DigitsBehindFirst = 3;
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                   std::chars_format::scientific, DigitsBehindFirst);
    double rounded = value;
    std::from_chars(digits.data(), end.ptr, rounded);
    return DoubleToText(rounded);
}

std::string Centimetres(double cm) {
    return FourFigures(cm) + " cm";
}
std::string Metres(double cm) {
    return FourFigures(cm / CmPerMetre) + " m";
}

void Append(std::string& sentence, std::string_view start, std::string_view part) {
    sentence += sentence.empty() ? start : ", ";
    sentence += part;
}

std::string UnusualText(const WellDimensions* well, const RecoveryPoint* first) {
    constexpr std::string_view Start = "Unusual: ";
    std::string text;
    if (well == nullptr)
        return text;
    const double casingCm = 2 * well->dc.radiusCm;
    if (first != nullptr && first->yCm > well->Lw.cm)
        Append(text, Start, "first Y larger than Lw");
    if (well->Le.cm > UnusualScreenCm)
        Append(text, Start, "screen longer than 100 m");
    if (casingCm < UnusualThinCasingCm)
        Append(text, Start, "casing under 1 cm");
    if (casingCm > UnusualWideCasingCm)
        Append(text, Start, "casing over 2 m");
    return text;
}

std::string ReadText(const WellDimensions* well, const RecoveryPoint* first) {
    constexpr std::string_view Start = "Read: ";
    std::string text;
    if (well != nullptr)
        for (const std::string& length :
             {"rw " + Centimetres(well->dw.radiusCm), "rc " + Centimetres(well->dc.radiusCm),
              "screen " + Metres(well->Le.cm) + " long", "Lw " + Metres(well->Lw.cm),
              "H " + Metres(well->H.cm)})
            Append(text, Start, length);
    if (first != nullptr)
        Append(text, Start, "first Y " + Metres(first->yCm));
    return text;
}

} // namespace

std::optional<WellDimensions> WellAsTyped(const ProjectState& state) {
    ProjectState typed;
    typed.WellGeoText = state.WellGeoText;
    typed.WellGeoVertUnitsDDL = state.WellGeoVertUnitsDDL;
    typed.WellGeoRadUnitsDDL = state.WellGeoRadUnitsDDL;
    typed.DecimalSeparator = state.DecimalSeparator;
    WellDimensions well;
    return CheckWellGeometry(typed, well).IsError() ? std::nullopt : std::optional(well);
}

RecoveryPointList ReadingsAsTyped(const ProjectState& state) {
    ProjectState typed = state;
    RecoveryData readings;
    if (CheckRecoveryData(typed, readings).IsError() || ComputeRecoveryY(readings).IsError())
        return {};
    return *readings.RecoveryPoints;
}

std::string CheckedText(const std::optional<WellDimensions>& well,
                        const RecoveryPointList& points) {
    const WellDimensions* read = well ? &*well : nullptr;
    const RecoveryPoint* first = FirstValidPoint(points);
    const std::string unusual = UnusualText(read, first);
    return (unusual.empty() ? "" : unusual + ". ") + ReadText(read, first);
}

} // namespace quarnel
