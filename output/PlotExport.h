#pragma once

#include "output/Drawing.h"
#include "project/Files.h"

#include <QByteArray>
#include <QImage>
#include <string>

namespace quarnel {

/// Writes `drawing` as a picture to `path` (UTF-8), all or nothing. The ending chooses the kind, in
/// any case: ".pdf" or ".svg" hold text as text and lines as lines, ".png" pixels. BadFileName for
/// any other ending, InvalidProcedureCall for a drawing without a size. Needs Qt's Gui application
/// object for the fonts, but no display.
FileFailure ExportPlot(const Drawing& drawing, const std::string& path);

/// The drawing as the bytes of an SVG file, or of a PDF file of one page of the drawing's size.
QByteArray PlotAsSvg(const Drawing& drawing);
QByteArray PlotAsPdf(const Drawing& drawing);
/// The drawing as pixels on white, fine enough for print.
QImage PlotAsImage(const Drawing& drawing);

} // namespace quarnel
