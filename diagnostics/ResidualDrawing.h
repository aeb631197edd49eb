#pragma once

#include "diagnostics/Diagnostics.h"
#include "output/Drawing.h"

namespace quarnel {

/// ln(Y in cm) against time: used and other points, the fitted line and, dashed, both straight
/// segments where they are suggested. For an area of the given size, in twips.
Drawing DrawSegments(Diagnostics& diagnostics, double areaWidth, double areaHeight);

/// The residuals of the used points against time, with twice their standard deviation and half the
/// reading step on either side of the line: readings rounded to the step fan out within these.
Drawing DrawResiduals(Diagnostics& diagnostics, double areaWidth, double areaHeight);

} // namespace quarnel
