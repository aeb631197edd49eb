#pragma once

#include "kcompute/Analysis.h"
#include "output/Drawing.h"

namespace quarnel {

/// The printed page, in twips from the upper left corner of the printable area: header rows of site
/// and well, the titles, the plot with its fitted line, and the line that states K. The time axis
/// lies 3960 above the bottom of the printable area and the plot is 8640 by 8640 from x = 2160.
///
/// A printable area too small for that (paper narrower than Letter, landscape, wide margins) gets
/// the whole page at a smaller scale, so that nothing is cut off. Long names run over up to three
/// lines and are set smaller beyond that. While there is no computation the page shows the prepared
/// points, none of them as used, without a line and without K; with no points either it has no
/// plot.
Drawing DrawPlotPage(const Analysis& analysis, double printableWidthTwips,
                     double printableHeightTwips);

} // namespace quarnel
