#include "diagnostics/LinearAxes.h"

#include "project/Texts.h"

#include <algorithm>
#include <cmath>

namespace quarnel {

namespace {

constexpr double LeftMargin = 1250;
constexpr double RightMargin = 400;
constexpr double TopMargin = 500;
constexpr double BottomMargin = 800;
constexpr double TitleTop = 150;
constexpr double LabelGap = 85;
constexpr double YTitleDistance = 1110;
constexpr double NumberWidth = 890;
constexpr double XTitleHeightsDown = 1.25;
constexpr double FrameWidth = 15;
constexpr double GridWidth = 8;
constexpr double PointRadius = 40;
constexpr double MarkRadius = 55;
constexpr double MinorTick = 40;
constexpr double Spot = 5;
constexpr int Intervals = 5;
/// A surface divided by a smaller range would be infinite.
constexpr double SmallestRange = 1e-290;
enum LabelGroup { XNumbers = 1, YNumbers = 2 };

LinearAxes::Range Usable(LinearAxes::Range range) {
    if (!std::isfinite(range.low) || !std::isfinite(range.high))
        return {0, 1};
    if (!(range.high - range.low > SmallestRange) || !std::isfinite(range.high - range.low))
        return {range.low - 0.5, range.low + 0.5};
    return range;
}

/// A step of 1, 2 or 5 times a power of ten that divides a range into about five.
double StepOf(const LinearAxes::Range& range) {
    const double raw = (range.high - range.low) / Intervals;
    const double power = std::pow(10.0, std::floor(std::log10(raw)));
    for (const double factor : {1.0, 2.0, 5.0})
        if (raw <= factor * power)
            return factor * power;
    return 10 * power;
}

/// The multiples of the step within a range.
std::vector<double> TicksOf(const LinearAxes::Range& range) {
    std::vector<double> ticks;
    const double step = StepOf(range);
    const double first = std::ceil(range.low / step);
    if (!(step > 0) || !std::isfinite(first))
        return ticks;
    for (int i = 0; i <= 2 * Intervals && (first + i) * step <= range.high; ++i)
        ticks.push_back((first + i) * step);
    return ticks;
}

/// A tick's number without the last digits that its product leaves.
std::string TickText(double value, double step) {
    return SingleToText(std::fabs(value) < step / 2 ? 0 : value);
}

/// Cuts the part from `from` to `to` of a line down to where one coordinate lies in its range.
void Cut(double start, double end, const LinearAxes::Range& range, double& from, double& to) {
    const double rise = end - start;
    if (rise == 0) {
        if (start < range.low || start > range.high)
            to = -1;
        return;
    }
    const double atLow = (range.low - start) / rise;
    const double atHigh = (range.high - start) / rise;
    from = std::max(from, std::min(atLow, atHigh));
    to = std::min(to, std::max(atLow, atHigh));
}

} // namespace

LinearAxes::LinearAxes(double areaWidth, double areaHeight, Range x, Range y, const Look& look)
    : x_(Usable(x))
    , y_(Usable(y))
    , look_(look)
    , left_(LeftMargin)
    , top_(TopMargin)
    , width_(std::max(0.0, areaWidth - LeftMargin - RightMargin - look.right))
    , height_(std::max(0.0, areaHeight - TopMargin - BottomMargin - look.bottom)) {
    drawing_.width = areaWidth;
    drawing_.height = areaHeight;
    perX_ = width_ / (x_.high - x_.low);
    perY_ = height_ / (y_.high - y_.low);
    columns_ = static_cast<std::size_t>(width_ / Spot) + 1;
    taken_.resize(columns_ * (static_cast<std::size_t>(height_ / Spot) + 1) * 2);
}

double LinearAxes::AtX(double x) const {
    return left_ + (x - x_.low) * perX_;
}

double LinearAxes::AtY(double y) const {
    return top_ + height_ - (y - y_.low) * perY_;
}

void LinearAxes::AddLine(double x1, double y1, double x2, double y2, DrawingColour colour,
                         double width) {
    DrawingLine line;
    line.x1 = x1;
    line.y1 = y1;
    line.x2 = x2;
    line.y2 = y2;
    line.colour = colour;
    line.width = width;
    drawing_.lines.push_back(line);
}

void LinearAxes::AddLabel(double x, double y, std::string text, Across across, Along along) {
    DrawingLabel label;
    label.x = x;
    label.y = y;
    label.text = std::move(text);
    label.across = across;
    label.along = along;
    drawing_.labels.push_back(std::move(label));
}

void LinearAxes::DrawTicksOfX() {
    const double bottom = top_ + height_;
    for (const double tick : TicksOf(x_)) {
        AddLine(AtX(tick), top_, AtX(tick), bottom, DrawingColour::Grid, GridWidth);
        AddLabel(AtX(tick), bottom + LabelGap, TickText(tick, StepOf(x_)), Across::Centre,
                 Along::Top);
        drawing_.labels.back().maxWidth = width_ / Intervals;
        drawing_.labels.back().group = XNumbers;
    }
}

void LinearAxes::DrawTicksOfY() {
    for (const double tick : TicksOf(y_)) {
        AddLine(left_, AtY(tick), left_ + width_, AtY(tick), DrawingColour::Grid, GridWidth);
        AddLabel(left_ - LabelGap, AtY(tick), TickText(tick, StepOf(y_)), Across::Right,
                 Along::Middle);
        drawing_.labels.back().maxWidth = NumberWidth;
        drawing_.labels.back().group = YNumbers;
    }
}

/// The powers of ten with a line each, and ticks at their multiples between.
void LinearAxes::DrawDecades() {
    for (double exponent = std::ceil(y_.low); exponent <= y_.high; ++exponent) {
        AddLine(left_, AtY(exponent), left_ + width_, AtY(exponent), DrawingColour::Grid,
                GridWidth);
        AddLabel(left_ - LabelGap, AtY(exponent), DoubleToText(std::pow(10.0, exponent)),
                 Across::Right, Along::Middle);
        drawing_.labels.back().maxWidth = NumberWidth;
        drawing_.labels.back().maxHeight = height_ / (y_.high - y_.low);
        drawing_.labels.back().group = YNumbers;
        for (int multiple = 2; multiple < 10 && exponent < y_.high; ++multiple) {
            const double y = AtY(exponent + std::log10(multiple));
            AddLine(left_ - MinorTick, y, left_, y, DrawingColour::Ink, FrameWidth);
        }
    }
}

void LinearAxes::DrawFrame(const std::string& xTitle, const std::string& yTitle,
                           const std::string& title) {
    const double right = left_ + width_;
    const double bottom = top_ + height_;
    DrawTicksOfX();
    if (look_.yIsExponent)
        DrawDecades();
    else
        DrawTicksOfY();
    AddLine(left_, top_, left_, bottom, DrawingColour::Ink, FrameWidth);
    AddLine(right, top_, right, bottom, DrawingColour::Ink, FrameWidth);
    AddLine(left_, top_, right, top_, DrawingColour::Ink, FrameWidth);
    AddLine(left_, bottom, right, bottom, DrawingColour::Ink, FrameWidth);
    AddLabel(left_ + width_ / 2, bottom + LabelGap, xTitle, Across::Centre, Along::Top);
    drawing_.labels.back().heightsDown = XTitleHeightsDown;
    AddLabel(left_ - YTitleDistance, top_ + height_ / 2, yTitle, Across::Centre, Along::Middle);
    drawing_.labels.back().turned = true;
    if (title.empty())
        return;
    AddLabel(left_ + width_ / 2, TitleTop, title, Across::Centre, Along::Top);
    drawing_.labels.back().maxWidth = drawing_.width;
}

void LinearAxes::Line(double x1, double y1, double x2, double y2, DrawingColour colour,
                      double width, bool dashed) {
    for (const double value : {x1, y1, x2, y2})
        if (!std::isfinite(value))
            return;
    double from = 0;
    double to = 1;
    Cut(x1, x2, x_, from, to);
    Cut(y1, y2, y_, from, to);
    if (!(from < to))
        return;
    const auto along = [](double a, double b, double part) { return a + (b - a) * part; };
    AddLine(AtX(along(x1, x2, from)), AtY(along(y1, y2, from)), AtX(along(x1, x2, to)),
            AtY(along(y1, y2, to)), colour, width);
    drawing_.lines.back().dashed = dashed;
}

bool LinearAxes::IsOnAxes(double x, double y) const {
    return x >= x_.low && x <= x_.high && y >= y_.low && y <= y_.high;
}

void LinearAxes::Mark(double x, double y, int series, bool isFilled) {
    if (IsOnAxes(x, y))
        drawing_.marks.push_back({AtX(x), AtY(y), MarkRadius, series, isFilled});
}

void LinearAxes::Point(double x, double y, DrawingColour colour) {
    if (!IsOnAxes(x, y))
        return;
    const double atX = AtX(x);
    const double atY = AtY(y);
    const auto column = static_cast<std::size_t>((atX - left_) / Spot);
    const auto row = static_cast<std::size_t>((atY - top_) / Spot);
    const std::size_t spot = (row * columns_ + column) * 2 + (colour == DrawingColour::Red ? 1 : 0);
    if (spot >= taken_.size() || taken_[spot])
        return;
    taken_[spot] = true;
    drawing_.circles.push_back({atX, atY, PointRadius, colour});
}

} // namespace quarnel
