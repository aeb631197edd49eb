#pragma once

#include "diagnostics/Diagnostics.h"
#include "project/ProjectState.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// A row of texts, one for each column.
using TextRow = std::vector<std::string>;

// ---- Texts that stand there whatever the numbers are --------------------------------------------

inline constexpr std::string_view NoComputationText = "Press Compute K/ Plot first.";
inline constexpr std::string_view IntervalNote =
    "This interval covers only the scatter of the used readings about the line. It does not cover "
    "the choice of readings, the well's dimensions, the static level or the method.";
inline constexpr std::string_view ChecksNote =
    "Skin and fines cannot be seen from one test: repeat it with another initial change in head.";
inline constexpr std::string_view CurvesNote = "Reading the published curves is good to about 5 %.";
inline constexpr std::string_view NoSlugVolumeText =
    "No slug volume: the initial change in head cannot be checked.";
inline constexpr std::string_view NoSegmentsText = "No two straight segments stand out.";
inline constexpr std::string_view TwoPointsText =
    "2 points: the line passes through both, so there are no statistics.";
inline constexpr std::string_view SixPointsText = "6 or more points are needed";
inline constexpr std::string_view NoResidualsText = "2 points: no residuals.";
inline constexpr std::string_view HeadRangeTooltip =
    "Recommended for a screen below the water table (Butler, McElwee and Liu 1996; Butler 1998).";
inline constexpr std::string_view HvorslevRangeTooltip =
    "Recommended for the Hvorslev method (Butler 1998).";
inline constexpr std::string_view Dash = "-";

/// The titles of the pages in their order.
inline constexpr std::array<std::string_view, 5> DiagnosticsPageTitles = {
    "Statistics", "Head Windows", "Checks", "What Moves K", "Residuals"};

/// What "Mark 0.20-0.30 as Use" says where fewer than three readings lie in the range.
std::string TooFewToMarkText(std::size_t count);

// ---- Numbers as the diagnostics show them -------------------------------------------------------

/// A change in percent: one decimal, with its sign; "0.0 %" of none.
std::string ChangeText(double percent);
/// A share in percent: one decimal, a sign only where it is negative.
std::string ShareText(double percent);
/// Fixed decimals of a number, without the sign of a zero; three figures from 1e15 on.
std::string FixedText(double value, int decimals);
/// R2 with four decimals, "> 0.9999" where that would show 1 though there is scatter.
std::string RSquaredText(double rSquared);

/// The texts of one computation's diagnostics in the units chosen for K in `state`, which is read
/// at every call: other units of K need other texts but no other numbers.
class DiagnosticsLines {
public:
    /// Both must outlive it.
    DiagnosticsLines(const Computation& computation, const ProjectState& state)
        : computation_(computation)
        , state_(state) {}

    /// "K = 3.6 m/day from 3 of 61 points."
    std::string StateLine() const;
    /// One sentence to act on: the readings used, K and its scatter, and what would move it most.
    std::string Summary(const StatisticsPage& page, const SensitivityPage& sensitivity) const;

    /// Label and value of each statistic.
    std::vector<TextRow> Statistics(const StatisticsPage& page) const;
    std::string SlugVolume(const StatisticsPage& page) const;
    /// Empty where the line does not fall.
    std::string Hvorslev(const StatisticsPage& page) const;

    TextRow WindowHeadings() const;
    std::vector<TextRow> Windows(const HeadWindowsPage& page) const;
    std::string Segments(const HeadWindowsPage& page) const;

    static TextRow CheckHeadings() { return {"Level", "Check", "Text"}; }
    /// Cautions stand above notes, each in the order of the checks.
    std::vector<TextRow> Checks(const ChecksPage& page) const;
    std::string CheckText(const CheckFinding& finding) const;

    /// "What", K and change less, K and change more.
    TextRow SensitivityHeadings() const;
    std::vector<TextRow> Sensitivity(const SensitivityPage& page) const;
    /// All entries of a row in full, for those that have more than two.
    std::string SensitivityDetails(const SensitivityRow& row) const;
    std::string SensitivityName(const SensitivityRow& row, double percent) const;
    /// "Largest here: NAME (x % to y %)."; empty where nothing could be changed.
    std::string LargestLine(const SensitivityPage& page) const;

    /// "Residuals: s S, r1 R, DW D", the parts that exist.
    static std::string ResidualTitle(const FitStatistics& fit);

    /// K with its unit; in cm/sec where no unit is chosen; a dash of none.
    std::string KWithUnit(std::optional<double> kCmPerSec) const;
    /// K alone.
    std::string KNumber(std::optional<double> kCmPerSec) const;
    std::string KUnit() const;

private:
    std::string LengthText(double cm, int unit) const;
    std::string IntervalText(const std::optional<KInterval>& interval) const;
    std::string TimeText(std::size_t point) const;
    std::string StaticLevelStep() const;
    std::string WellCheckText(const CheckFinding& finding) const;
    std::string HeadCheckText(const CheckFinding& finding) const;
    std::string RecordCheckText(const CheckFinding& finding) const;
    std::string WithChange(const CheckFinding& finding) const;
    static std::string ChangesText(const SensitivityRow& row);

    const Computation& computation_;
    const ProjectState& state_;
};

} // namespace quarnel
