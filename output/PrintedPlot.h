#pragma once

#include "kcompute/Analysis.h"
#include "output/Drawing.h"
#include "output/Paper.h"
#include "output/TextMeasure.h"

namespace quarnel {

/// The printed page, in twips from the upper left corner of the printable area: header rows of site
/// and well, the titles, the plot with its fitted line, and the line that states K. The time axis
/// lies 3960 above the bottom of the printable area and the plot is 8640 by 8640 from x = 2160.
///
/// What the texts hold moves none of that. The last label of the time axis may reach into the
/// margin as far as the paper takes ink and gives way beyond that. Long names run over up to three
/// lines, then are set smaller, and end in "..." where even that does not do. Only a printable area
/// smaller than the plot with 1440 above it (paper narrower than Letter, landscape, wide margins)
/// gets the whole page at a smaller scale.
///
/// While there is no computation the page shows the prepared points, none of them as used, without
/// a line and without K; with no points either it has no plot.
///
/// With `showLegend` a line below K says what the circles mean.
Drawing DrawPlotPage(const Analysis& analysis, const Paper& paper, const TextMeasure& measure,
                     bool showLegend = false);

} // namespace quarnel
