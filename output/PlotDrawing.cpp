#include "output/PlotDrawing.h"

#include "kcompute/FirstChange.h"
#include "kcompute/NumberToText.h"
#include "project/FixedLists.h"
#include "project/Texts.h"
#include "recovery/RecoveryData.h"
#include "wellgeometry/WellGeometry.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

namespace quarnel {

namespace {

constexpr double LeftMargin = 1250;
constexpr double RightMargin = 750;
constexpr double TopMargin = 1000;
constexpr double BottomMargin = 1000;
constexpr double Tick = 75;
constexpr double MinorTick = 40;
constexpr double LabelGap = 85;
constexpr double TitleHeightsDown = 1.25;
/// The middle of the Y axis title stands this far left of the axis, and decade labels keep clear of
/// it: "1000000" in a wide font is some 800 wide, a text line some 210 tall.
constexpr double YTitleDistance = 1110;
constexpr double DecadeLabelWidth = 890;
/// Part of the way to the next tick that a label of the time axis may take.
constexpr double TimeLabelPart = 0.9;
/// A label between two decades takes at most this part of a decade's height.
constexpr double DecadeLabelPart = 0.95;

constexpr double AxisWidth = 15;
constexpr double GridWidth = 8;
constexpr double FittedWidth = 25;
constexpr double EdgeWidth = 8;
constexpr double HeadRangePoints = 9;

/// Draws one plot; positions come from the axes' bounds and the layout.
class PlotMaker {
public:
    PlotMaker(const PlotContents& contents, const PlotLayout& layout)
        : contents_(contents)
        , recovery_(contents.recovery)
        , layout_(layout)
        , axes_(recovery_.bounds, layout)
        , low_(axes_.Low())
        , range_(axes_.Range()) {
        drawing_.width = layout.surfaceWidth;
        drawing_.height = layout.surfaceHeight;
    }

    Drawing Make() {
        // Before any check there are no bounds, and so no axes to draw on.
        if (!(range_ > 0))
            return {};
        if (layout_.showHeadRange)
            DrawHeadRange();
        DrawTimeAxis();
        DrawYAxis();
        DrawTitles();
        DrawPoints();
        DrawFittedLine();
        return std::move(drawing_);
    }

private:
    double Right() const { return axes_.Right(); }
    double AxisY() const { return axes_.Bottom(); }
    double TimeX(double time) const { return axes_.TimeX(time); }
    double LogY(double log10Y) const { return axes_.LogY(log10Y); }

    void Line(double x1, double y1, double x2, double y2, DrawingColour colour, double width) {
        drawing_.lines.push_back({x1, y1, x2, y2, colour, width});
    }
    DrawingLabel& Label(double x, double y, std::string text, Across across, Along along) {
        DrawingLabel label;
        label.x = x;
        label.y = y;
        label.text = std::move(text);
        label.across = across;
        label.along = along;
        label.points = layout_.points;
        drawing_.labels.push_back(std::move(label));
        return drawing_.labels.back();
    }

    void DrawHeadRange();
    void DrawTimeAxis();
    void DrawYAxis();
    void DrawDecade(int exponent);
    void DecadeLabel(int exponent);
    void DrawTitles();
    void DrawFittedLine();
    void DrawPoints();
    double MeetingTime(double bound) const;
    bool IsOnSurface(double x, double y) const;

