#include "output/PlotDrawing.h"

#include "kcompute/NumberToText.h"
#include "project/Texts.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <unordered_set>

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
/// Room between the Y axis and its title, for the widest decade label.
constexpr double YTitleDistance = 950;
constexpr double AxisWidth = 15;
constexpr double GridWidth = 8;
constexpr double FittedWidth = 25;

/// Draws one plot; positions come from the axes' bounds and the layout.
class PlotMaker {
public:
    PlotMaker(const ComputedValues& computed, const PlotLayout& layout)
        : computed_(computed)
        , layout_(layout)
        , low_(std::log10(computed.bounds.PlotYAxisMin))
        , range_(std::log10(computed.bounds.PlotYAxisMax) - low_) {
        drawing_.width = layout.surfaceWidth;
        drawing_.height = layout.surfaceHeight;
    }

    PlotDrawing Make() {
        DrawTimeAxis();
        DrawYAxis();
        DrawTitles();
        DrawPoints();
        DrawFittedLine();
        return std::move(drawing_);
    }

private:
    double Right() const { return layout_.left + layout_.plotWidth; }
    double AxisY() const { return layout_.top + layout_.plotHeight; }
    double TimeX(double time) const {
        return layout_.left + time / computed_.bounds.PlotMaxTime * layout_.plotWidth;
    }
    double LogX(double log10Y) const {
        return AxisY() - (log10Y - low_) / range_ * layout_.plotHeight;
    }

    void Line(double x1, double y1, double x2, double y2, PlotColour colour, double width) {
        drawing_.lines.push_back({x1, y1, x2, y2, colour, width});
    }
    PlotLabel& Label(double x, double y, std::string text, Across across, Along along) {
        PlotLabel label;
        label.x = x;
        label.y = y;
        label.text = std::move(text);
        label.across = across;
        label.along = along;
        label.points = layout_.points;
        drawing_.labels.push_back(std::move(label));
        return drawing_.labels.back();
    }

    void DrawTimeAxis();
    void DrawYAxis();
    void DrawDecade(int exponent);
    void DecadeLabel(int exponent);
    void DrawTitles();
    void DrawFittedLine();
    void DrawPoints();
    std::optional<double> MeetingTime(double bound) const;

    const ComputedValues& computed_;
    const PlotLayout& layout_;
    double low_;
    double range_;
    PlotDrawing drawing_;
};

void PlotMaker::DrawTimeAxis() {
    const double step = layout_.plotWidth / TimeIntervals;
    for (int i = 0; i <= TimeIntervals; ++i) {
        const double x = layout_.left + i * step;
        const bool edge = i == 0 || i == TimeIntervals;
        Line(x, layout_.top, x, AxisY(), edge ? PlotColour::Ink : PlotColour::Grid,
             edge ? AxisWidth : GridWidth);
        Line(x, AxisY(), x, AxisY() + Tick, PlotColour::Ink, AxisWidth);
        const double time = static_cast<double>(i) / TimeIntervals * computed_.bounds.PlotMaxTime;
        Label(x, AxisY() + LabelGap, NumberToText(TwoDecimals, static_cast<float>(time)),
              Across::Centre, Along::Top);
    }
    Line(layout_.left, AxisY(), Right(), AxisY(), PlotColour::Ink, AxisWidth);
    Line(layout_.left, layout_.top, Right(), layout_.top, PlotColour::Ink, AxisWidth);
}

void PlotMaker::DecadeLabel(int exponent) {
    const double y = LogX(exponent);
    Line(layout_.left - Tick, y, layout_.left, y, PlotColour::Ink, AxisWidth);
    Label(layout_.left - LabelGap, y, DoubleToText(std::pow(10.0, exponent)), Across::Right,
          Along::Middle);
}

