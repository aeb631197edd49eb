#include "diagnostics/Diagnostics.h"

#include "diagnostics/Hvorslev.h"
#include "kcompute/KComputations.h"
#include "project/Texts.h"
#include "wellgeometry/WellGeometry.h"

#include <algorithm>
#include <cmath>

namespace quarnel {

namespace {

std::optional<double> VolumeOf(const ProjectState& state) {
    const std::optional<double> volume =
        ParseNumber(state.VolumeOfSlugText, state.DecimalSeparator);
    return volume && *volume > 0 ? volume : std::nullopt;
}

std::optional<KInterval> IntervalOf(double k, std::optional<double> halfWidth) {
    if (!halfWidth || !(k > 0))
        return std::nullopt;
    const KInterval interval{k * (1 - *halfWidth), k * (1 + *halfWidth)};
    if (!std::isfinite(interval.low) || !std::isfinite(interval.high))
        return std::nullopt;
    return interval;
}

std::optional<SlugVolumeCheck> SlugVolumeOf(const Computation& computation, double firstYCm,
                                            std::optional<double> volumeLitre) {
    if (!volumeLitre)
        return std::nullopt;
    const WellDimensions& well = computation.geometry;
    return CheckSlugVolume({*volumeLitre, well.dc.radiusCm, well.dw.radiusCm, firstYCm,
                            computation.line.intercept, IsScreenAtWaterTable(well)});
}

std::optional<HvorslevComparison> HvorslevOf(const Computation& computation,
                                             const HeadWindowRow& window) {
    const WellDimensions& well = computation.geometry;
    const auto k = [&](double slope) {
        return HvorslevK(well.reCm, well.Le.cm, well.dw.radiusCm, slope);
    };
    const std::optional<double> kHvorslev = k(computation.line.slope);
    if (!kHvorslev)
        return std::nullopt;
    HvorslevComparison comparison;
    comparison.kCmPerSec = *kHvorslev;
    const double ratio = *kHvorslev / computation.KInCmPerSec;
    if (std::isfinite(ratio))
        comparison.ratio = ratio;
    if (std::fabs(well.H.cm - well.Lw.cm) < FullPenetrationCm)
        comparison.touchingKCmPerSec =
            HvorslevTouchingK(well.reCm, well.Le.cm, well.dw.radiusCm, computation.line.slope);
    if (window.slope)
        comparison.window025To015CmPerSec = k(*window.slope);
    return comparison;
}

} // namespace

Diagnostics::Diagnostics(ComputationPtr computation, const ProjectState& state)
    : computation_(std::move(computation))
    , slugVolumeLitre_(VolumeOf(state)) {}

const TestSeries& Diagnostics::Points() {
    if (!points_)
        points_.emplace(*computation_);
    return *points_;
}

const FitStatistics& Diagnostics::Fit() {
    if (!fit_)
        fit_ = ComputeFitStatistics(Points().Used(), computation_->line.slope,
                                    computation_->line.intercept);
    return *fit_;
}

const std::vector<HeadWindowRow>& Diagnostics::WindowRows() {
    if (!rows_)
        rows_ = ComputeHeadWindows(*computation_, Points(), Fit().rSquared);
    return *rows_;
}

const std::vector<SensitivityEntry>& Diagnostics::StaticLevel() {
    if (!staticLevel_)
        staticLevel_ = StaticLevelEntries(*computation_, Points());
    return *staticLevel_;
}

std::optional<double> Diagnostics::ReadingStep() {
    if (!readingStepCm_)
        readingStepCm_ = ReadingStepCm(*computation_);
    return *readingStepCm_;
}

HeadWindowRow Diagnostics::WindowRow(HeadWindowRowIndex row) {
    return rows_ ? (*rows_)[row] : ComputeHeadWindow(*computation_, Points(), WindowOf(row));
}

UsedHeadRange Diagnostics::UsedHeads() {
    const auto [least, greatest] = std::ranges::minmax(Points().UsedY());
    return {least / Points().FirstY(), greatest / Points().FirstY()};
}

std::optional<KInterval> Diagnostics::Interval() {
    return Fit().scatter ? IntervalOf(computation_->KInCmPerSec, Fit().scatter->halfWidth)
                         : std::nullopt;
}

std::optional<KInterval> Diagnostics::AdjustedInterval() {
    return Fit().autocorrelation
               ? IntervalOf(computation_->KInCmPerSec, Fit().autocorrelation->adjustedHalfWidth)
               : std::nullopt;
}

StatisticsPage Diagnostics::MakeStatistics() {
    StatisticsPage page;
    page.pointCount = Points().Order().size();
    page.validCount = Points().ValidPoints().size();
    page.kCmPerSec = computation_->KInCmPerSec;
    page.firstYCm = Points().FirstYCm();
    page.readingStepCm = ReadingStep();
    page.fit = Fit();
    page.leastUsedHead = UsedHeads().least;
    page.greatestUsedHead = UsedHeads().greatest;
    page.interval = Interval();
    page.adjustedInterval = AdjustedInterval();
    page.slugVolume = SlugVolumeOf(*computation_, page.firstYCm, slugVolumeLitre_);
    page.hvorslev = HvorslevOf(*computation_, WindowRows()[Row025To015]);
    return page;
}

const StatisticsPage& Diagnostics::Statistics() {
    if (!statistics_)
        statistics_ = MakeStatistics();
    return *statistics_;
}

HeadWindowsPage Diagnostics::MakeWindows() {
    HeadWindowsPage page;
    page.rows = WindowRows();
    page.enoughForSegments = Points().ValidPoints().size() >= FewestPointsOfTwoSegments;
    page.segments = FindTwoSegments(Points().Valid());
    if (!page.segments)
        return page;
    page.lastPointEarly = Points().ValidPoints()[page.segments->splitAfter - 1];
    page.firstPointLate = Points().ValidPoints()[page.segments->splitAfter];
    page.kEarlyCmPerSec = KOfSlope(*computation_, page.segments->early.slope);
    page.kLateCmPerSec = KOfSlope(*computation_, page.segments->late.slope);
    return page;
}

const HeadWindowsPage& Diagnostics::Windows() {
    if (!windows_)
        windows_ = MakeWindows();
    return *windows_;
}

const ChecksPage& Diagnostics::Checks() {
    if (!checks_)
        checks_ = ChecksPage{
            ComputeChecks(*computation_, Points(), {WindowRow(Row100To030), WindowRow(Row030To020)},
                          HasUsedTail(Points()) ? StaticLevel() : std::vector<SensitivityEntry>(),
                          ReadingStep())};
    return *checks_;
}

const SensitivityPage& Diagnostics::SensitivityTo(double percent) {
    if (!sensitivity_ || sensitivity_->percent != percent)
        sensitivity_ = ComputeSensitivity(*computation_, Points(), Fit(), WindowRows(),
                                          StaticLevel(), percent);
    return *sensitivity_;
}

std::vector<std::size_t> Diagnostics::HeadRangePoints() {
    return PointsInHeadWindow(Points(), WindowOf(Row030To020));
}

std::vector<std::size_t> Diagnostics::FirstSegmentPoints() {
    const HeadWindowsPage& page = Windows();
    if (!page.segments || !page.segments->suggested)
        return {};
    const std::vector<std::size_t>& valid = Points().ValidPoints();
    return {valid.begin(), valid.begin() + static_cast<std::ptrdiff_t>(page.segments->splitAfter)};
}

std::vector<std::size_t> Diagnostics::SecondSegmentPoints() {
    const HeadWindowsPage& page = Windows();
    if (!page.segments || !page.segments->suggested)
        return {};
    const std::vector<std::size_t>& valid = Points().ValidPoints();
    return {valid.begin() + static_cast<std::ptrdiff_t>(page.segments->splitAfter), valid.end()};
}

} // namespace quarnel
