#include "diagnostics/HeadWindows.h"

#include "kcompute/KComputations.h"

#include <algorithm>
#include <cmath>

namespace quarnel {

namespace {

/// So that a reading typed on an end of a window counts whatever its quotient rounds to.
constexpr double EndSlack = 1e-9;

bool AreSamePoints(const Series& a, const Series& b) {
    return std::ranges::equal(a.timeSec, b.timeSec) && std::ranges::equal(a.lnYCm, b.lnYCm);
}

HeadWindowRow RowOf(std::string_view name, const Computation& computation, const Series& used,
                    const Series& series) {
    HeadWindowRow row;
    row.name = name;
    row.pointCount = series.Size();
    const std::optional<SeriesLine> line = LineThrough(series);
    if (!line)
        return row;
    // The points of the fit have the fit's own line: K is then the one that is shown.
    row.slope = AreSamePoints(series, used) ? computation.line.slope : line->slope;
    row.kCmPerSec = KOfSlope(computation, *row.slope);
    row.rSquared = RSquaredOf(*line);
    row.changePercent = ChangePercent(computation, row.kCmPerSec);
    return row;
}

HeadWindowRow MarkedRow(const Computation& computation, const TestSeries& series,
                        std::optional<double> rSquared) {
    HeadWindowRow row;
    row.name = "marked";
    row.pointCount = series.UsedPoints().size();
    row.slope = computation.line.slope;
    row.kCmPerSec = computation.KInCmPerSec;
    row.rSquared = rSquared;
    row.changePercent = ChangePercent(computation, row.kCmPerSec);
    return row;
}

/// The points of a window, in vectors whose memory serves the next one.
struct WindowPoints {
    std::vector<double> timeSec, lnYCm;

    Series Gather(const TestSeries& series, const HeadWindow& window) {
        timeSec.clear();
        lnYCm.clear();
        const Series valid = series.Valid();
        for (std::size_t i = 0; i < valid.Size(); ++i) {
            if (!IsInHeadWindow(series.ValidHeads()[i], window))
                continue;
            timeSec.push_back(valid.timeSec[i]);
            lnYCm.push_back(valid.lnYCm[i]);
        }
        return {timeSec, lnYCm};
    }
};

} // namespace

bool IsInHeadWindow(double head, const HeadWindow& window) {
    return window.low * (1 - EndSlack) <= head && head <= window.high * (1 + EndSlack);
}

std::optional<double> KOfSlope(const Computation& computation, double slope) {
    const double k = ComputeHydraulicConductivity(computation.geometry,
                                                  computation.coefficients.lnReOverRw, slope);
    return std::isfinite(k) ? std::optional<double>(k) : std::nullopt;
}

std::optional<double> ChangePercent(const Computation& computation, std::optional<double> k) {
    if (!k || computation.KInCmPerSec == 0)
        return std::nullopt;
    const double change = (*k / computation.KInCmPerSec - 1) * 100;
    return std::isfinite(change) ? std::optional<double>(change) : std::nullopt;
}

HeadWindowRow ComputeHeadWindow(const Computation& computation, const TestSeries& series,
                                const HeadWindow& window) {
    WindowPoints points;
    return RowOf(window.name, computation, series.Used(), points.Gather(series, window));
}

std::vector<HeadWindowRow> ComputeHeadWindows(const Computation& computation,
                                              const TestSeries& series,
                                              std::optional<double> markedRSquared) {
    std::vector<HeadWindowRow> rows;
    rows.reserve(HeadWindowRowCount);
    rows.push_back(RowOf("all", computation, series.Used(), series.Valid()));
    WindowPoints points;
    for (const HeadWindow& window : HeadWindows)
        rows.push_back(
            RowOf(window.name, computation, series.Used(), points.Gather(series, window)));
    rows.push_back(MarkedRow(computation, series, markedRSquared));
    return rows;
}

std::vector<std::size_t> PointsInHeadWindow(const TestSeries& series, const HeadWindow& window) {
    std::vector<std::size_t> points;
    for (std::size_t i = 0; i < series.ValidPoints().size(); ++i)
        if (IsInHeadWindow(series.ValidHeads()[i], window))
            points.push_back(series.ValidPoints()[i]);
    return points;
}

} // namespace quarnel
