#include "diagnostics/FitStatistics.h"

#include <algorithm>
#include <array>
#include <boost/math/distributions/students_t.hpp>
#include <cmath>

namespace quarnel {

namespace {

/// r1 beyond this would leave less than a two-hundredth of the points.
constexpr double GreatestLag1 = 0.99;
/// Quantiles below this many degrees of freedom are kept once they are known.
constexpr std::size_t KeptQuantiles = 256;

double SumOfSquares(const std::vector<double>& values) {
    double sum = 0;
    for (const double value : values)
        sum += value * value;
    return sum;
}

std::optional<double> HalfWidth(double tQuantile, double slopeSe, double slope) {
    const double halfWidth = tQuantile * slopeSe / std::fabs(slope);
    return slope < 0 && std::isfinite(halfWidth) ? std::optional<double>(halfWidth) : std::nullopt;
}

std::optional<FitScatter> ScatterOf(const FitStatistics& statistics, double sse) {
    const auto m = static_cast<double>(statistics.usedCount);
    const double tm = statistics.meanTimeSec;
    FitScatter scatter;
    scatter.sse = sse;
    scatter.df = m - 2;
    scatter.residualSd = std::sqrt(sse / scatter.df);
    scatter.slopeSe = scatter.residualSd / std::sqrt(statistics.sxx);
    scatter.interceptSe = scatter.residualSd * std::sqrt(1 / m + tm * tm / statistics.sxx);
    if (!std::isfinite(scatter.slopeSe) || !std::isfinite(scatter.interceptSe))
        return std::nullopt;
    scatter.tQuantile = TQuantile975(scatter.df);
    scatter.halfWidth = HalfWidth(scatter.tQuantile, scatter.slopeSe, statistics.slope);
    return scatter;
}

FitAutocorrelation AutocorrelationOf(const FitStatistics& statistics, const FitScatter& scatter) {
    const std::vector<double>& e = statistics.residuals;
    double products = 0;
    double steps = 0;
    for (std::size_t i = 0; i + 1 < e.size(); ++i) {
        products += e[i] * e[i + 1];
        steps += (e[i + 1] - e[i]) * (e[i + 1] - e[i]);
    }
    FitAutocorrelation alike;
    alike.lag1 = products / scatter.sse;
    alike.durbinWatson = steps / scatter.sse;
    const double r = std::min(std::max(alike.lag1, 0.0), GreatestLag1);
    alike.effectiveCount = static_cast<double>(e.size()) * (1 - r) / (1 + r);
    alike.adjustedSlopeSe = scatter.slopeSe * std::sqrt((1 + r) / (1 - r));
    alike.adjustedDf = std::max(alike.effectiveCount - 2, 1.0);
    alike.adjustedTQuantile = TQuantile975(alike.adjustedDf);
    alike.adjustedHalfWidth =
        HalfWidth(alike.adjustedTQuantile, alike.adjustedSlopeSe, statistics.slope);
    return alike;
}

/// The residuals about the computation's own line and what follows from them.
void AddScatter(const Series& used, FitStatistics& statistics, double syy) {
    statistics.residuals.reserve(used.Size());
    for (std::size_t i = 0; i < used.Size(); ++i)
        statistics.residuals.push_back(used.lnYCm[i] -
                                       (statistics.intercept + statistics.slope * used.timeSec[i]));
    const double sse =
        WithoutRounding(SumOfSquares(statistics.residuals), used.Size(), GreatestSize(used.lnYCm));
    if (!std::isfinite(sse))
        return;
    if (syy > 0)
        statistics.rSquared = RSquaredOfSums(sse, syy);
    statistics.scatter = ScatterOf(statistics, sse);
    if (statistics.scatter && sse > 0 && used.Size() >= FewestPointsWithAutocorrelation)
        statistics.autocorrelation = AutocorrelationOf(statistics, *statistics.scatter);
}

} // namespace

double TQuantile975(double df) {
    // Whole ones come back with nearly every project, and each takes longer than the fit itself.
    thread_local std::array<double, KeptQuantiles> kept{};
    const auto quantile = [df] {
        return boost::math::quantile(boost::math::students_t(df), 0.975);
    };
    if (!(df >= 1 && df < static_cast<double>(KeptQuantiles)) || df != std::floor(df))
        return quantile();
    double& whole = kept[static_cast<std::size_t>(df)];
    if (whole == 0)
        whole = quantile();
    return whole;
}

FitStatistics ComputeFitStatistics(const Series& used, double slope, double intercept) {
    FitStatistics statistics;
    statistics.usedCount = used.Size();
    statistics.slope = slope;
    statistics.intercept = intercept;
    const std::optional<SeriesLine> line = LineThrough(used);
    if (!line)
        return statistics;
    statistics.meanTimeSec = line->meanTimeSec;
    statistics.sxx = line->sxx;
    if (used.Size() >= FewestPointsWithScatter)
        AddScatter(used, statistics, line->syy);
    return statistics;
}

} // namespace quarnel
