#include "kcompute/KText.h"

#include "kcompute/NumberToText.h"
#include "project/FixedLists.h"

#include <array>
#include <cstddef>

namespace quarnel {

namespace {

/// One centimetre in each length unit, divided out as the display of K is described.
constexpr std::array<double, 4> LengthPerCm = {1 / 2.54, 1 / 30.48, 1.0, 1.0 / 100};

bool LengthIsChosen(const ProjectState& state) {
    return !NameAt(LengthUnitNames, state.CmboKLengthUnits).empty();
}

} // namespace

float DisplayedK(const ProjectState& state, double kInCmPerSec) {
    const double lengthFactor =
        LengthIsChosen(state) ? LengthPerCm[static_cast<std::size_t>(state.CmboKLengthUnits)] : 0;
    return static_cast<float>(UnitFactorToSec(state.CmboKTimeUnits) * kInCmPerSec * lengthFactor);
}

std::string KText(const ProjectState& state, double kInCmPerSec) {
    if (!LengthIsChosen(state) || NameAt(TimeUnitNames, state.CmboKTimeUnits).empty())
        return {};
    return NumberToText(ThreeFigures, DisplayedK(state, kInCmPerSec));
}

std::string ShowComputedK(const ProjectState& state, const Computation* computation) {
    return computation != nullptr ? KText(state, computation->KInCmPerSec) : std::string();
}

std::string KUnitText(const ProjectState& state) {
    return std::string(NameAt(LengthUnitNames, state.CmboKLengthUnits)) + "/" +
           std::string(NameAt(TimeUnitNames, state.CmboKTimeUnits));
}

std::string KLine(const ProjectState& state, const Computation* computation) {
    if (computation == nullptr)
        return {};
    return "Hydraulic Conductivity: " + ShowComputedK(state, computation) + " " + KUnitText(state);
}

} // namespace quarnel
