#pragma once

#include "output/Drawing.h"

#include <QByteArray>
#include <QLineF>
#include <QList>
#include <QPointF>
#include <QString>
#include <QStringList>
#include <optional>

/// What screen, picture, page, report and details tell of a computation, read back from what they
/// show.
namespace quarnel::windowtest {

/// A plot. Places are parts of its axes, both counted from their origin.
struct ToldPlot {
    QStringList labels; ///< all texts
    double lowestDecade = 0, highestDecade = 0;
    QList<QPointF> red, blue;   ///< points used in the fit, and the others
    std::optional<QLineF> line; ///< the fitted one
    bool HasAxes() const { return highestDecade > lowestDecade; }
};

ToldPlot ReadDrawing(const Drawing& drawing);
/// A picture as the drawing that it shows: its strokes, circles and texts in the drawing's twips.
Drawing ReadSvg(const QByteArray& bytes);

/// The account that the report and the details give, line by line.
struct Account {
    QString k;               ///< the line that states K; empty for none
    QStringList lines;       ///< the lines "Name: value" of geometry, coefficients and fit
    QStringList headings;    ///< time, reading, Y, fitted Y
    QList<QStringList> rows; ///< time, reading, Y, fitted Y, mark
};

Account ReadReport(const QString& text);
Account ReadDetails(const QString& text);

/// Why a plot is not that of the computation that an account tells of; empty when it is.
QString PlotDisagreement(const ToldPlot& plot, const Account& account);

} // namespace quarnel::windowtest
