#include "compare/NormalizedDrawing.h"

#include "diagnostics/LinearAxes.h"
#include "project/FixedLists.h"
#include "project/TextColumns.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quarnel {

namespace {

/// The axis runs at least from 1 to 0.01 and, as that of the plot, at most from 1e5 to 1e-6.
constexpr double LeastExponent = -2;
constexpr double LowestExponent = -6;
constexpr double HighestExponent = 5;
/// Room behind the last point, as a part of the time axis.
constexpr double TimeRoom = 0.03;

constexpr double LegendPoints = 8;
constexpr double LegendLine = 230;
constexpr double LegendMarkRadius = 55;
constexpr double LegendTextLeft = 170; ///< from the middle of its mark
constexpr double LegendGap = 200;
/// A character of the legend takes about this much room.
constexpr double LegendCharacter = 88;
/// A legend stands beside the axes where it takes at most this part of the area's width, otherwise
/// below them.
constexpr double LegendPart = 0.3;

/// log10(Y/H0).
double ExponentOf(const NormalizedPoint& point) {
    return point.lnHead / std::log(10.0);
}

/// The curves that are drawn, with what both axes show of them.
class NormalizedPlot {
public:
    NormalizedPlot(const std::vector<NormalizedCurve>& curves, bool divideByTimeLag)
        : testCount_(curves.size())
        , divideByTimeLag_(divideByTimeLag) {
        for (const NormalizedCurve& curve : curves)
            if (curves_.size() < MostNormalizedCurves && !curve.points.empty() &&
                (curve.timeLagSec || !divideByTimeLag))
                curves_.push_back(&curve);
    }

    Drawing Make(double areaWidth, double areaHeight);

private:
    double UnitOf(const NormalizedCurve& curve) const {
        return divideByTimeLag_ ? *curve.timeLagSec : UnitFactorToSec(curves_.front()->timeUnit);
    }
    LinearAxes::Range Times() const;
    LinearAxes::Range Exponents() const;
    std::string TimeTitle() const;
    std::string Title() const;
    double LegendWidth() const;
    void DrawLegend(Drawing& drawing, double left, double top, std::size_t columns,
                    double columnWidth) const;

    std::size_t testCount_;
    bool divideByTimeLag_;
    std::vector<const NormalizedCurve*> curves_;
};

LinearAxes::Range NormalizedPlot::Times() const {
    LinearAxes::Range range{0, 0};
    for (const NormalizedCurve* curve : curves_)
        for (const NormalizedPoint& point : curve->points) {
            range.low = std::min(range.low, point.timeSec / UnitOf(*curve));
            range.high = std::max(range.high, point.timeSec / UnitOf(*curve));
        }
    range.high += (range.high - range.low) * TimeRoom;
    return range;
}

LinearAxes::Range NormalizedPlot::Exponents() const {
    LinearAxes::Range range{LeastExponent, 0};
    for (const NormalizedCurve* curve : curves_)
        for (const NormalizedPoint& point : curve->points) {
            range.low = std::min(range.low, std::floor(ExponentOf(point)));
            range.high = std::max(range.high, std::ceil(ExponentOf(point)));
        }
    return {std::max(range.low, LowestExponent), std::min(range.high, HighestExponent)};
}

std::string NormalizedPlot::TimeTitle() const {
    return divideByTimeLag_
               ? "Time divided by the basic time lag"
               : "Time (" + std::string(NameAt(TimeUnitNames, curves_.front()->timeUnit)) + ")";
}

std::string NormalizedPlot::Title() const {
    if (testCount_ <= MostNormalizedCurves)
        return {};
    return std::to_string(curves_.size()) + " of " + std::to_string(testCount_) +
           " tests drawn: choose rows to draw others.";
}

double NormalizedPlot::LegendWidth() const {
    std::size_t longest = 0;
    for (const NormalizedCurve* curve : curves_)
        longest = std::max(longest, CharacterCount(curve->name));
    return LegendTextLeft + LegendMarkRadius + LegendGap +
           static_cast<double>(longest) * LegendCharacter;
}

void NormalizedPlot::DrawLegend(Drawing& drawing, double left, double top, std::size_t columns,
                                double columnWidth) const {
    for (std::size_t i = 0; i < curves_.size(); ++i) {
        const double x = left + static_cast<double>(i % columns) * columnWidth + LegendMarkRadius;
        const double y = top + (static_cast<double>(i / columns) + 0.5) * LegendLine;
        drawing.marks.push_back({x, y, LegendMarkRadius, static_cast<int>(i), true});
        DrawingLabel label;
        label.x = x + LegendTextLeft;
        label.y = y;
        label.text = curves_[i]->name;
        label.along = Along::Middle;
        label.points = LegendPoints;
        label.maxWidth = columnWidth - LegendTextLeft - LegendMarkRadius - LegendGap / 2;
        drawing.labels.push_back(std::move(label));
    }
}

Drawing NormalizedPlot::Make(double areaWidth, double areaHeight) {
    if (curves_.empty())
        return {};
    const double width = LegendWidth();
    const bool isBeside = width <= areaWidth * LegendPart;
    const auto fitting = static_cast<std::size_t>(std::max(1.0, (areaWidth - LegendGap) / width));
    const std::size_t columns = isBeside ? 1 : std::min(fitting, curves_.size());
    const double rows =
        std::ceil(static_cast<double>(curves_.size()) / static_cast<double>(columns));
    LinearAxes::Look axesLook;
    axesLook.right = isBeside ? width : 0;
    axesLook.bottom = isBeside ? 0 : rows * LegendLine;
    axesLook.yIsExponent = true;
    LinearAxes axes(areaWidth, areaHeight, Times(), Exponents(), axesLook);
    axes.DrawFrame(TimeTitle(), "Y/H0", Title());
    for (std::size_t i = 0; i < curves_.size(); ++i)
        for (const NormalizedPoint& point : curves_[i]->points)
            axes.Mark(point.timeSec / UnitOf(*curves_[i]), ExponentOf(point), static_cast<int>(i),
                      point.used);
    Drawing drawing = axes.Take();
    if (isBeside)
        DrawLegend(drawing, areaWidth - width, axes.Top(), columns, width);
    else
        DrawLegend(drawing, LegendGap, areaHeight - axesLook.bottom - LegendGap / 2, columns,
                   (areaWidth - LegendGap) / static_cast<double>(columns));
    return drawing;
}

/// What there is of number, date and slug test type.
std::string CurveName(std::size_t number, const CompareRow& row) {
    std::string name = "No. " + std::to_string(number);
    for (const std::string& part : {row.testDate, row.slugTestType})
        if (!part.empty())
            name += ", " + part;
    return name;
}

} // namespace

std::vector<NormalizedCurve> NormalizedCurves(std::span<const CompareRow> rows,
                                              std::span<const std::size_t> tests) {
    std::vector<NormalizedCurve> curves;
    for (const std::size_t test : tests) {
        const CompareRow& row = rows[test];
        NormalizedCurve curve;
        curve.name = CurveName(test + 1, row);
        curve.timeUnit = row.timeUnit;
        if (row.slopePerSec && *row.slopePerSec < 0)
            curve.timeLagSec = -1 / *row.slopePerSec;
        curve.points = row.points;
        curves.push_back(std::move(curve));
    }
    return curves;
}

Drawing DrawNormalized(const std::vector<NormalizedCurve>& curves, bool divideByTimeLag,
                       double areaWidth, double areaHeight) {
    return NormalizedPlot(curves, divideByTimeLag).Make(areaWidth, areaHeight);
}

} // namespace quarnel
