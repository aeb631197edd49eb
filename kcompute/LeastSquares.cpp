#include "kcompute/LeastSquares.h"

#include <cmath>
#include <cstddef>

namespace quarnel {

namespace {

/// Below this ln(Y) the fitted Y is 0.
constexpr double SmallestFittedLnY = -30;

} // namespace

FittedLine FitLnYAgainstTime(const RecoveryPointList& points, const std::vector<Mark>& marks) {
    double m11 = 0;
    double m12 = 0;
    double m21 = 0;
    double m22 = 0;
    double r1 = 0;
    double r2 = 0;
    for (std::size_t k = 0; k < points.size(); ++k) {
        // An ignored point contributes nothing, even where its time times itself would overflow.
        if (marks[k] != Mark::Use)
            continue;
        const double t = points[k].timeSec;
        const double lnY = points[k].lnYCm;
        m11 += t * t;
        m12 += t;
        m21 += t;
        m22 += 1;
        r1 += t * lnY;
        r2 += lnY;
    }
    const double d = m22 - m21 * m12 / m11;
    FittedLine line;
    line.intercept = (r2 - r1 * m21 / m11) / d;
    line.slope = (r1 - m12 * line.intercept) / m11;
    return line;
}

double SlopeAboutMeanTime(const RecoveryPointList& points, const std::vector<Mark>& marks) {
    double count = 0;
    double sumTime = 0;
    double sumLnY = 0;
    for (std::size_t k = 0; k < points.size(); ++k) {
        if (marks[k] != Mark::Use)
            continue;
        count += 1;
        sumTime += points[k].timeSec;
        sumLnY += points[k].lnYCm;
    }
    const double meanTime = sumTime / count;
    const double meanLnY = sumLnY / count;
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
