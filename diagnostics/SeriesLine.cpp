#include "diagnostics/SeriesLine.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quarnel {

namespace {

/// Mean time and level, and the greatest size of a level, in one pass.
struct Means {
    double timeSec = 0;
    double lnYCm = 0;
    double greatest = 0;

    explicit Means(const Series& series) {
        for (std::size_t i = 0; i < series.Size(); ++i) {
            timeSec += series.timeSec[i];
            lnYCm += series.lnYCm[i];
            greatest = std::max(greatest, std::fabs(series.lnYCm[i]));
        }
        timeSec /= static_cast<double>(series.Size());
        lnYCm /= static_cast<double>(series.Size());
    }
};

double SumOfSquaredResiduals(const Series& series, double meanTime, double meanL, double slope) {
    double sum = 0;
    for (std::size_t i = 0; i < series.Size(); ++i) {
        const double e = (series.lnYCm[i] - meanL) - slope * (series.timeSec[i] - meanTime);
        sum += e * e;
    }
    return sum;
}

} // namespace

double GreatestSize(std::span<const double> lnYCm) {
    double greatest = 0;
    for (const double value : lnYCm)
        greatest = std::max(greatest, std::fabs(value));
    return greatest;
}

double WithoutRounding(double sumOfSquares, std::size_t count, double greatestL) {
    const double rounding = 4 * std::numeric_limits<double>::epsilon() * greatestL;
    return sumOfSquares < static_cast<double>(count) * rounding * rounding ? 0 : sumOfSquares;
}

std::optional<SeriesLine> LineThrough(const Series& series) {
    if (!series.HasTwoTimes())
        return std::nullopt;
    SeriesLine line;
    line.pointCount = series.Size();
    const Means means(series);
    line.meanTimeSec = means.timeSec;
    const double meanL = means.lnYCm;
    double product = 0;
    for (std::size_t i = 0; i < series.Size(); ++i) {
        const double t = series.timeSec[i] - line.meanTimeSec;
        const double l = series.lnYCm[i] - meanL;
        line.sxx += t * t;
        line.syy += l * l;
        product += t * l;
    }
    line.slope = product / line.sxx;
    line.intercept = meanL - line.slope * line.meanTimeSec;
    if (!std::isfinite(line.slope) || !std::isfinite(line.intercept) || !std::isfinite(line.sxx))
        return std::nullopt;
    line.sse = SumOfSquaredResiduals(series, line.meanTimeSec, meanL, line.slope);
    line.sse = WithoutRounding(line.sse, line.pointCount, means.greatest);
    line.syy = WithoutRounding(line.syy, line.pointCount, means.greatest);
    return line;
}

double RSquaredOfSums(double sse, double syy) {
    const double rSquared = 1 - sse / syy;
    return rSquared == 1 && sse > 0 ? std::nextafter(1.0, 0.0) : rSquared;
}

std::optional<double> RSquaredOf(const SeriesLine& line) {
    if (line.pointCount < 3 || !(line.syy > 0))
        return std::nullopt;
    return RSquaredOfSums(line.sse, line.syy);
}

} // namespace quarnel
