#pragma once

#include "output/Drawing.h"

#include <QColor>
#include <QPainter>

namespace quarnel {

/// What the colours that follow the surface look like on a surface; Red and Blue are the same
/// everywhere.
struct Inks {
    QColor ground = Qt::white; ///< what is painted on
    QColor ink = Qt::black;
    QColor grid = QColor(208, 208, 208);
    QColor grey = QColor(128, 128, 128);
    QColor band = QColor(253, 243, 208);
    QColor halo;     ///< around circles, where their colours are hard to see; invalid for none
    QColor lineHalo; ///< the same beside red lines
    QColor usedFill; ///< inside of red circles, which tells them without colour; invalid for none
    QString fontFamily; ///< empty for the painter's own
};

/// The colour of the marks of a series (0 to MarkSeriesCount - 1): its own, brought nearer to the
/// ink where it would be hard to see on the ground.
QColor SeriesColour(int series, const Inks& inks);

/// Paints `drawing` (twips) with a painter whose unit is one twip. State of the painter is kept.
void PaintDrawing(QPainter& painter, const Drawing& drawing, const Inks& inks);

} // namespace quarnel
