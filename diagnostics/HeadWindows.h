#pragma once

#include "diagnostics/TestSeries.h"
#include "kcompute/Computation.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace quarnel {

/// A range of the normalized head Y/H0.
struct HeadWindow {
    std::string_view name;
    double low = 0;
    double high = 0;
};

inline constexpr std::array<HeadWindow, 6> HeadWindows = {{{"1.00-0.30", 0.30, 1.00},
                                                           {"0.80-0.40", 0.40, 0.80},
                                                           {"0.50-0.25", 0.25, 0.50},
                                                           {"0.30-0.20", 0.20, 0.30},
                                                           {"0.25-0.15", 0.15, 0.25},
                                                           {"0.20-0.10", 0.10, 0.20}}};

/// The rows of the table in their order: all valid points, the windows, the points as marked.
enum HeadWindowRowIndex : std::size_t {
    RowAllValid = 0,
    Row100To030 = 1,
    Row080To040 = 2,
    Row050To025 = 3,
    Row030To020 = 4, ///< recommended for a screen below the water table
    Row025To015 = 5, ///< recommended for Hvorslev's method
    Row020To010 = 6,
    RowAsMarked = 7,
    HeadWindowRowCount = 8
};

/// K from the points of one row.
struct HeadWindowRow {
    std::string_view name; ///< "all", a window's name or "marked"
    std::size_t pointCount = 0;
    std::optional<double> slope;         ///< 1/s; none without a line
    std::optional<double> kCmPerSec;     ///< cm/s
    std::optional<double> rSquared;      ///< from 3 points on
    std::optional<double> changePercent; ///< from the K as marked; none where that is 0
};

/// Whether a normalized head lies in a window; a reading typed on an end counts.
bool IsInHeadWindow(double head, const HeadWindow& window);

/// K from each window with the computation's own geometry and ln(Re/rw); the last row is the
/// computation itself. `markedRSquared` is what the fit's statistics say.
std::vector<HeadWindowRow> ComputeHeadWindows(const Computation& computation,
                                              const TestSeries& series,
                                              std::optional<double> markedRSquared);

/// The row of one window alone.
HeadWindowRow ComputeHeadWindow(const Computation& computation, const TestSeries& series,
                                const HeadWindow& window);

/// The window of a row from Row100To030 to Row020To010.
constexpr const HeadWindow& WindowOf(HeadWindowRowIndex row) {
    return HeadWindows[row - Row100To030];
}

/// The places in the list of the points in `window`, in order of time.
std::vector<std::size_t> PointsInHeadWindow(const TestSeries& series, const HeadWindow& window);

/// K (cm/s) that another slope (1/s) gives in the computation's well; nothing where not finite.
std::optional<double> KOfSlope(const Computation& computation, double slope);

/// By how many percent `k` differs from the computation's K; nothing where that is 0.
std::optional<double> ChangePercent(const Computation& computation, std::optional<double> k);

} // namespace quarnel
