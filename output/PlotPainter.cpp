#include "output/PlotPainter.h"

#include <QFontMetricsF>

#include <algorithm>

namespace quarnel {

namespace {

constexpr int TwipsPerPoint = 20;

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
    }
    return inks.ink;
}

/// Pixel sizes, not point sizes: one twip is the painter's pixel, on screen and paper alike.
QFont LabelFont(const QPainter& painter, const PlotLabel& label, const QString& text,
                const PlotInks& inks) {
    QFont font = inks.fontFamily.isEmpty() ? painter.font() : QFont(inks.fontFamily);
    font.setBold(label.bold);
    font.setPixelSize(qRound(label.points * TwipsPerPoint));
    if (label.maxWidth > 0) {
        const double width = QFontMetricsF(font).horizontalAdvance(text);
        if (width > label.maxWidth)
            font.setPixelSize(
                std::max(1, static_cast<int>(font.pixelSize() * label.maxWidth / width)));
    }
    return font;
}

void PaintLabel(QPainter& painter, const PlotLabel& label, const PlotInks& inks) {
    const QString text =
        QString::fromUtf8(label.text.data(), static_cast<qsizetype>(label.text.size()));
    const QFont font = LabelFont(painter, label, text, inks);
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

} // namespace

void PaintPlot(QPainter& painter, const PlotDrawing& drawing, const PlotInks& inks) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const PlotLine& line : drawing.lines) {
        painter.setPen(QPen(ColourOf(line.colour, inks), line.width));
        painter.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
    }
    painter.setBrush(Qt::NoBrush);
    for (const PlotCircle& circle : drawing.circles) {
        painter.setPen(QPen(ColourOf(circle.colour, inks), 15));
        painter.drawEllipse(QPointF(circle.x, circle.y), circle.radius, circle.radius);
    }
    painter.setPen(inks.ink);
    for (const PlotLabel& label : drawing.labels)
        PaintLabel(painter, label, inks);
    painter.restore();
}

} // namespace quarnel
