#pragma once

#include "kcompute/UseIgnore.h"
#include "recovery/RecoveryData.h"

#include <vector>

namespace quarnel {

/// A line of ln(Y in cm) against time.
struct FittedLine {
    double slope = 0;     ///< 1/s
    double intercept = 0; ///< ln(Y in cm) at time 0

    /// Whether it falls, as a recovery does; otherwise there is no line to draw.
    bool Falls() const { return slope < 0; }
};

/// The least-squares line of ln(Y in cm) against time (s) over the points marked Use, one mark a
/// point. The order of the operations fixes the rounding.
FittedLine FitLnYAgainstTime(const RecoveryPointList& points, const std::vector<Mark>& marks);

/// The same slope from times about their mean, which stays exact for times far from zero; only a
/// guard for FitLnYAgainstTime. 1/s.
double SlopeAboutMeanTime(const RecoveryPointList& points, const std::vector<Mark>& marks);

/// The fitted Y at a time (s), in cm: e to the fitted ln(Y), or 0 where that is -30 or less.
double FittedYCm(const FittedLine& line, double timeSec);

} // namespace quarnel
