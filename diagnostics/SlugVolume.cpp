#include "diagnostics/SlugVolume.h"

#include <cmath>
#include <numbers>

namespace quarnel {

namespace {

constexpr double CubicCmPerLitre = 1000;
constexpr double LeastAgreeing = 0.9;
constexpr double GreatestAgreeing = 1.1;
/// No filter pack drains more of its volume.
constexpr double GreatestPorosity = 0.45;
/// A line that starts below this part of the first reading leaves the early readings above it.
constexpr double LineBelowFirstPart = 0.9;

} // namespace

SlugVerdict SlugVerdictOf(double firstOverExpected, std::optional<double> impliedPorosity,
                          bool screenAtWaterTable) {
    if (firstOverExpected > GreatestAgreeing)
        return SlugVerdict::Larger;
    if (firstOverExpected >= LeastAgreeing)
        return SlugVerdict::Agrees;
    const double porosity = impliedPorosity.value_or(0);
    return screenAtWaterTable && porosity > 0 && porosity <= GreatestPorosity
               ? SlugVerdict::FilterPack
               : SlugVerdict::Unexplained;
}

std::optional<SlugVolumeCheck> CheckSlugVolume(const SlugVolumeInput& input) {
    const double volume = CubicCmPerLitre * input.volumeLitre;
    const double rc2 = input.rcCm * input.rcCm;
    const double rw2 = input.rwCm * input.rwCm;
    SlugVolumeCheck check;
    check.volumeLitre = input.volumeLitre;
    check.expectedCm = volume / (std::numbers::pi * rc2);
    check.firstOverExpected = input.firstYCm / check.expectedCm;
    check.interceptOverExpected = std::exp(input.interceptLn) / check.expectedCm;
    check.effectiveRadiusCm = std::sqrt(volume / (std::numbers::pi * input.firstYCm));
    for (const double value : {check.expectedCm, check.firstOverExpected,
                               check.interceptOverExpected, check.effectiveRadiusCm})
        if (!std::isfinite(value))
            return std::nullopt;
    const double porosity = (check.effectiveRadiusCm * check.effectiveRadiusCm - rc2) / (rw2 - rc2);
    if (input.rwCm != input.rcCm && std::isfinite(porosity))
        check.impliedPorosity = porosity;
    check.verdict =
        SlugVerdictOf(check.firstOverExpected, check.impliedPorosity, input.screenAtWaterTable);
    check.lineBelowFirst =
        check.interceptOverExpected < LineBelowFirstPart * check.firstOverExpected;
    return check;
}

} // namespace quarnel
