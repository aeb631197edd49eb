#pragma once

#include "compare/CompareRow.h"
#include "compare/RepeatTests.h"
#include "project/FixedLists.h"

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// A unit of K: positions in LengthUnitNames and TimeUnitNames.
struct CompareUnit {
    int length = 0;
    int time = 0;
};

/// Where no row has a K and nobody names a unit.
inline constexpr CompareUnit UnitOfNewProject{Metre, Day};

/// The positions of units called "m" and "day"; nothing where there is none of that name.
std::optional<int> LengthUnitNamed(std::string_view name);
std::optional<int> TimeUnitNamed(std::string_view name);
/// The unit called "m/day", or nothing where there is none of that name.
std::optional<CompareUnit> CompareUnitNamed(std::string_view name);
/// "m/day".
std::string NameOf(const CompareUnit& unit);
/// K (cm/s) in a unit.
double KInUnit(double kCmPerSec, const CompareUnit& unit);

/// Several K, all in one unit.
struct KStatistics {
    std::size_t n = 0;
    /// Stands first, because K is close to log-normal in space.
    double geometricMean = 0;
    double arithmeticMean = 0;
    double minimum = 0;
    double maximum = 0;
    double maximumOverMinimum = 0;
    std::optional<double> sdLog10; ///< standard deviation of log10 K; none of a single one
};

/// Nothing without a K. Each must be finite and > 0.
std::optional<KStatistics> ComputeKStatistics(std::span<const double> k);

/// Which rows belong together.
enum class Grouping {
    Well, ///< the same well label, whatever its case
    Site, ///< the same site name and well label
    None  ///< all of them
};

enum class CompareStatus {
    Counted,    ///< its K enters the statistics
    NotCounted, ///< there is a K that does not, or the file stands above already
    Failed      ///< no K
};

/// A row as it stands among the others.
struct ComparedRow {
    CompareStatus status = CompareStatus::Failed;
    /// Why it does not count; of one that counts what the file lacks, mostly "".
    std::string reason;
    std::optional<double> k;          ///< in the common unit
    std::optional<std::size_t> group; ///< none of a file that could not be read
};

struct CompareGroup {
    std::string name;
    /// Whether its tests are those of one well, so that they can be checked against each other.
    bool isOneWell = false;
    std::vector<std::size_t> tests;   ///< rows in the order of testing, repeated paths left out
    std::vector<std::size_t> counted; ///< those of them that count
    std::optional<KStatistics> statistics; ///< none where none counts
    std::optional<RepeatTests> repeats;    ///< from 2 counted tests of one well
};

struct CompareSettings {
    std::optional<CompareUnit> unit; ///< otherwise that of the first row with a K
    Grouping grouping = Grouping::Well;
};

/// Many rows side by side. It names rows by their places, counted from 0.
struct Comparison {
    CompareUnit unit;
    Grouping grouping = Grouping::Well;
    std::vector<ComparedRow> rows;    ///< one for each row, in the order given
    std::vector<CompareGroup> groups; ///< in order of first appearance
    std::size_t testCount = 0;        ///< of all groups
    std::size_t countedCount = 0;
    std::optional<KStatistics> all; ///< of all counted rows; none where none counts
};

/// The order of the rows is the order of testing.
Comparison CompareRows(std::span<const CompareRow> rows, const CompareSettings& settings);

inline constexpr std::string_view NoWellLabel = "(no well label)";
inline constexpr std::string_view NoSiteName = "(no site name)";
inline constexpr std::string_view SiteGap = " / "; ///< between site and well
inline constexpr std::string_view AllTests = "All";
inline constexpr std::string_view StandsAboveReason = "The file stands above already.";
inline constexpr std::string_view NotAboveZeroReason = "K is not greater than 0.";
inline constexpr std::string_view NotReadReason = "The file could not be read: ";

} // namespace quarnel
