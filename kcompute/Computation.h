#pragma once

#include "kcompute/LeastSquares.h"
#include "kcompute/UseIgnore.h"
#include "kcompute/WorkingValues.h"
#include "project/ProjectState.h"
#include "recovery/RecoveryData.h"
#include "wellgeometry/WellDimensions.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// What one successful "Compute K/ Plot" made, and all it was made from: the texts, units and lists
/// as they stood (in `geometry` and `recovery`), the points and which of them were used, and the
/// fit. The plot, the K label, the details, the report, the page, the pictures and the terminal
/// read it and nothing else, and nobody can change it, so that no two of them can differ. Site,
/// well, titles and the units of K are not part of it: they are shown as they stand now.
struct Computation {
    WellDimensions geometry;
    BouwerRiceValues coefficients;
    RecoveryData recovery;
    std::vector<Mark> marks; ///< one for each point; the fit used those that say Use
    int usedCount = 0;
    FittedLine line;
    double KInCmPerSec = 0; ///< cm/s
};

/// A computation as it is handed around; null before the first one.
using ComputationPtr = std::shared_ptr<const Computation>;

/// Whether the project still says what `computation` was made from: the geometry, the readings and
/// what they are, and the marks (as prepared or, while nothing is prepared, as the ignore keys give
/// them). Blanks around a text make no difference, since a check takes them off.
bool IsCurrent(const Computation& computation, const ProjectState& state,
               const WorkingValues& working);

/// Whether the rows of readings still hold the texts that `computation` was made from, whatever
/// their units and marks are now.
bool AreSameReadings(const Computation& computation, const ProjectState& state);

/// The sentence that stands wherever a computation is shown that is not current.
inline constexpr std::string_view NotCurrentMessage =
    "The data have changed. Press Compute K/ Plot.";

/// The fitted Y of a point (counted from 0), entered level unit; 0 where ln(Y in cm) is -30 or
/// less.
double FittedY(const Computation& computation, std::size_t point);
/// The same as text: mode 2, "" beyond single precision.
std::string FittedYText(const Computation& computation, std::size_t point);

} // namespace quarnel
