#include "kcompute/KText.h"

#include "kcompute/NumberToText.h"
#include "project/FixedLists.h"

#include <cstddef>

namespace quarnel {

namespace {

bool LengthIsChosen(const ProjectState& state) {
    return !NameAt(LengthUnitNames, state.CmboKLengthUnits).empty();
}

} // namespace

float DisplayedK(const ProjectState& state, double kInCmPerSec) {
    // One centimetre in the length unit, divided out first as the display of K is described.
    const double lengthFactor =
        LengthIsChosen(state) ? 1 / UnitFactorToCm(state.CmboKLengthUnits) : 0;
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
