#pragma once

#include "compare/CompareRow.h"
#include "output/Drawing.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace quarnel {

/// What the normalized plot shows of one test. The points belong to the test's row.
struct NormalizedCurve {
    std::string name;                 ///< in the legend: "No. 2, 2024-03-05, Rising head"
    int timeUnit = 0;                 ///< of the project, a position in TimeUnitNames
    std::optional<double> timeLagSec; ///< T0 = -1/slope; none where the line does not fall
    std::span<const NormalizedPoint> points;
};

/// Most tests that one picture tells apart.
inline constexpr std::size_t MostNormalizedCurves = MarkSeriesCount;

/// What stands at the tick that divides times by T0.
inline constexpr std::string_view TimeLagText = "Time of each test divided by its basic time lag";

/// The curves of `tests`, places in `rows`, whose points must outlive them. The place plus 1 is the
/// test's number.
std::vector<NormalizedCurve> NormalizedCurves(std::span<const CompareRow> rows,
                                              std::span<const std::size_t> tests);

/// Draws ln(Y/H0) of the first 12 tests against time, in the unit of the first of them, or against
/// time divided by the basic time lag, where tests whose line does not fall are left out. After
/// Hvorslev (1951), and Butler, McElwee and Liu (1996), Ground Water 34:480: the curves of one well
/// coincide where the model holds. For an area of the given size, in twips; empty without a point
/// to draw.
Drawing DrawNormalized(const std::vector<NormalizedCurve>& curves, bool divideByTimeLag,
                       double areaWidth, double areaHeight);

} // namespace quarnel
