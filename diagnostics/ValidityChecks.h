#pragma once

#include "diagnostics/HeadWindows.h"
#include "diagnostics/Sensitivity.h"
#include "diagnostics/TestSeries.h"
#include "kcompute/Computation.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace quarnel {

// Bouwer, H. and Rice, R. C. (1976), Water Resour. Res. 12:423; Bouwer, H. (1989), Ground Water
// 27:304; Springer, R. K. and Gelhar, L. W. (1991), USGS WRI 91-4034; Butler, J. J. (1998); ASTM
// D5912. Limits that no paper gives are our own.

/// The checks in the order of their list.
enum class CheckId {
    LeRwEnd,       ///< the curves end at this Le/rw
    LeRwLow,       ///< the curves are steep here
    LnCap,         ///< ln((H - Lw)/rw) beyond 6
    NearFull,      ///< just above the impervious bottom
    Accuracy,      ///< what the method itself claims
    DporSubmerged, ///< porosity entered for a pack that stays full
    DporMissing,   ///< no porosity entered for one that may drain
    H0Screen,      ///< first change in head large against the screen
    H0Wetted,      ///< the wetted length changes
    H0Steps,       ///< first change in head small against the reading step
    Oscillation,   ///< underdamped
    Short,         ///< over before the early part could be read
    CurvedUp,
    CurvedDown,
    NotRecovered,
    Tail, ///< used readings near the static level
    TimeOrder,
    TimeEqual,
    FewPoints
};

enum class CheckLevel { Note, Caution };

/// A check that fires.
struct CheckFinding {
    CheckId id = CheckId::Accuracy;
    CheckLevel level = CheckLevel::Note;
    double value = 0;                    ///< the quantity that was compared
    std::optional<double> kCmPerSec;     ///< the K that the text names
    std::optional<double> changePercent; ///< the change that it names
    std::size_t count = 0;               ///< the readings that it names
};

/// The name of a check in files: "LE_RW_END".
std::string_view CheckName(CheckId id);

/// The two windows whose K tell whether the points lie on a curve.
struct CurvatureWindows {
    HeadWindowRow early; ///< Row100To030
    HeadWindowRow late;  ///< Row030To020
};

/// All checks that fire, in their order. `staticLevel` are the two entries of the static level; it
/// is looked at only where HasUsedTail.
std::vector<CheckFinding> ComputeChecks(const Computation& computation, const TestSeries& series,
                                        const CurvatureWindows& windows,
                                        const std::vector<SensitivityEntry>& staticLevel,
                                        std::optional<double> readingStepCm);

// ---- The rules alone, each on the quantities it compares ----------------------------------------

bool IsLeRwAtEnd(double leOverRw);
bool IsLeRwLow(double leOverRw);
bool IsLnBeyondCap(double lnBelow);
bool IsNearFull(double hMinusLwCm, double rwCm);
bool IsLargeAgainstScreen(double firstYCm, double leCm);
bool ChangesWettedLength(double firstYCm, double leCm);
bool IsFewSteps(double firstYCm, double stepCm);
bool IsCurvedUp(double ratioOfK);
bool IsCurvedDown(double ratioOfK);
bool IsFewPoints(std::size_t usedCount);
/// Whether the level is within the last 5 % of the first change in head.
bool IsInTail(double y, double firstY);
/// The same of any point that entered the fit.
bool HasUsedTail(const TestSeries& series);
/// Whether a recovery that fell to 0.30 in `seconds` with `validCount` readings was too short.
bool IsShort(double seconds, std::size_t validCount);
/// Whether after a Y > 0 three or more readings in a row lie below -0.05 H0; Y in order of time.
bool IsOscillating(std::span<const double> y, double firstY);

} // namespace quarnel