void PlotMaker::DrawDecade(int exponent) {
    for (int j = 1; j <= 10; ++j) {
        const double y = LogX(std::log10(j) + exponent);
        if (j < 10)
            Line(layout_.left - MinorTick, y, layout_.left, y, PlotColour::Ink, AxisWidth);
        else
            DecadeLabel(exponent + 1);
    }
    if (exponent > std::lround(low_))
        Line(layout_.left, LogX(exponent), Right(), LogX(exponent), PlotColour::Grid, GridWidth);
}

void PlotMaker::DrawYAxis() {
    const int low = static_cast<int>(std::lround(low_));
    const int high = static_cast<int>(std::lround(low_ + range_));
    DecadeLabel(low);
    for (int exponent = low; exponent < high; ++exponent)
        DrawDecade(exponent);
}

void PlotMaker::DrawTitles() {
    const std::string time(NameAt(TimeUnitNames, computed_.timeUnit));
    const std::string level(NameAt(LengthUnitNames, computed_.levelUnit));
    Label(layout_.left + layout_.plotWidth / 2, AxisY() + LabelGap, "Time (" + time + ")",
          Across::Centre, Along::Top)
        .heightsDown = TitleHeightsDown;
    Label(layout_.left - YTitleDistance, layout_.top + layout_.plotHeight / 2, "Y(" + level + ")",
          Across::Centre, Along::Middle)
        .turned = true;
}

/// The time (entered unit) at which the fitted line meets a bound of the Y axis.
std::optional<double> PlotMaker::MeetingTime(double bound) const {
    const double lnBound = std::log(bound * UnitFactorToCm(computed_.levelUnit));
    const double time = (lnBound - computed_.FitIntercept) / computed_.FitSlope /
                        UnitFactorToSec(computed_.timeUnit);
    return std::isfinite(time) ? std::optional<double>(time) : std::nullopt;
}

void PlotMaker::DrawFittedLine() {
    if (!FittedLineFalls(computed_))
        return;
    // A falling line enters at the upper bound and leaves at the lower one.
    const std::optional<double> enters = MeetingTime(computed_.bounds.PlotYAxisMax);
    const std::optional<double> leaves = MeetingTime(computed_.bounds.PlotYAxisMin);
    if (!enters || !leaves)
        return;
    const double start = std::max(0.0, *enters);
    const double end = std::min(computed_.bounds.PlotMaxTime, *leaves);
    if (!(start < end))
        return;
    const double lnCm = std::log(UnitFactorToCm(computed_.levelUnit));
    const auto log10Y = [&](double time) {
        const double lnY = computed_.FitIntercept +
                           computed_.FitSlope * time * UnitFactorToSec(computed_.timeUnit) - lnCm;
        return std::clamp(lnY / std::log(10.0), low_, low_ + range_);
    };
    Line(TimeX(start), LogX(log10Y(start)), TimeX(end), LogX(log10Y(end)), PlotColour::Red,
         FittedWidth);
}

void PlotMaker::DrawPoints() {
    std::unordered_set<std::uint64_t> taken;
    for (const RecoveryPoint& point : *computed_.RecoveryPoints) {
        if (!(point.y > 0))
            continue;
        const double x = TimeX(point.time);
        const double y = LogX(point.log10Y);
        if (!std::isfinite(x) || !std::isfinite(y))
            continue;
        const bool used = point.weight > 0;
        const auto column = static_cast<std::int32_t>(std::lround(x / layout_.spot));
        const auto row = static_cast<std::int32_t>(std::lround(y / layout_.spot));
        const std::uint64_t spot =
            (static_cast<std::uint64_t>(static_cast<std::uint32_t>(column)) << 33U) |
            (static_cast<std::uint64_t>(static_cast<std::uint32_t>(row)) << 1U) | (used ? 1U : 0U);
        if (taken.insert(spot).second)
            drawing_.circles.push_back(
                {x, y, layout_.circleRadius, used ? PlotColour::Red : PlotColour::Blue});
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

PlotDrawing DrawPlot(const ComputedValues& computed, const PlotLayout& layout) {
    return PlotMaker(computed, layout).Make();
}

bool FittedLineFalls(const ComputedValues& computed) {
    return computed.FitSlope < 0;
}

} // namespace quarnel
