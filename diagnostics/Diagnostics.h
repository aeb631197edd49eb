#pragma once

#include "diagnostics/FitStatistics.h"
#include "diagnostics/HeadWindows.h"
#include "diagnostics/Sensitivity.h"
#include "diagnostics/SlugVolume.h"
#include "diagnostics/TestSeries.h"
#include "diagnostics/TwoSegments.h"
#include "diagnostics/ValidityChecks.h"
#include "kcompute/Computation.h"
#include "project/ProjectState.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace quarnel {

/// The 95 % interval of K in cm/s.
struct KInterval {
    double low = 0;
    double high = 0;
};

/// Y/H0 of the used points.
struct UsedHeadRange {
    double least = 0;
    double greatest = 0;
};

/// Hvorslev's K beside the computation's.
struct HvorslevComparison {
    double kCmPerSec = 0;
    std::optional<double> ratio;             ///< to the computation's K; none where that is 0
    std::optional<double> touchingKCmPerSec; ///< where the screen stands on the impervious bottom
    std::optional<double> window025To015CmPerSec; ///< from the readings recommended for it
};

/// The page "Statistics".
struct StatisticsPage {
    std::size_t pointCount = 0;
    std::size_t validCount = 0;
    double kCmPerSec = 0;
    double firstYCm = 0; ///< H0
    std::optional<double> readingStepCm;
    double greatestUsedHead = 0; ///< of Y/H0 of the used points
    double leastUsedHead = 0;
    FitStatistics fit;
    std::optional<KInterval> interval; ///< none where the line does not fall or K is not > 0
    std::optional<KInterval> adjustedInterval;  ///< the same, with the effective number of points
    std::optional<SlugVolumeCheck> slugVolume;  ///< none without a volume above 0
    std::optional<HvorslevComparison> hvorslev; ///< none where the line does not fall
};

/// The page "Head Windows".
struct HeadWindowsPage {
    std::vector<HeadWindowRow> rows; ///< by HeadWindowRowIndex
    bool enoughForSegments = false;  ///< 6 or more valid points
    std::optional<TwoSegments> segments;
    std::size_t lastPointEarly = 0; ///< the places in the list beside the split
    std::size_t firstPointLate = 0;
    std::optional<double> kEarlyCmPerSec, kLateCmPerSec;
};

/// The page "Checks".
struct ChecksPage {
    std::vector<CheckFinding> findings;
};

/// What one computation says of its own K. Each page is worked out when it is first asked for and
/// kept; nothing of the computation or the project is changed. One thread at a time.
class Diagnostics {
public:
    /// `state` gives the slug's volume and the decimal separator; it is read here and not kept.
    Diagnostics(ComputationPtr computation, const ProjectState& state);

    const Computation& Source() const { return *computation_; }
    const TestSeries& Points();
    const FitStatistics& Fit();
    UsedHeadRange UsedHeads();
    /// As the page "Statistics" has them.
    std::optional<KInterval> Interval();
    std::optional<KInterval> AdjustedInterval();
    const StatisticsPage& Statistics();
    const HeadWindowsPage& Windows();
    const ChecksPage& Checks();
    /// `percent` from 1 to 50.
    const SensitivityPage& SensitivityTo(double percent);

    // The places in the list, counted from 0, of the points that a button marks as Use.

    /// Those with a normalized head of 0.20 to 0.30.
    std::vector<std::size_t> HeadRangePoints();
    /// Those of the early and of the late segment; none without a suggestion.
    std::vector<std::size_t> FirstSegmentPoints();
    std::vector<std::size_t> SecondSegmentPoints();

private:
    StatisticsPage MakeStatistics();
    HeadWindowsPage MakeWindows();
    const std::vector<HeadWindowRow>& WindowRows();
    HeadWindowRow WindowRow(HeadWindowRowIndex row);
    const std::vector<SensitivityEntry>& StaticLevel();
    std::optional<double> ReadingStep();

    ComputationPtr computation_;
    std::optional<double> slugVolumeLitre_;
    std::optional<TestSeries> points_;
    std::optional<FitStatistics> fit_;
    std::optional<std::vector<HeadWindowRow>> rows_;
    std::optional<std::vector<SensitivityEntry>> staticLevel_;
    std::optional<std::optional<double>> readingStepCm_;
    std::optional<StatisticsPage> statistics_;
    std::optional<HeadWindowsPage> windows_;
    std::optional<ChecksPage> checks_;
    std::optional<SensitivityPage> sensitivity_;
};

/// Fewest readings that "Mark 0.20-0.30 as Use" marks.
inline constexpr std::size_t FewestPointsToMark = 3;

} // namespace quarnel
