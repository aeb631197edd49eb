#pragma once

#include "diagnostics/SeriesLine.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace quarnel {

// Draper, N. R. and Smith, H. (1998), Applied Regression Analysis; Durbin, J. and Watson, G. S.
// (1950), Testing for serial correlation in least squares regression, Biometrika 37:409; Santer, B.
// D. et al. (2000), Statistical significance of trends and trend differences in layer-average
// atmospheric temperature time series, J. Geophys. Res. 105:7337.

/// From this many used points on there are residuals, and with them statistics.
inline constexpr std::size_t FewestPointsWithScatter = 3;
/// From this many on neighbouring residuals are compared.
inline constexpr std::size_t FewestPointsWithAutocorrelation = 6;

/// How far the used points scatter about the line.
struct FitScatter {
    double sse = 0;         ///< sum of the squared residuals
    double df = 0;          ///< degrees of freedom, m - 2
    double residualSd = 0;  ///< s
    double slopeSe = 0;     ///< 1/s
    double interceptSe = 0; ///< ln cm
    double tQuantile = 0;   ///< of 0.975 at df
    /// Half the 95 % interval of K as a part of K; nothing where the line does not fall.
    std::optional<double> halfWidth;
};

/// How alike neighbouring residuals are, and what that leaves of the interval.
struct FitAutocorrelation {
    double lag1 = 0; ///< r1
    double durbinWatson = 0;
    double effectiveCount = 0;  ///< points that would tell as much if they were independent
    double adjustedSlopeSe = 0; ///< 1/s
    double adjustedDf = 0;      ///< need not be whole
    double adjustedTQuantile = 0;
    std::optional<double> adjustedHalfWidth; ///< as `halfWidth`
};

/// What the fit says of itself.
struct FitStatistics {
    std::size_t usedCount = 0;
    double slope = 0;     ///< 1/s, the computation's
    double intercept = 0; ///< ln cm, the computation's
    double meanTimeSec = 0;
    double sxx = 0;                 ///< s2
    std::optional<double> rSquared; ///< none below 3 points or where all L are equal
    std::optional<FitScatter> scatter;
    std::optional<FitAutocorrelation> autocorrelation; ///< also none where there are no residuals
    std::vector<double>
        residuals; ///< L - (intercept + slope t) in the series' order; from 3 points
};

/// The statistics of a line that was fitted to the used points. Nothing that is not finite comes
/// back: what cannot be computed is absent.
FitStatistics ComputeFitStatistics(const Series& used, double slope, double intercept);

/// Student's t for two-sided 95 % at `df` > 0 degrees of freedom.
double TQuantile975(double df);

} // namespace quarnel
