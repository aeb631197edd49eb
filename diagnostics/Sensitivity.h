#pragma once

#include "diagnostics/FitStatistics.h"
#include "diagnostics/HeadWindows.h"
#include "diagnostics/TestSeries.h"
#include "kcompute/Computation.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace quarnel {

/// What is changed, one at a time.
enum class SensitivityInput {
    H,
    Lw,
    Le,
    Dw,
    Dc,
    Porosity,    ///< drained porosity of the filter pack
    StaticLevel, ///< every Y less and more; for changes in head all readings
    LeftOut,     ///< one used point left out
    LnCap,       ///< ln((H - Lw)/rw) held at 6
    Anisotropy,  ///< Kz/Kr (Zlotnik 1994, Ground Water 32:761)
    HeadWindow   ///< other points
};

/// The effective upper limit of ln((H - Lw)/rw) that Bouwer and Rice (1976) found.
inline constexpr double GreatestLnBelowWell = 6;

inline constexpr double DefaultSensitivityPercent = 10;
inline constexpr double LeastSensitivityPercent = 1;
inline constexpr double GreatestSensitivityPercent = 50;

/// K with one thing changed and nothing else.
struct SensitivityEntry {
    SensitivityInput input = SensitivityInput::H;
    /// By input: percent for H to Dc, the porosity in %, cm for the static level, the point's
    /// number from 1, 6 for the cap, Kz/Kr, or the row of the head windows.
    double change = 0;
    std::optional<double> kCmPerSec;     ///< none: the changed well or fit fails its checks
    std::optional<double> changePercent; ///< from the computation's K
};

/// One row of the table: the entries of one input, in their order.
struct SensitivityRow {
    SensitivityInput input = SensitivityInput::H;
    std::vector<SensitivityEntry> entries;
    std::optional<double> leastPercent, greatestPercent; ///< of the changes; none of dashes alone
};

/// The page "What Moves K".
struct SensitivityPage {
    double percent = DefaultSensitivityPercent;
    /// In the order of the inputs, without the head windows.
    std::vector<SensitivityEntry> entries;
    /// Sorted by the greater change, those with the head windows among them.
    std::vector<SensitivityRow> rows;
};

/// Recomputes K by the program's own routines with each thing changed in turn; lengths and
/// diameters by `percent` (0 to 50) less and more. `fit` holds the statistics of the
/// computation's fit, `staticLevel` the StaticLevelEntries.
SensitivityPage ComputeSensitivity(const Computation& computation, const TestSeries& series,
                                   const FitStatistics& fit,
                                   const std::vector<HeadWindowRow>& windows,
                                   const std::vector<SensitivityEntry>& staticLevel,
                                   double percent);

/// The two entries of the static level alone.
std::vector<SensitivityEntry> StaticLevelEntries(const Computation& computation,
                                                 const TestSeries& series);

/// What the static level is moved by, in cm: 0.01 ft or 1 cm, by the entered level unit.
double StaticLevelStepCm(const Computation& computation);

/// Whether ln((H - Lw)/rw) is beyond 6, the effective upper limit of Bouwer and Rice (1976).
bool LnCapApplies(const WellDimensions& well);
/// ln((H - Lw)/rw); the well must end 0.001 cm or more above the impervious bottom.
double LnBelowWell(const WellDimensions& well);
/// Whether the well ends 0.001 cm or more above the impervious bottom.
bool EndsAboveBottom(const WellDimensions& well);

/// K (cm/s) as for the computation's well and slope, but with ln((H - Lw)/rw) held at 6, as a fully
/// penetrating well, or with another porosity (%). Nothing where a check fails.
std::optional<double> KWithLnCap(const Computation& computation);
std::optional<double> KAsFullyPenetrating(const Computation& computation);
std::optional<double> KWithPorosity(const Computation& computation, double percent);

} // namespace quarnel
