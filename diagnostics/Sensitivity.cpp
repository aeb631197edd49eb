#include "diagnostics/Sensitivity.h"

#include "kcompute/KComputations.h"
#include "project/FixedLists.h"
#include "wellgeometry/WellGeometry.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace quarnel {

namespace {

constexpr std::initializer_list<double> Porosities = {0, 20, 25, 30, 40};
constexpr std::initializer_list<double> Anisotropies = {0.5, 0.1};

constexpr double MetricLevelStepCm = 1;
constexpr double HundredthOfAFootCm = 0.01 * 30.48;

std::optional<double> Finite(double k) {
    return std::isfinite(k) ? std::optional<double>(k) : std::nullopt;
}

/// K of a changed well, whose values are set and whose lengths are derived here.
std::optional<double> KOfWell(WellDimensions well, double slope) {
    BouwerRiceValues values;
    if (CompareAndDerive(well).IsError() || ComputeCoefficientsAndRadii(well, values).IsError())
        return std::nullopt;
    return Finite(ComputeHydraulicConductivity(well, values.lnReOverRw, slope));
}

/// K of the computation's well with a radius and a bound of its own inside ln(Re/rw).
std::optional<double> KOfRadius(const Computation& computation, double rwCm,
                                double greatestLnBelow) {
    const WellDimensions& well = computation.geometry;
    BouwerRiceCoefficients coefficients;
    ComputeBouwerRiceCoefficients(well.Le.cm, rwCm, coefficients);
    const double lnReOverRw =
        ComputeLnReOverRw(well.H.cm, well.Le.cm, well.Lw.cm, rwCm, coefficients, greatestLnBelow);
    return Finite(ComputeHydraulicConductivity(well, lnReOverRw, computation.line.slope));
}

std::optional<double> KWithFactor(const Computation& computation, SensitivityInput input,
                                  double factor) {
    WellDimensions well = computation.geometry;
    const auto scale = [factor](EnteredDiameter& diameter) {
        diameter.value *= factor;
        diameter.radius = diameter.value / 2;
    };
    switch (input) {
    case SensitivityInput::H:
        well.H.value *= factor;
        break;
    case SensitivityInput::Lw:
        well.Lw.value *= factor;
        break;
    case SensitivityInput::Le:
        well.Le.value *= factor;
        break;
    case SensitivityInput::Dw:
        scale(well.dw);
        break;
    default:
        scale(well.dc);
        break;
    }
    return KOfWell(std::move(well), computation.line.slope);
}

/// Gathers the entries, each with its change from the computation's K.
class EntryList {
public:
    explicit EntryList(const Computation& computation)
        : computation_(computation) {}
    void Add(SensitivityInput input, double change, std::optional<double> k) {
        entries_.push_back({input, change, k, ChangePercent(computation_, k)});
    }
    std::vector<SensitivityEntry> Take() { return std::move(entries_); }

private:
    const Computation& computation_;
    std::vector<SensitivityEntry> entries_;
};

void AddLengths(const Computation& computation, double percent, EntryList& entries) {
    for (const SensitivityInput input :
         {SensitivityInput::H, SensitivityInput::Lw, SensitivityInput::Le, SensitivityInput::Dw,
          SensitivityInput::Dc})
        for (const double change : {-percent, percent})
            entries.Add(input, change, KWithFactor(computation, input, 1 + change / 100));
}

/// K of the used points with every Y moved by `shiftCm`.
std::optional<double> KWithShiftedY(const Computation& computation, const TestSeries& series,
                                    double shiftCm) {
    const double cmPerUnit = UnitFactorToCm(computation.recovery.levelUnit);
    const Series used = series.Used();
    std::vector<double> timeSec;
    std::vector<double> lnYCm;
    timeSec.reserve(series.UsedPoints().size());
    lnYCm.reserve(series.UsedPoints().size());
    for (std::size_t i = 0; i < used.Size(); ++i) {
        const double yCm = series.UsedY()[i] * cmPerUnit + shiftCm;
        if (!(yCm > 0))
            continue;
        timeSec.push_back(used.timeSec[i]);
        lnYCm.push_back(std::log(yCm));
    }
    const std::optional<SeriesLine> line = LineThrough({timeSec, lnYCm});
    return line ? KOfSlope(computation, line->slope) : std::nullopt;
}

/// Whether the used points without the one at `left` still have two times.
bool LeavesTwoTimes(const Series& used, std::size_t left) {
    const std::size_t last = used.Size() - 1;
    const std::size_t from = left == 0 ? 1 : 0;
    const std::size_t to = left == last ? last - 1 : last;
    return used.timeSec[from] != used.timeSec[to];
}

struct LeftOutSlope {
    std::size_t at = 0;
    double slope = 0;
};

/// The least and the greatest slope with one used point left out, by the influence of each point,
/// so that a long record needs no second fit.
std::vector<LeftOutSlope> ExtremeLeftOutSlopes(const FitStatistics& fit, const Series& used) {
    std::vector<LeftOutSlope> slopes;
    if (fit.residuals.empty())
        return slopes;
    const double b = fit.slope;
    const double whole = 1 - 1 / static_cast<double>(used.Size());
    for (std::size_t i = 0; i < used.Size(); ++i) {
        const double t = used.timeSec[i] - fit.meanTimeSec;
        const double slope = b - t * fit.residuals[i] / (fit.sxx * (whole - t * t / fit.sxx));
        if (!std::isfinite(slope) || !LeavesTwoTimes(used, i))
            continue;
        if (slopes.empty())
            slopes = {{i, slope}, {i, slope}};
        if (slope > slopes[0].slope)
            slopes[0] = {i, slope};
        if (slope < slopes[1].slope)
            slopes[1] = {i, slope};
    }
    return slopes;
}

void AddLeftOut(const Computation& computation, const TestSeries& series, const FitStatistics& fit,
                EntryList& entries) {
    for (const LeftOutSlope& leftOut : ExtremeLeftOutSlopes(fit, series.Used()))
        entries.Add(SensitivityInput::LeftOut,
                    static_cast<double>(series.UsedPoints()[leftOut.at] + 1),
                    KOfSlope(computation, leftOut.slope));
}

SensitivityRow RowOf(std::vector<SensitivityEntry> entries) {
    SensitivityRow row;
    row.input = entries.front().input;
    row.entries = std::move(entries);
    for (const SensitivityEntry& entry : row.entries) {
        if (!entry.changePercent)
            continue;
        row.leastPercent =
            std::min(row.leastPercent.value_or(*entry.changePercent), *entry.changePercent);
        row.greatestPercent =
            std::max(row.greatestPercent.value_or(*entry.changePercent), *entry.changePercent);
    }
    return row;
}

/// How far up a row stands; one of dashes alone stands last.
double SizeOf(const SensitivityRow& row) {
    return row.leastPercent
               ? std::max(std::fabs(*row.leastPercent), std::fabs(*row.greatestPercent))
               : -1;
}

std::vector<SensitivityRow> SortedRows(const std::vector<SensitivityEntry>& entries,
                                       const Computation& computation,
                                       const std::vector<HeadWindowRow>& windows) {
    std::vector<SensitivityRow> rows;
    for (auto from = entries.begin(); from != entries.end();) {
        const auto to = std::find_if(
            from, entries.end(), [&](const SensitivityEntry& e) { return e.input != from->input; });
        rows.push_back(RowOf({from, to}));
        from = to;
    }
    for (std::size_t i = 0; i < RowAsMarked && i < windows.size(); ++i)
        rows.push_back(
            RowOf({{SensitivityInput::HeadWindow, static_cast<double>(i), windows[i].kCmPerSec,
                    ChangePercent(computation, windows[i].kCmPerSec)}}));
    std::stable_sort(
        rows.begin(), rows.end(),
        [](const SensitivityRow& a, const SensitivityRow& b) { return SizeOf(a) > SizeOf(b); });
    return rows;
}

} // namespace

