#include "diagnostics/SeriesLine.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quarnel {

namespace {

double MeanOf(std::span<const double> values) {
    double sum = 0;
    for (const double value : values)
        sum += value;
    return sum / static_cast<double>(values.size());
}

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
    line.meanTimeSec = MeanOf(series.timeSec);
    const double meanL = MeanOf(series.lnYCm);
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
    const double greatest = GreatestSize(series.lnYCm);
    line.sse = SumOfSquaredResiduals(series, line.meanTimeSec, meanL, line.slope);
    line.sse = WithoutRounding(line.sse, line.pointCount, greatest);
    line.syy = WithoutRounding(line.syy, line.pointCount, greatest);
    return line;
}

std::optional<double> RSquaredOf(const SeriesLine& line) {
    if (line.pointCount < 3 || !(line.syy > 0))
        return std::nullopt;
    return 1 - line.sse / line.syy;
}

} // namespace quarnel
