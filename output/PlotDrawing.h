#pragma once

#include "kcompute/Computation.h"
#include "kcompute/LeastSquares.h"
#include "kcompute/UseIgnore.h"
#include "kcompute/WorkingValues.h"
#include "output/Drawing.h"
#include "recovery/RecoveryData.h"

#include <cstddef>
#include <vector>

namespace quarnel {

/// Where on a surface the plot stands, and how large its marks are (twips).
struct PlotLayout {
    double surfaceWidth = 0, surfaceHeight = 0;
    double left = 0;       ///< x of the Y axis
    double top = 0;        ///< y of the top of the plot
    double plotWidth = 0;  ///< length of the time axis
    double plotHeight = 0; ///< length of the Y axis
    double circleRadius = 50;
    double spot = 5;   ///< points of one colour that share a square of this side are drawn once
    double points = 9; ///< font size of labels
    /// Whether the range of 0.20 to 0.30 of the first change in head is shown as a band.
    bool showHeadRange = false;
};

inline constexpr int TimeIntervals = 5; ///< divisions of the time axis

/// Groups of labels: those of one axis, or of the legend, are set in one size.
enum LabelGroup { TimeLabels = 1, DecadeLabels = 2, LegendLabels = 3 };

/// The layout of the plot area on screen, for an area of the given size.
PlotLayout ScreenPlotLayout(double areaWidth, double areaHeight);

/// Where times and Y stand on the surface of a plot (twips).
class PlotAxes {
public:
    /// Y runs from log10 of the lower bound to that of the upper one, time from 0 on.
    PlotAxes(const PlotBounds& bounds, const PlotLayout& layout);

    /// x of a time (entered unit); where the time axis has no length, all stand at its beginning.
    double TimeX(double time) const;
    /// y of log10 of a Y (entered unit).
    double LogY(double log10Y) const;

    double Low() const { return low_; }     ///< log10 of Y at the lower end of its axis
    double Range() const { return range_; } ///< decades of the Y axis; 0 before any check
    double Left() const { return left_; }
    double Top() const { return top_; }
    double Right() const { return left_ + plotWidth_; }
    double Bottom() const { return top_ + plotHeight_; }

private:
    double maxTime_;
    double low_;
    double range_;
    double left_, top_, plotWidth_, plotHeight_;
};

/// What a plot shows. It refers to its source, which must outlive it.
struct PlotContents {
    /// A computation: its line, and the points it used told from the others.
    explicit PlotContents(const Computation& computation);
    /// Prepared points, none of them used in a fit.
    explicit PlotContents(const WorkingValues& working);

    /// Whether the point (counted from 0) entered the fit.
    bool IsUsed(std::size_t point) const {
        return marks != nullptr && (*marks)[point] == Mark::Use;
    }

    const RecoveryData& recovery;
    const std::vector<Mark>* marks = nullptr; ///< null: no point was used
    const FittedLine* line = nullptr;         ///< null: no line to draw
    const WellDimensions* well = nullptr;     ///< null: no range of the head to show
};

/// Draws axes, fitted line and points. The line is left out where it does not fall, a point where
/// Y <= 0 (it has no logarithm) or where its circle lies wholly outside the surface.
Drawing DrawPlot(const PlotContents& contents, const PlotLayout& layout);

} // namespace quarnel
