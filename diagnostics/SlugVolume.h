#pragma once

#include <optional>

namespace quarnel {

/// What the slug's volume says of the first change in head.
enum class SlugVerdict {
    Agrees,      ///< 0.9 to 1.1 of what the slug should give
    FilterPack,  ///< less, as a drained filter pack would leave it
    Unexplained, ///< less for another reason
    Larger       ///< more
};

/// The well and the first change in head. All lengths in cm, the volume in litres, above 0.
struct SlugVolumeInput {
    double volumeLitre = 0;
    double rcCm = 0;        ///< radius of the casing
    double rwCm = 0;        ///< radius of the borehole
    double firstYCm = 0;    ///< H0, the first change in head
    double interceptLn = 0; ///< of the fitted line, ln cm
    bool screenAtWaterTable = false;
};

/// The mass balance of a slug: Butler, J. J. (1998), The Design, Performance, and Analysis of Slug
/// Tests; Binkhorst, G. K. and Robbins, G. A. (1998), Conducting and interpreting slug tests in
/// monitoring wells with partially submerged screens, Ground Water 36:225.
struct SlugVolumeCheck {
    double volumeLitre = 0;
    double expectedCm = 0;            ///< H0* = V / (pi rc^2)
    double firstOverExpected = 0;     ///< H0 / H0*
    double interceptOverExpected = 0; ///< e to the intercept / H0*
    double effectiveRadiusCm = 0;     ///< of the column that H0 speaks of
    /// The filter pack's drained porosity that would explain it, a fraction that may lie outside 0
    /// to 1; nothing where borehole and casing are alike.
    std::optional<double> impliedPorosity;
    SlugVerdict verdict = SlugVerdict::Agrees;
    /// The fitted line starts well below the first reading.
    bool lineBelowFirst = false;
};

/// The verdict on a first change in head of `firstOverExpected` times what the slug should give.
SlugVerdict SlugVerdictOf(double firstOverExpected, std::optional<double> impliedPorosity,
                          bool screenAtWaterTable);

/// Compares the first change in head with the slug's volume; nothing where a number of it is not
/// finite.
std::optional<SlugVolumeCheck> CheckSlugVolume(const SlugVolumeInput& input);

} // namespace quarnel
