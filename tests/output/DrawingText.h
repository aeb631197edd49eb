#pragma once

#include "output/Drawing.h"

#include <string>

namespace quarnel {

/// A drawing as text, one line a stroke or label, positions to the thousandth of a twip: what the
/// kept drawings hold.
std::string DrawingText(const Drawing& drawing);

/// The drawing of an example project on screen (a plot area of 9000 by 7000 twips) and on a Letter
/// page, as text.
std::string ExampleDrawings(const std::string& projectPath);

} // namespace quarnel