    const PlotContents& contents_;
    const RecoveryData& recovery_;
    const PlotLayout& layout_;
    PlotAxes axes_;
    double low_;
    double range_;
    Drawing drawing_;
};

/// The band in which the points should lie that K is read from, cut to the Y axis.
void PlotMaker::DrawHeadRange() {
    const RecoveryPoint* first = FirstValidPoint(*recovery_.RecoveryPoints);
    if (contents_.well == nullptr || first == nullptr)
        return;
    const double low = std::log10(HeadRangeLow * first->y);
    const double high = std::log10(HeadRangeHigh * first->y);
    const double bottom = LogY(std::max(low, low_));
    const double top = LogY(std::min(high, low_ + range_));
    if (!(top < bottom))
        return;
    drawing_.areas.push_back(
        {layout_.left, top, layout_.plotWidth, bottom - top, DrawingColour::Band});
    for (const double edge : {low, high})
        if (edge >= low_ && edge <= low_ + range_)
            Line(layout_.left, LogY(edge), Right(), LogY(edge), DrawingColour::Grey, EdgeWidth);
    DrawingLabel& label = Label(Right() - LabelGap, (top + bottom) / 2,
                                IsScreenAtWaterTable(*contents_.well)
                                    ? "0.20-0.30 of H0 (meant for screens below the water table)"
                                    : "0.20-0.30 of H0",
                                Across::Right, Along::Middle);
    label.points = HeadRangePoints;
    label.maxWidth = layout_.plotWidth - 2 * LabelGap;
    label.maxHeight = bottom - top;
}

void PlotMaker::DrawTimeAxis() {
    const double step = layout_.plotWidth / TimeIntervals;
    for (int i = 0; i <= TimeIntervals; ++i) {
        const double x = layout_.left + i * step;
        const bool edge = i == 0 || i == TimeIntervals;
        Line(x, layout_.top, x, AxisY(), edge ? DrawingColour::Ink : DrawingColour::Grid,
             edge ? AxisWidth : GridWidth);
        Line(x, AxisY(), x, AxisY() + Tick, DrawingColour::Ink, AxisWidth);
        const double time = static_cast<double>(i) / TimeIntervals * recovery_.bounds.PlotMaxTime;
        DrawingLabel& label =
            Label(x, AxisY() + LabelGap, NumberToText(TwoDecimals, static_cast<float>(time)),
                  Across::Centre, Along::Top);
        label.maxWidth = step * TimeLabelPart;
        label.group = TimeLabels;
    }
    Line(layout_.left, AxisY(), Right(), AxisY(), DrawingColour::Ink, AxisWidth);
    Line(layout_.left, layout_.top, Right(), layout_.top, DrawingColour::Ink, AxisWidth);
}

void PlotMaker::DecadeLabel(int exponent) {
    const double y = LogY(exponent);
    Line(layout_.left - Tick, y, layout_.left, y, DrawingColour::Ink, AxisWidth);
    DrawingLabel& label = Label(layout_.left - LabelGap, y, DoubleToText(std::pow(10.0, exponent)),
                                Across::Right, Along::Middle);
    label.maxWidth = DecadeLabelWidth;
    label.maxHeight = layout_.plotHeight / range_ * DecadeLabelPart;
    label.group = DecadeLabels;
}

void PlotMaker::DrawDecade(int exponent) {
    for (int j = 1; j <= 10; ++j) {
        const double y = LogY(std::log10(j) + exponent);
        if (j < 10)
            Line(layout_.left - MinorTick, y, layout_.left, y, DrawingColour::Ink, AxisWidth);
        else
            DecadeLabel(exponent + 1);
    }
    if (exponent > std::lround(low_))
        Line(layout_.left, LogY(exponent), Right(), LogY(exponent), DrawingColour::Grid, GridWidth);
}

void PlotMaker::DrawYAxis() {
    const int low = static_cast<int>(std::lround(low_));
    const int high = static_cast<int>(std::lround(low_ + range_));
    DecadeLabel(low);
    for (int exponent = low; exponent < high; ++exponent)
        DrawDecade(exponent);
}

void PlotMaker::DrawTitles() {
    const std::string time(NameAt(TimeUnitNames, recovery_.timeUnit));
    const std::string level(NameAt(LengthUnitNames, recovery_.levelUnit));
    Label(layout_.left + layout_.plotWidth / 2, AxisY() + LabelGap, "Time (" + time + ")",
          Across::Centre, Along::Top)
        .heightsDown = TitleHeightsDown;
    Label(layout_.left - YTitleDistance, layout_.top + layout_.plotHeight / 2, "Y(" + level + ")",
          Across::Centre, Along::Middle)
        .turned = true;
}

/// The time (entered unit) at which the fitted line meets a bound of the Y axis; infinite for a
/// line so flat that it meets it nowhere.
double PlotMaker::MeetingTime(double bound) const {
    const double lnBound = std::log(bound * UnitFactorToCm(recovery_.levelUnit));
    return (lnBound - contents_.line->intercept) / contents_.line->slope /
           UnitFactorToSec(recovery_.timeUnit);
}

void PlotMaker::DrawFittedLine() {
    if (contents_.line == nullptr || !contents_.line->Falls())
        return;
    // A falling line enters at the upper bound and leaves at the lower one.
    const double start = std::max(0.0, MeetingTime(recovery_.bounds.PlotYAxisMax));
    const double end =
        std::min(recovery_.bounds.PlotMaxTime, MeetingTime(recovery_.bounds.PlotYAxisMin));
    if (!(start < end))
        return;
    const double lnCm = std::log(UnitFactorToCm(recovery_.levelUnit));
    const auto log10Y = [&](double time) {
        const double lnY = contents_.line->intercept +
                           contents_.line->slope * time * UnitFactorToSec(recovery_.timeUnit) -
                           lnCm;
        return std::clamp(lnY / std::log(10.0), low_, low_ + range_);
    };
    Line(TimeX(start), LogY(log10Y(start)), TimeX(end), LogY(log10Y(end)), DrawingColour::Red,
         FittedWidth);
}

bool PlotMaker::IsOnSurface(double x, double y) const {
    const double reach = layout_.circleRadius;
    return x >= -reach && x <= layout_.surfaceWidth + reach && y >= -reach &&
           y <= layout_.surfaceHeight + reach;
}

void PlotMaker::DrawPoints() {
    // One bit for each spot and colour: a million points cost no more memory than a few.
    const auto offset = layout_.circleRadius;
    const auto columns =
        static_cast<std::size_t>((layout_.surfaceWidth + 2 * offset) / layout_.spot + 1);
    const auto rows =
        static_cast<std::size_t>((layout_.surfaceHeight + 2 * offset) / layout_.spot + 1);
    std::vector<bool> taken(columns * rows * 2);
    const RecoveryPointList& points = *recovery_.RecoveryPoints;
    for (std::size_t k = 0; k < points.size(); ++k) {
        const RecoveryPoint& point = points[k];
        if (!(point.y > 0))
            continue;
        const double x = TimeX(point.time);
        const double y = LogY(point.Log10Y());
        if (!IsOnSurface(x, y))
            continue;
        const bool used = contents_.IsUsed(k);
        const auto column = static_cast<std::size_t>((x + offset) / layout_.spot);
        const auto row = static_cast<std::size_t>((y + offset) / layout_.spot);
        const std::size_t spot = (row * columns + column) * 2 + (used ? 1 : 0);
        if (taken[spot])
            continue;
        taken[spot] = true;
        drawing_.circles.push_back(
            {x, y, layout_.circleRadius, used ? DrawingColour::Red : DrawingColour::Blue});
    }
}

} // namespace

PlotLayout ScreenPlotLayout(double areaWidth, double areaHeight) {
    PlotLayout layout;
    layout.surfaceWidth = areaWidth;
    layout.surfaceHeight = areaHeight;
    layout.left = LeftMargin;
    layout.top = TopMargin;
    layout.plotWidth = std::max(0.0, areaWidth - RightMargin - LeftMargin);
    layout.plotHeight = std::max(0.0, areaHeight - BottomMargin - TopMargin);
    return layout;
}

PlotAxes::PlotAxes(const PlotBounds& bounds, const PlotLayout& layout)
    : maxTime_(bounds.PlotMaxTime)
    , low_(std::log10(bounds.PlotYAxisMin))
    , range_(std::log10(bounds.PlotYAxisMax) - low_)
    , left_(layout.left)
    , top_(layout.top)
    , plotWidth_(layout.plotWidth)
    , plotHeight_(layout.plotHeight) {}

double PlotAxes::TimeX(double time) const {
    return left_ + (maxTime_ > 0 ? time / maxTime_ * plotWidth_ : 0);
}

double PlotAxes::LogY(double log10Y) const {
    return Bottom() - (log10Y - low_) / range_ * plotHeight_;
}

PlotContents::PlotContents(const Computation& computation)
    : recovery(computation.recovery)
    , marks(&computation.marks)
    , line(&computation.line)
    , well(&computation.geometry) {}

PlotContents::PlotContents(const WorkingValues& working)
    : recovery(working.recovery) {}

Drawing DrawPlot(const PlotContents& contents, const PlotLayout& layout) {
    return PlotMaker(contents, layout).Make();
}

} // namespace quarnel
