#pragma once

#include "compare/PathResolver.h"
#include "diagnostics/ValidityChecks.h"
#include "kcompute/AnalysisRun.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// A valid point as the picture of many tests shows it.
struct NormalizedPoint {
    double timeSec = 0;
    double lnHead = 0; ///< ln(Y/H0)
    bool used = false;
};

/// Most points that a row keeps for the picture.
inline constexpr std::size_t MostNormalizedPoints = 2000;

enum class HalfWidthKind { Adjusted, Plain };

/// What a row keeps beside its numbers.
struct CompareKeep {
    bool points = false;      ///< for the picture
    bool remarkTexts = false; ///< the sentence of each caution and note
};

/// What is kept of one project beside the others: its numbers and a few texts, never its readings.
/// What was not reached is absent.
struct CompareRow {
    std::string file;         ///< the path as given
    std::string resolvedFile; ///< the same without links, to know a file by
    bool isRepeated = false;  ///< already known to stand above under this or another path
    bool isRead = false;      ///< the file was one of ours; false leaves all below `failure` empty
    std::string failure;      ///< the first message of what failed; "" where nothing did

    std::string siteName, wellLabel, testDate; ///< trimmed
    std::string slugTestType;                  ///< "Rising head", "Falling head", "Not Applicable"
    int timeUnit = 0;                          ///< of the readings, a position in TimeUnitNames
    std::optional<std::size_t> pointCount;     ///< checked readings

    // With K only.
    std::optional<double> kCmPerSec;
    std::string kText;    ///< in the project's own units; "" where none is chosen
    int kLengthUnit = -1; ///< the project's own
    int kTimeUnit = -1;
    std::size_t usedCount = 0;
    std::optional<double> firstYCm;         ///< H0
    std::optional<double> slopePerSec;      ///< of the fitted line
    std::optional<double> halfWidthPercent; ///< of the 95 % interval of K, in percent of K
    HalfWidthKind halfWidthKind = HalfWidthKind::Plain;
    std::optional<double> headMax, headMin;           ///< Y/H0 of the used points
    std::vector<CheckId> cautions, notes;             ///< in the order of the checks
    std::vector<std::string> cautionTexts, noteTexts; ///< their sentences, where they are kept
    /// In order of time; of more than MostNormalizedPoints the first of each step of time.
    std::vector<NormalizedPoint> points;
};

/// What is left of an analysis as a row.
CompareRow MakeCompareRow(const AnalysisRun& run, const CompareKeep& keep, PathResolver& paths);

/// Reads the project at `path`, prepares and computes it, and keeps the row. May be called on
/// several threads at a time. A path that is no project gives a row with the failure.
CompareRow ReadCompareRow(const std::string& path, std::string_view decimalSeparator,
                          const CompareKeep& keep, PathResolver& paths);

/// The file's name without its folders.
std::string_view FileNameOf(std::string_view path);

} // namespace quarnel
