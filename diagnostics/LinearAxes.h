#pragma once

#include "output/Drawing.h"

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace quarnel {

/// A plot of two linear axes, or of a logarithmic Y axis, on its way to a drawing. What lies
/// outside the axes is cut off.
class LinearAxes {
public:
    /// The first and last value of an axis.
    struct Range {
        double low = 0, high = 1;
    };

    /// Room that is left free beside and below the axes, in twips, and what the Y axis counts.
    struct Look {
        double right = 0, bottom = 0;
        /// The values of Y are exponents of ten: the axis shows the powers themselves.
        bool yIsExponent = false;
    };

    /// An area in twips. A range without width, or one that is not finite, is made one.
    LinearAxes(double areaWidth, double areaHeight, Range x, Range y)
        : LinearAxes(areaWidth, areaHeight, x, y, Look()) {}
    LinearAxes(double areaWidth, double areaHeight, Range x, Range y, const Look& look);

    /// Frame, grid and numbers, with the titles of both axes and one above.
    void DrawFrame(const std::string& xTitle, const std::string& yTitle, const std::string& title);
    void Line(double x1, double y1, double x2, double y2, DrawingColour colour, double width,
              bool dashed = false);
    /// A point; of those that fall on one spot in one colour only the first is drawn.
    void Point(double x, double y, DrawingColour colour);
    /// A mark of one of the series that a drawing tells apart.
    void Mark(double x, double y, int series, bool isFilled);
    double Top() const { return top_; }
    Drawing Take() { return std::move(drawing_); }

    const Range& X() const { return x_; }
    const Range& Y() const { return y_; }

private:
    double AtX(double x) const;
    double AtY(double y) const;
    void DrawTicksOfX();
    void DrawTicksOfY();
    void DrawDecades();
    bool IsOnAxes(double x, double y) const;
    void AddLine(double x1, double y1, double x2, double y2, DrawingColour colour, double width);
    void AddLabel(double x, double y, std::string text, Across across, Along along);

    Range x_, y_;
    Look look_;
    double left_, top_, width_, height_;
    double perX_ = 0, perY_ = 0; ///< twips
    std::size_t columns_ = 0;    ///< of spots
    std::vector<bool> taken_;    ///< one bit a spot and colour
    Drawing drawing_;
};

} // namespace quarnel
