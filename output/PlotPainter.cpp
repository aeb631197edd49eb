#include "output/PlotPainter.h"

#include <QFontMetricsF>

#include <algorithm>
#include <cmath>
#include <map>
#include <optional>
#include <vector>

namespace quarnel {

namespace {

constexpr int TwipsPerPoint = 20;
constexpr double CircleWidth = 20;
constexpr double HaloWidth = 50;

QColor ColourOf(PlotColour colour, const PlotInks& inks) {
    switch (colour) {
    case PlotColour::Ink:
        return inks.ink;
    case PlotColour::Grid:
        return inks.grid;
    case PlotColour::Red:
        return {255, 0, 0};
    case PlotColour::Blue:
        return {0, 0, 255};
    case PlotColour::Grey:
        return inks.grey;
    case PlotColour::Band:
        return inks.band;
    }
    return inks.ink;
}

QString TextOf(const PlotLabel& label) {
    return QString::fromUtf8(label.text.data(), static_cast<qsizetype>(label.text.size()));
}

/// Pixel sizes, not point sizes: one twip is the painter's pixel, on screen and paper alike.
QFont LabelFont(const QPainter& painter, const PlotLabel& label, double scale,
                const PlotInks& inks) {
    QFont font = inks.fontFamily.isEmpty() ? painter.font() : QFont(inks.fontFamily);
    font.setBold(label.bold);
    font.setPixelSize(std::max(1, static_cast<int>(label.points * TwipsPerPoint * scale)));
    return font;
}

/// By how much a label must be set smaller to keep within its bounds; at most 1.
double FittingScale(const QPainter& painter, const PlotLabel& label, const PlotInks& inks) {
    const QFontMetricsF metrics(LabelFont(painter, label, 1, inks));
    double scale = 1;
    if (const double width = metrics.horizontalAdvance(TextOf(label));
        label.maxWidth > 0 && width > label.maxWidth)
        scale = label.maxWidth / width;
    if (label.maxHeight > 0 && metrics.height() * scale > label.maxHeight)
        scale = label.maxHeight / metrics.height();
    return scale;
}

/// The scale of every label, in order; those of one group share the smallest.
std::vector<double> LabelScales(const QPainter& painter, const std::vector<PlotLabel>& labels,
                                const PlotInks& inks) {
    std::vector<double> scales;
    scales.reserve(labels.size());
    std::map<int, double> smallest;
    for (const PlotLabel& label : labels) {
        scales.push_back(FittingScale(painter, label, inks));
        const auto group = smallest.emplace(label.group, scales.back()).first;
        group->second = std::min(group->second, scales.back());
    }
    for (std::size_t i = 0; i < labels.size(); ++i)
        if (labels[i].group > 0)
            scales[i] = smallest[labels[i].group];
    return scales;
}

void PaintLabel(QPainter& painter, const PlotLabel& label, double scale, const PlotInks& inks) {
    const QString text = TextOf(label);
    const QFont font = LabelFont(painter, label, scale, inks);
    const QFontMetricsF metrics(font);
    const double width = metrics.horizontalAdvance(text);
    const double height = metrics.height();
    painter.save();
    painter.setFont(font);
    painter.translate(label.x, label.y + label.heightsDown * height);
    if (label.turned)
        painter.rotate(-90);
    const double x = label.across == Across::Left     ? 0
                     : label.across == Across::Centre ? -width / 2
                                                      : -width;
    const double top = label.along == Along::Top      ? 0
                       : label.along == Along::Middle ? -height / 2
                                                      : -height;
    painter.drawText(QPointF(x, top + metrics.ascent()), text);
    painter.restore();
}

void PaintAreas(QPainter& painter, const PlotDrawing& drawing, const PlotInks& inks) {
    for (const PlotArea& area : drawing.areas)
        painter.fillRect(QRectF(area.x, area.y, area.width, area.height),
                         ColourOf(area.colour, inks));
}

void PaintLines(QPainter& painter, const PlotDrawing& drawing, const PlotInks& inks) {
    for (const PlotLine& line : drawing.lines) {
        // Upright and level lines stay crisp on a screen's pixels.
        painter.setRenderHint(QPainter::Antialiasing, line.x1 != line.x2 && line.y1 != line.y2);
        painter.setPen(QPen(ColourOf(line.colour, inks), line.width,
                            line.dashed ? Qt::DashLine : Qt::SolidLine));
        painter.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
    }
    painter.setRenderHint(QPainter::Antialiasing);
}

/// The centre to the nearest twip, which no eye tells from the exact one: the repeating fractions
/// let a page of a hundred thousand points compress to a fraction of its size.
QPointF CentreOf(const PlotCircle& circle) {
    return {std::round(circle.x), std::round(circle.y)};
}

void PaintCircles(QPainter& painter, const PlotDrawing& drawing, const PlotInks& inks) {
    painter.setBrush(Qt::NoBrush);
    if (inks.halo.isValid()) {
        painter.setPen(QPen(inks.halo, HaloWidth));
        for (const PlotCircle& circle : drawing.circles)
            painter.drawEllipse(CentreOf(circle), circle.radius, circle.radius);
    }
    std::optional<PlotColour> current;
    for (const PlotCircle& circle : drawing.circles) {
        // A vector file repeats the pen at every change: thousands of points would double in size.
        if (current != circle.colour)
            painter.setPen(QPen(ColourOf(circle.colour, inks), CircleWidth));
        current = circle.colour;
        painter.drawEllipse(CentreOf(circle), circle.radius, circle.radius);
    }
}

} // namespace

void PaintPlot(QPainter& painter, const PlotDrawing& drawing, const PlotInks& inks) {
    painter.save();
    PaintAreas(painter, drawing, inks);
    PaintLines(painter, drawing, inks);
    PaintCircles(painter, drawing, inks);
    painter.setPen(inks.ink);
    const std::vector<double> scales = LabelScales(painter, drawing.labels, inks);
    for (std::size_t i = 0; i < drawing.labels.size(); ++i)
        PaintLabel(painter, drawing.labels[i], scales[i], inks);
    painter.restore();
}

} // namespace quarnel
