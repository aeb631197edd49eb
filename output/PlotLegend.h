#pragma once

#include "output/Drawing.h"
#include "output/PlotDrawing.h"

namespace quarnel {

/// What the circles of a plot mean: a circle of each kind, as the plot has them, with its words, in
/// one line whose middle stands at `middleY` (twips), from the plot's left edge on.
Drawing DrawLegend(const PlotLayout& layout, double middleY);

} // namespace quarnel
