#include "diagnostics/ResidualDrawing.h"

#include "diagnostics/DiagnosticsLines.h"
#include "diagnostics/LinearAxes.h"
#include "project/FixedLists.h"

#include <algorithm>
#include <cmath>

namespace quarnel {

namespace {

constexpr double LineWidth = 25;
constexpr double ThinWidth = 12;
/// Room beyond the outermost points, as a part of their spread.
constexpr double Room = 0.05;
/// Pieces of which a curve is made.
constexpr int CurvePieces = 120;

/// Times in the entered unit.
class TimeScale {
public:
    explicit TimeScale(const Computation& computation)
        : unit_(computation.recovery.timeUnit)
        , secPerUnit_(UnitFactorToSec(unit_)) {}
    double FromSec(double timeSec) const { return timeSec / secPerUnit_; }
    double ToSec(double time) const { return time * secPerUnit_; }
    std::string Title() const { return "Time (" + std::string(NameAt(TimeUnitNames, unit_)) + ")"; }

private:
    int unit_;
    double secPerUnit_;
};

LinearAxes::Range TimeRange(const Series& series, const TimeScale& scale) {
    return {0, scale.FromSec(series.timeSec.back()) * (1 + Room)};
}

LinearAxes::Range LevelRange(const Series& series) {
    const auto [least, greatest] = std::minmax_element(series.lnYCm.begin(), series.lnYCm.end());
    const double room = (*greatest - *least) * Room;
    return {*least - room, *greatest + room};
}

void DrawLineOver(LinearAxes& axes, const TimeScale& scale, double intercept, double slope,
                  double fromSec, double toSec, bool isSegment) {
    axes.Line(scale.FromSec(fromSec), intercept + slope * fromSec, scale.FromSec(toSec),
              intercept + slope * toSec, isSegment ? DrawingColour::Grey : DrawingColour::Red,
              LineWidth, isSegment);
}

void DrawBothSegments(LinearAxes& axes, const TimeScale& scale, const TwoSegments& segments) {
    const double endSec = scale.ToSec(axes.X().high);
    DrawLineOver(axes, scale, segments.early.intercept, segments.early.slope, 0, endSec, true);
    DrawLineOver(axes, scale, segments.late.intercept, segments.late.slope, 0, endSec, true);
}

/// How far from zero the axis of the residuals reaches.
double ResidualReach(const FitStatistics& fit) {
    if (!(fit.scatter->sse > 0))
        return 1;
    double reach = 2 * fit.scatter->residualSd;
    for (const double e : fit.residuals)
        reach = std::max(reach, std::fabs(e));
    return reach * (1 + Room);
}

/// Half a reading step more and less than the fitted Y, as a residual would show it.
void DrawReadingStep(LinearAxes& axes, const TimeScale& scale, const FittedLine& line,
                     double stepCm) {
    for (const double sign : {1.0, -1.0}) {
        const auto at = [&](double time) {
            const double part = stepCm / (2 * FittedYCm(line, scale.ToSec(time)));
            // Beyond half the fitted Y there is no logarithm; the line is left out there.
            return part < 1 ? std::log1p(sign * part) : std::nan("");
        };
        const double width = (axes.X().high - axes.X().low) / CurvePieces;
        for (int i = 0; i < CurvePieces; ++i) {
            const double from = axes.X().low + i * width;
            axes.Line(from, at(from), from + width, at(from + width), DrawingColour::Grey,
                      ThinWidth);
        }
    }
}

/// A surface with nothing but a sentence on it.
Drawing OnlyText(double areaWidth, double areaHeight, std::string_view text) {
    Drawing drawing;
    drawing.width = areaWidth;
    drawing.height = areaHeight;
    DrawingLabel label;
    label.x = areaWidth / 2;
    label.y = areaHeight / 2;
    label.text = text;
    label.across = Across::Centre;
    label.along = Along::Middle;
    label.maxWidth = areaWidth;
    drawing.labels.push_back(std::move(label));
    return drawing;
}

} // namespace

Drawing DrawSegments(Diagnostics& diagnostics, double areaWidth, double areaHeight) {
    const Computation& computation = diagnostics.Source();
    const TimeScale scale(computation);
    const TestSeries& points = diagnostics.Points();
    const Series valid = points.Valid();
    LinearAxes axes(areaWidth, areaHeight, TimeRange(valid, scale), LevelRange(valid));
    axes.DrawFrame(scale.Title(), "ln Y (cm)", "");
    for (std::size_t i = 0; i < valid.Size(); ++i)
        axes.Point(scale.FromSec(valid.timeSec[i]), valid.lnYCm[i],
                   IsUsed(computation, points.ValidPoints()[i]) ? DrawingColour::Red
                                                                : DrawingColour::Blue);
    DrawLineOver(axes, scale, computation.line.intercept, computation.line.slope, 0,
                 scale.ToSec(axes.X().high), false);
    const std::optional<TwoSegments>& segments = diagnostics.Windows().segments;
    if (segments && segments->suggested)
        DrawBothSegments(axes, scale, *segments);
    return axes.Take();
}

Drawing DrawResiduals(Diagnostics& diagnostics, double areaWidth, double areaHeight) {
    const StatisticsPage& page = diagnostics.Statistics();
    const FitStatistics& fit = page.fit;
    if (!fit.scatter)
        return OnlyText(areaWidth, areaHeight, NoResidualsText);
    const Computation& computation = diagnostics.Source();
    const TimeScale scale(computation);
    const Series used = diagnostics.Points().Used();
    const double reach = ResidualReach(fit);
    LinearAxes axes(areaWidth, areaHeight, TimeRange(used, scale), {-reach, reach});
    axes.DrawFrame(scale.Title(), "Residual of ln Y", DiagnosticsLines::ResidualTitle(fit));
    const double end = axes.X().high;
    axes.Line(0, 0, end, 0, DrawingColour::Ink, ThinWidth);
    if (const double s = fit.scatter->residualSd; s > 0)
        for (const double level : {-2 * s, 2 * s})
            axes.Line(0, level, end, level, DrawingColour::Grey, ThinWidth, true);
    if (page.readingStepCm)
        DrawReadingStep(axes, scale, computation.line, *page.readingStepCm);
    for (std::size_t i = 0; i < used.Size(); ++i)
        axes.Point(scale.FromSec(used.timeSec[i]), fit.residuals[i], DrawingColour::Red);
    return axes.Take();
}

} // namespace quarnel
