#include "kcompute/LeastSquares.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace quarnel {

namespace {

/// Below this ln(Y) the fitted Y is 0.
constexpr double SmallestFittedLnY = -30;

} // namespace

FitSums SumsOfUsed(const RecoveryPointList& points, const std::vector<Mark>& marks) {
    FitSums sums;
    for (std::size_t k = 0; k < points.size(); ++k) {
        // An ignored point contributes nothing, even where its time times itself would overflow.
        if (marks[k] != Mark::Use)
            continue;
        const double t = points[k].timeSec;
        const double lnY = points[k].lnYCm;
        sums.count += 1;
        sums.time += t;
        sums.timeSquared += t * t;
        sums.lnY += lnY;
        sums.timeTimesLnY += t * lnY;
        sums.firstTime = std::min(sums.firstTime, t);
        sums.lastTime = std::max(sums.lastTime, t);
    }
    return sums;
}

FittedLine LineOf(const FitSums& sums) {
    const double d = sums.count - sums.time * sums.time / sums.timeSquared;
    FittedLine line;
    line.intercept = (sums.lnY - sums.timeTimesLnY * sums.time / sums.timeSquared) / d;
    line.slope = (sums.timeTimesLnY - sums.time * line.intercept) / sums.timeSquared;
    return line;
}

double SlopeAboutMeanTime(const RecoveryPointList& points, const std::vector<Mark>& marks,
                          const FitSums& sums) {
    const double meanTime = sums.time / sums.count;
    const double meanLnY = sums.lnY / sums.count;
    double spread = 0;
    double product = 0;
    for (std::size_t k = 0; k < points.size(); ++k) {
        if (marks[k] != Mark::Use)
            continue;
        const double t = points[k].timeSec - meanTime;
        spread += t * t;
        product += t * (points[k].lnYCm - meanLnY);
    }
    return product / spread;
}

double FittedYCm(const FittedLine& line, double timeSec) {
    const double lnY = line.slope * timeSec + line.intercept;
    return lnY > SmallestFittedLnY ? std::exp(lnY) : 0;
}

} // namespace quarnel
