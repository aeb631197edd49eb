#include "kcompute/KComputations.h"

#include "kcompute/NumberToText.h"
#include "kcompute/UseIgnore.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace quarnel {

namespace {

constexpr std::string_view TooFewPoints =
    "Less than 2 valid (Y>0) data points have been selected (Use) for parameter estimation. "
    "Hydraulic conductivity cannot be estimated.";
constexpr std::string_view SameTime = "All points selected (Use) have the same time. Hydraulic "
                                      "conductivity cannot be estimated.";
constexpr std::string_view TimesTooLarge =
    "The times of the points selected (Use) are too large for their spread. Please enter the time "
    "since the start of the test.";
constexpr std::string_view Overflow = "Overflow. Hydraulic conductivity cannot be estimated.";

/// The described sums may differ from the sums about the mean time by this part of the slope.
constexpr double SlopeTolerance = 1e-4;
/// A line that falls or rises by less than this in ln(Y) over the used times counts as level.
constexpr double LevelLine = 1e-9;
/// Below this ln(Y) the fitted Y is 0.
constexpr double SmallestFittedLnY = -30;

constexpr std::array<double, 4> LengthPerCm = {1 / 2.54, 1 / 30.48, 1.0, 1.0 / 100};

/// First and last time (s) of the used points.
struct TimeSpan {
    double first = std::numeric_limits<double>::infinity();
    double last = -std::numeric_limits<double>::infinity();
};

TimeSpan UsedTimes(const RecoveryPointList& points) {
    TimeSpan span;
    for (const RecoveryPoint& point : points) {
        if (point.weight > 0) {
            span.first = std::min(span.first, point.timeSec);
            span.last = std::max(span.last, point.timeSec);
        }
    }
    return span;
}

/// Whether the described sums lost the slope because the times lie far from zero for their spread.
bool SlopeIsLost(const RecoveryPointList& points, double slope, const TimeSpan& span) {
    const double guard = SlopeAboutMeanTime(points);
    if (!std::isfinite(guard) || !(std::fabs(guard) * (span.last - span.first) > LevelLine))
        return false;
    return !(std::fabs(slope - guard) <= SlopeTolerance * std::fabs(guard));
}

} // namespace

Result CheckFitSelection(ProjectState& state, ComputedValues& computed) {
    RecoveryPointList& points = *computed.RecoveryPoints;
    state.IgnoreKeyList.clear();
    computed.usedCount = 0;
    for (std::size_t k = 0; k < points.size(); ++k) {
        RecoveryPoint& point = points[k];
        CellText& criterion = computed.Criteria[k];
        const bool positive = point.y > 0 && point.yCm > 0;
        if (!positive)
            criterion = CellText(IgnoreMark);
        point.weight = 0;
        if (positive && IsUse(criterion)) {
            point.weight = 1;
            ++computed.usedCount;
        } else if (IsIgnore(criterion)) {
            state.IgnoreKeyList.push_back(IgnoreKey(point));
        }
    }
    return computed.usedCount < 2 ? Result::Error(std::string(TooFewPoints)) : Result::Ok();
}

FittedLine FitLnYAgainstTime(const RecoveryPointList& points) {
    double m11 = 0;
    double m12 = 0;
    double m21 = 0;
    double m22 = 0;
    double r1 = 0;
    double r2 = 0;
    for (const RecoveryPoint& point : points) {
        // An ignored point contributes nothing, even where its time times itself would overflow.
        if (point.weight == 0)
            continue;
        const double w = point.weight;
        const double t = point.timeSec;
        m11 += w * t * t;
        m12 += w * t;
        m21 += w * t;
        m22 += w;
        r1 += w * t * point.lnYCm;
        r2 += w * point.lnYCm;
    }
    const double d = m22 - m21 * m12 / m11;
    FittedLine line;
    line.intercept = (r2 - r1 * m21 / m11) / d;
    line.slope = (r1 - m12 * line.intercept) / m11;
    return line;
}

double SlopeAboutMeanTime(const RecoveryPointList& points) {
    double count = 0;
    double sumTime = 0;
    double sumLnY = 0;
    for (const RecoveryPoint& point : points) {
        if (point.weight == 0)
            continue;
        count += point.weight;
        sumTime += point.timeSec;
        sumLnY += point.lnYCm;
    }
    const double meanTime = sumTime / count;
    const double meanLnY = sumLnY / count;
    double spread = 0;
    double product = 0;
    for (const RecoveryPoint& point : points) {
        if (point.weight == 0)
            continue;
        const double t = point.timeSec - meanTime;
        spread += t * t;
        product += t * (point.lnYCm - meanLnY);
    }
    return product / spread;
}

void ComputeHydraulicConductivity(ComputedValues& computed) {
    computed.KInCmPerSec =
        (computed.reCm * computed.reCm * (-computed.FitSlope) * computed.lnReOverRw) /
        (2 * computed.Le.cm);
}

Result ComputeK(ProjectState& state, ComputedValues& computed) {
    computed.KIsComputed = false;
    computed.KInCmPerSec = 0;
    Result result = CheckFitSelection(state, computed);
    if (result.IsError())
        return result;
    const RecoveryPointList& points = *computed.RecoveryPoints;
    const TimeSpan span = UsedTimes(points);
    if (span.first == span.last)
        return Result::Error(std::string(SameTime));
    const FittedLine line = FitLnYAgainstTime(points);
    if (SlopeIsLost(points, line.slope, span))
        return Result::Error(std::string(TimesTooLarge));
    computed.FitSlope = line.slope;
    computed.FitIntercept = line.intercept;
    ComputeHydraulicConductivity(computed);
    if (!std::isfinite(computed.KInCmPerSec) || !std::isfinite(line.intercept) ||
        !std::isfinite(DisplayedK(state, computed.KInCmPerSec))) {
        computed.KInCmPerSec = 0;
        return Result::Error(std::string(Overflow));
    }
    computed.KIsComputed = true;
    return Result::Ok();
}

float DisplayedK(const ProjectState& state, double kInCmPerSec) {
    const int length = state.CmboKLengthUnits;
    const double lengthFactor =
        NameAt(LengthUnitNames, length).empty() ? 0 : LengthPerCm[static_cast<std::size_t>(length)];
    return static_cast<float>(UnitFactorToSec(state.CmboKTimeUnits) * kInCmPerSec * lengthFactor);
}

std::string ComputedKText(const ProjectState& state, const ComputedValues& computed) {
    const bool unitsChosen = !NameAt(LengthUnitNames, state.CmboKLengthUnits).empty() &&
                             !NameAt(TimeUnitNames, state.CmboKTimeUnits).empty();
    if (!computed.KIsComputed || !unitsChosen)
        return {};
    return NumberToText(ThreeFigures, DisplayedK(state, computed.KInCmPerSec));
}

double FittedYCm(const FittedLine& line, double timeSec) {
    const double lnY = line.slope * timeSec + line.intercept;
    return lnY > SmallestFittedLnY ? std::exp(lnY) : 0;
}

} // namespace quarnel
