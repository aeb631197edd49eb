#include "output/PlotLegend.h"

#include <algorithm>

namespace quarnel {

namespace {

/// From one entry to the next, where the plot is wide enough.
constexpr double Step = 1900;
/// From the middle of a circle to its words, and from these to the next circle.
constexpr double Gap = 120;

DrawingLabel Words(const char* text, double x, double middleY, double maxWidth, double points) {
    DrawingLabel label;
    label.x = x;
    label.y = middleY;
    label.text = text;
    label.along = Along::Middle;
    label.points = points;
    label.maxWidth = maxWidth;
    label.group = LegendLabels;
    return label;
}

} // namespace

Drawing DrawLegend(const PlotLayout& layout, double middleY) {
    Drawing legend;
    const double step = std::min(Step, layout.plotWidth / 2);
    double x = layout.left + layout.circleRadius;
    for (const bool used : {true, false}) {
        legend.circles.push_back(
            {x, middleY, layout.circleRadius, used ? DrawingColour::Red : DrawingColour::Blue});
        legend.labels.push_back(Words(used ? "used in the fit" : "not used", x + Gap, middleY,
                                      step - 2 * Gap, layout.points));
        x += step;
    }
    return legend;
}

} // namespace quarnel
