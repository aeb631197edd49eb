#include "output/DrawingPainter.h"

#include "output/FontMeasure.h"
#include "widgets/Colours.h"
#include "widgets/QtTexts.h"

#include <QPolygonF>
#include <QTransform>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <optional>
#include <vector>

namespace quarnel {

namespace {

constexpr double CircleWidth = 20;
constexpr double HaloWidth = 50;

QColor ColourOf(DrawingColour colour, const Inks& inks) {
    switch (colour) {
    case DrawingColour::Ink:
        return inks.ink;
    case DrawingColour::Grid:
        return inks.grid;
    case DrawingColour::Red:
        return {255, 0, 0};
    case DrawingColour::Blue:
        return {0, 0, 255};
    case DrawingColour::Grey:
        return inks.grey;
    case DrawingColour::Band:
        return inks.band;
    }
    return inks.ink;
}

QString TextOf(const DrawingLabel& label) {
    return ToQString(label.text);
}

QFont PaintingFont(const QPainter& painter, const Inks& inks) {
    return inks.fontFamily.isEmpty() ? painter.font() : QFont(inks.fontFamily);
}

/// A label with its size, measured once.
struct SizedLabel {
    const DrawingLabel* label = nullptr;
    QString text;
    double widthEms = 0;
    double scale = 1; ///< by how much it must be set smaller to keep within its bounds
};

SizedLabel Sized(const DrawingLabel& label, const FontMeasure& measure) {
    SizedLabel sized{&label, TextOf(label), 0, 1};
    sized.widthEms = measure.WidthEms(sized.text, label.bold);
    const double em = label.points * TwipsPerPoint;
    if (const double width = sized.widthEms * em; label.maxWidth > 0 && width > label.maxWidth)
        sized.scale = label.maxWidth / width;
    if (const double height = measure.HeightEms(label.bold) * em * sized.scale;
        label.maxHeight > 0 && height > label.maxHeight)
        sized.scale *= label.maxHeight / height;
    return sized;
}

/// All labels with their scales; those of one group share the smallest.
std::vector<SizedLabel> SizedLabels(const std::vector<DrawingLabel>& labels,
                                    const FontMeasure& measure) {
    std::vector<SizedLabel> sizedLabels;
    sizedLabels.reserve(labels.size());
    std::map<int, double> smallest;
    for (const DrawingLabel& label : labels) {
        sizedLabels.push_back(Sized(label, measure));
        const auto group = smallest.emplace(label.group, sizedLabels.back().scale).first;
        group->second = std::min(group->second, sizedLabels.back().scale);
    }
    for (SizedLabel& sized : sizedLabels)
        if (sized.label->group > 0)
            sized.scale = smallest[sized.label->group];
    return sizedLabels;
}

/// Pixel sizes, not point sizes: one twip is the painter's pixel, on screen and paper alike.
void PaintLabel(QPainter& painter, const SizedLabel& sized, const FontMeasure& measure,
                QFont font) {
    const DrawingLabel& label = *sized.label;
    const int em = std::max(1, static_cast<int>(label.points * TwipsPerPoint * sized.scale));
    font.setBold(label.bold);
    font.setPixelSize(em);
    const double width = sized.widthEms * em;
    const double height = measure.HeightEms(label.bold) * em;
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
    painter.drawText(QPointF(x, top + measure.AscentEms(label.bold) * em), sized.text);
    painter.restore();
}

void PaintAreas(QPainter& painter, const Drawing& drawing, const Inks& inks) {
    for (const DrawingArea& area : drawing.areas)
        painter.fillRect(QRectF(area.x, area.y, area.width, area.height),
                         ColourOf(area.colour, inks));
}

void PaintLines(QPainter& painter, const Drawing& drawing, const Inks& inks) {
    for (const DrawingLine& line : drawing.lines) {
        if (line.colour == DrawingColour::Red && inks.lineHalo.isValid()) {
            painter.setRenderHint(QPainter::Antialiasing);
            painter.setPen(QPen(inks.lineHalo, line.width + HaloWidth - CircleWidth));
            painter.drawLine(QPointF(line.x1, line.y1), QPointF(line.x2, line.y2));
        }
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
QPointF CentreOf(const DrawingCircle& circle) {
    return {std::round(circle.x), std::round(circle.y)};
}

/// Below all outlines: no ring of an ignored point vanishes under the points beside it.
void PaintFills(QPainter& painter, const Drawing& drawing, const QColor& fill) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(fill);
    for (const DrawingCircle& circle : drawing.circles)
        if (circle.colour == DrawingColour::Red)
            painter.drawEllipse(CentreOf(circle), circle.radius, circle.radius);
    painter.setBrush(Qt::NoBrush);
}

void PaintCircles(QPainter& painter, const Drawing& drawing, const Inks& inks) {
    painter.setBrush(Qt::NoBrush);
    if (inks.halo.isValid()) {
        painter.setPen(QPen(inks.halo, HaloWidth));
        for (const DrawingCircle& circle : drawing.circles)
            painter.drawEllipse(CentreOf(circle), circle.radius, circle.radius);
    }
    if (inks.usedFill.isValid())
        PaintFills(painter, drawing, inks.usedFill);
    std::optional<DrawingColour> current;
    for (const DrawingCircle& circle : drawing.circles) {
        // A vector file repeats the pen at every change: thousands of points would double in size.
        if (current != circle.colour)
            painter.setPen(QPen(ColourOf(circle.colour, inks), CircleWidth));
        current = circle.colour;
        painter.drawEllipse(CentreOf(circle), circle.radius, circle.radius);
    }
}

/// The colours of the series, of a middle lightness.
constexpr std::array<QRgb, MarkSeriesCount> SeriesColours = {
    0xFF1F77B4, 0xFFD95F02, 0xFF1B9E77, 0xFFB5399C, 0xFF7570B3, 0xFFA6761D,
    0xFFE7298A, 0xFF4D8F1F, 0xFF8C6D5C, 0xFF0E8FA8, 0xFFC2403B, 0xFF777777};

constexpr double MarkWidth = 18;

/// The corners of a regular figure, the first `turn` parts of a full turn from the right; every
/// second one is drawn in to `inner` of the radius, which makes a star of it.
QPolygonF Figure(int corners, double turn, double inner = 1) {
    QPolygonF figure;
    for (int i = 0; i < corners; ++i) {
        const double angle = 2 * M_PI * (turn + double(i) / corners);
        const double reach = i % 2 == 0 ? 1 : inner;
        figure << QPointF(reach * std::cos(angle), reach * std::sin(angle));
    }
    return figure;
}

/// The outline of an upright cross whose bars are two thirds as wide as they are long.
QPolygonF CrossFigure() {
    constexpr double Half = 0.35;
    return QPolygonF({{-Half, -1},
                      {Half, -1},
                      {Half, -Half},
                      {1, -Half},
                      {1, Half},
                      {Half, Half},
                      {Half, 1},
                      {-Half, 1},
                      {-Half, Half},
                      {-1, Half},
                      {-1, -Half},
                      {-Half, -Half}});
}

/// The shapes of the series, each of radius 1; the first, a circle, has no corners.
std::array<QPolygonF, MarkSeriesCount> SeriesShapes() {
    constexpr double Up = 0.75; // of a turn, y running down
    constexpr double Down = 0.25;
    constexpr double Eighth = 0.125;
    constexpr double StarInner = 0.4;
    return {QPolygonF(),
            Figure(4, Eighth),
            Figure(3, Up),
            Figure(4, 0),
            Figure(3, Down),
            CrossFigure(),
            Figure(10, Up, StarInner),
            Figure(5, Up),
            Figure(3, 0),
            QTransform().rotate(45).map(CrossFigure()),
            Figure(3, 0.5),
            Figure(6, 0)};
}

void PaintMarks(QPainter& painter, const std::vector<DrawingMark>& marks, const Inks& inks) {
    if (marks.empty())
        return;
    std::array<QColor, MarkSeriesCount> colours;
    for (int series = 0; series < MarkSeriesCount; ++series)
        colours[static_cast<std::size_t>(series)] = SeriesColour(series, inks);
    const std::array<QPolygonF, MarkSeriesCount> shapes = SeriesShapes();
    for (const DrawingMark& mark : marks) {
        const auto series =
            static_cast<std::size_t>(std::clamp(mark.series, 0, MarkSeriesCount - 1));
        const QColor& colour = colours[series];
        painter.setPen(QPen(colour, MarkWidth, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
        painter.setBrush(mark.isFilled ? QBrush(colour) : QBrush(Qt::NoBrush));
        const QPointF centre(std::round(mark.x), std::round(mark.y));
        if (shapes[series].isEmpty())
            painter.drawEllipse(centre, mark.radius, mark.radius);
        else
            painter.drawPolygon(QTransform::fromScale(mark.radius, mark.radius)
                                    .map(shapes[series])
                                    .translated(centre));
    }
    painter.setBrush(Qt::NoBrush);
}

} // namespace

QColor SeriesColour(int series, const Inks& inks) {
    return WithContrast(QColor(SeriesColours[static_cast<std::size_t>(series)]), inks.ground,
                        inks.ink, SignContrast);
}

void PaintDrawing(QPainter& painter, const Drawing& drawing, const Inks& inks) {
    painter.save();
    PaintAreas(painter, drawing, inks);
    PaintLines(painter, drawing, inks);
    PaintCircles(painter, drawing, inks);
    PaintMarks(painter, drawing.marks, inks);
    painter.setPen(inks.ink);
    const QFont font = PaintingFont(painter, inks);
    const FontMeasure measure(font);
    for (const SizedLabel& label : SizedLabels(drawing.labels, measure))
        PaintLabel(painter, label, measure, font);
    painter.restore();
}

} // namespace quarnel