bool EndsAboveBottom(const WellDimensions& well) {
    return well.H.cm - well.Lw.cm >= FullPenetrationCm;
}

double LnBelowWell(const WellDimensions& well) {
    return std::log((well.H.cm - well.Lw.cm) / well.dw.radiusCm);
}

bool LnCapApplies(const WellDimensions& well) {
    return EndsAboveBottom(well) && LnBelowWell(well) > GreatestLnBelowWell;
}

double StaticLevelStepCm(const Computation& computation) {
    const int unit = computation.recovery.levelUnit;
    return unit == Inch || unit == Foot ? HundredthOfAFootCm : MetricLevelStepCm;
}

std::optional<double> KWithLnCap(const Computation& computation) {
    return KOfRadius(computation, computation.geometry.dw.radiusCm, GreatestLnBelowWell);
}

std::optional<double> KAsFullyPenetrating(const Computation& computation) {
    WellDimensions well = computation.geometry;
    well.H = well.Lw;
    return KOfWell(std::move(well), computation.line.slope);
}

std::optional<double> KWithPorosity(const Computation& computation, double percent) {
    WellDimensions well = computation.geometry;
    well.n = percent / 100;
    return KOfWell(std::move(well), computation.line.slope);
}

std::vector<SensitivityEntry> StaticLevelEntries(const Computation& computation,
                                                 const TestSeries& series) {
    EntryList entries(computation);
    const double step = StaticLevelStepCm(computation);
    for (const double shift : {-step, step})
        entries.Add(SensitivityInput::StaticLevel, shift,
                    KWithShiftedY(computation, series, shift));
    return entries.Take();
}

SensitivityPage ComputeSensitivity(const Computation& computation, const TestSeries& series,
                                   const FitStatistics& fit,
                                   const std::vector<HeadWindowRow>& windows,
                                   const std::vector<SensitivityEntry>& staticLevel,
                                   double percent) {
    EntryList entries(computation);
    AddLengths(computation, percent, entries);
    for (const double porosity : Porosities)
        entries.Add(SensitivityInput::Porosity, porosity, KWithPorosity(computation, porosity));
    for (const SensitivityEntry& entry : staticLevel)
        entries.Add(entry.input, entry.change, entry.kCmPerSec);
    AddLeftOut(computation, series, fit, entries);
    if (LnCapApplies(computation.geometry))
        entries.Add(SensitivityInput::LnCap, GreatestLnBelowWell, KWithLnCap(computation));
    for (const double ratio : Anisotropies)
        entries.Add(SensitivityInput::Anisotropy, ratio,
                    KOfRadius(computation, computation.geometry.dw.radiusCm * std::sqrt(ratio),
                              std::numeric_limits<double>::infinity()));
    SensitivityPage page;
    page.percent = percent;
    page.entries = entries.Take();
    page.rows = SortedRows(page.entries, computation, windows);
    return page;
}

} // namespace quarnel
