#pragma once

#include "kcompute/Computation.h"
#include "kcompute/WorkingValues.h"

#include <string>
#include <vector>

namespace quarnel {

/// What a stroke is drawn in. Ink, Grid, Grey and Band follow the surface (text colour, a pale
/// line, one between both, an area that points stand out from); the points and the fitted line have
/// fixed colours: Red (255, 0, 0) and Blue (0, 0, 255).
enum class PlotColour { Ink, Grid, Red, Blue, Grey, Band };

enum class Across { Left, Centre, Right };
enum class Along { Top, Middle, Bottom };

// All positions and lengths are twips (1/1440 inch), x to the right and y down.

struct PlotLine {
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    PlotColour colour = PlotColour::Ink;
    double width = 0;
    bool dashed = false;
};

/// A filled area without an outline, from its upper left corner.
struct PlotArea {
    double x = 0, y = 0, width = 0, height = 0;
    PlotColour colour = PlotColour::Band;
};

struct PlotCircle {
    double x = 0, y = 0;
    double radius = 0;
    PlotColour colour = PlotColour::Red;
};

/// A text held at (x, y) by the given edges; it is measured only when painted. A text that stands
/// `heightsDown` text heights below y says so, since a drawing does not know how tall its text is.
struct PlotLabel {
    double x = 0, y = 0;
    std::string text;
    Across across = Across::Left;
    Along along = Along::Top;
    double heightsDown = 0;
    double points = 9;    ///< font size
    bool turned = false;  ///< reads upwards, its middle at (x, y)
    double maxWidth = 0;  ///< a wider text is set smaller until it fits; 0 for no bound
    double maxHeight = 0; ///< the same for a taller text
    int group = 0;        ///< labels of one group above 0 are all as small as the smallest of them
    bool bold = false;
};

struct PlotDrawing {
    double width = 0, height = 0; ///< of the surface
    std::vector<PlotArea> areas;  ///< below everything else
    std::vector<PlotLine> lines;
    std::vector<PlotCircle> circles;
    std::vector<PlotLabel> labels;
    bool IsEmpty() const {
        return areas.empty() && lines.empty() && circles.empty() && labels.empty();
    }
};

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

/// The layout of the plot area on screen, for an area of the given size.
PlotLayout ScreenPlotLayout(double areaWidth, double areaHeight);

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
PlotDrawing DrawPlot(const PlotContents& contents, const PlotLayout& layout);

} // namespace quarnel
