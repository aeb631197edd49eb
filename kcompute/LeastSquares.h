#pragma once

#include "kcompute/UseIgnore.h"
#include "recovery/RecoveryData.h"

#include <limits>
#include <vector>

namespace quarnel {

/// A line of ln(Y in cm) against time.
struct FittedLine {
    double slope = 0;     ///< 1/s
    double intercept = 0; ///< ln(Y in cm) at time 0

    /// Whether it falls, as a recovery does; otherwise there is no line to draw.
    bool Falls() const { return slope < 0; }
};

/// What one walk over the points marked Use gathers for their line; times in s, ln of Y in cm.
struct FitSums {
    double count = 0;
    double time = 0;
    double timeSquared = 0;
    double lnY = 0;
    double timeTimesLnY = 0;
    double firstTime = std::numeric_limits<double>::infinity();
    double lastTime = -std::numeric_limits<double>::infinity();
};

/// The sums over the points marked Use, one mark a point, in their order.
FitSums SumsOfUsed(const RecoveryPointList& points, const std::vector<Mark>& marks);

/// The least-squares line of ln(Y in cm) against time (s). The order of the operations fixes the
/// rounding.
FittedLine LineOf(const FitSums& sums);

/// The same slope from times about their mean, which stays exact for times far from zero; only a
/// guard for LineOf. `sums` are those of the same points and marks. 1/s.
double SlopeAboutMeanTime(const RecoveryPointList& points, const std::vector<Mark>& marks,
                          const FitSums& sums);

/// The fitted Y at a time (s), in cm: e to the fitted ln(Y), or 0 where that is -30 or less.
double FittedYCm(const FittedLine& line, double timeSec);

} // namespace quarnel
