#include "tests/gui/ToldTruth.h"

#include <QHash>
#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>

namespace quarnel::windowtest {

using namespace Qt::StringLiterals;

namespace {

/// Points that fall on one spot are drawn once, and pictures round to twips.
constexpr double Tolerance = 0.004;
/// Fitted Y's have three figures.
constexpr double LineTolerance = 0.006;

/// The names of the lines that report and details share.
const QStringList SharedNames = {u"H"_s,         u"Lw"_s,
                                 u"Le"_s,        u"dw"_s,
                                 u"dc"_s,        u"Drained Filter Pack Porosity (%)"_s,
                                 u"Le/rw"_s,     u"A"_s,
                                 u"B"_s,         u"C"_s,
                                 u"Ln(Re/rw)"_s, u"Slope"_s,
                                 u"Intercept"_s, u"Effective Radius (re)"_s};

struct Frame {
    double left = 0, right = 0, top = 0, bottom = 0;
    QPointF Part(double x, double y) const {
        return {(x - left) / (right - left), (bottom - y) / (bottom - top)};
    }
};

/// The axes are the longest upright strokes of ink.
Frame FrameOf(const Drawing& drawing) {
    Frame frame;
    double longest = 0;
    for (const DrawingLine& line : drawing.lines) {
        if (line.x1 != line.x2 || line.colour != DrawingColour::Ink)
            continue;
        const double length = std::fabs(line.y2 - line.y1);
        if (length > longest)
            frame = {line.x1, line.x1, std::min(line.y1, line.y2), std::max(line.y1, line.y2)};
        longest = std::max(longest, length);
        if (length == longest) {
            frame.left = std::min(frame.left, line.x1);
            frame.right = std::max(frame.right, line.x1);
        }
    }
    return frame;
}

/// Adds an account's line when it is one that both accounts have; "dw: 1 m,  rw: 0.5 m" is one.
void TakeLine(Account& account, const QString& line) {
    if (line.startsWith(u"Hydraulic Conductivity: "_s))
        account.k = line;
    else if (SharedNames.contains(line.section(u": "_s, 0, 0)) && line.contains(u": "_s))
        account.lines.append(line);
}

QStringList Cells(const QString& line, std::initializer_list<qsizetype> starts) {
    QStringList cells;
    for (auto start = starts.begin(); start != starts.end(); ++start) {
        const qsizetype end = start + 1 == starts.end() ? line.size() : *(start + 1);
        cells.append(line.mid(*start, end - *start).trimmed());
    }
    return cells;
}

/// Reads lines, and from the heading of the table on its rows: `order` says where in a row the
/// time, the reading, Y, fitted Y and the mark stand.
Account ReadAccount(const QString& text, const QString& tableStart,
                    std::initializer_list<qsizetype> starts, const std::array<int, 5>& order) {
    Account account;
    bool table = false;
    for (QString line : text.split(u'\n')) {
        line.remove(u'\r');
        const bool heading = !table && line.startsWith(tableStart);
        table = table || heading;
        if (!table) {
            TakeLine(account, line);
            continue;
        }
        const QStringList cells = Cells(line, starts);
        QStringList row;
        for (const int cell : order)
            row.append(cells[cell]);
        if (heading)
            account.headings = row.mid(0, 4);
        else if (!row.join(QString()).isEmpty())
            account.rows.append(row);
    }
    return account;
}

bool HasNear(const QList<QPointF>& points, QPointF wanted) {
    return std::any_of(points.begin(), points.end(), [wanted](QPointF point) {
        return std::fabs(point.x() - wanted.x()) < Tolerance &&
               std::fabs(point.y() - wanted.y()) < Tolerance;
    });
}

bool AreSamePlaces(const QList<QPointF>& a, const QList<QPointF>& b) {
    const auto inOther = [](const QList<QPointF>& from, const QList<QPointF>& to) {
        return std::all_of(from.begin(), from.end(), [&to](QPointF p) { return HasNear(to, p); });
    };
    return inOther(a, b) && inOther(b, a);
}

double PartOfDecades(const ToldPlot& plot, double y) {
    return (std::log10(y) - plot.lowestDecade) / (plot.highestDecade - plot.lowestDecade);
}

QString LineDisagreement(const ToldPlot& plot, const Account& account, double lastTime) {
    const QStringList slopes = account.lines.filter(u"Slope: "_s);
    const bool falls = slopes.size() == 1 && slopes[0].section(u' ', 1).toDouble() < 0;
    if (falls != plot.line.has_value())
        return falls ? u"the plot lacks the line"_s : u"the plot has a line too many"_s;
    if (!falls)
        return {};
    const QLineF line = *plot.line;
    if (!(lastTime > 0))
        return u"the line falls without time"_s;
    for (const QStringList& row : account.rows) {
        const double x = row[0].toDouble() / lastTime;
        const double fitted = row[3].toDouble();
        if (x < line.x1() || x > line.x2() || fitted <= 0)
            continue;
        const double y = line.y1() + (x - line.x1()) / line.dx() * line.dy();
        if (std::fabs(y - PartOfDecades(plot, fitted)) > LineTolerance)
            return u"the line does not pass the fitted Y "_s + row[3] + u" at "_s + row[0];
    }
    return {};
}

DrawingColour ColourNamed(QStringView name) {
    return name == u"#ff0000"   ? DrawingColour::Red
           : name == u"#0000ff" ? DrawingColour::Blue
           : name == u"#000000" ? DrawingColour::Ink
                                : DrawingColour::Grid;
}

} // namespace

ToldPlot ReadDrawing(const Drawing& drawing) {
    ToldPlot plot;
    const Frame frame = FrameOf(drawing);
    QList<double> decades;
    for (const DrawingLabel& label : drawing.labels) {
        plot.labels.append(QString::fromStdString(label.text));
        // The decades stand left of the Y axis and end there.
        bool isNumber = false;
        const double decade = plot.labels.back().toDouble(&isNumber);
        if (isNumber && label.across == Across::Right && label.x < frame.left)
            decades.append(std::log10(decade));
    }
    if (decades.size() >= 2) {
        plot.lowestDecade = *std::min_element(decades.begin(), decades.end());
        plot.highestDecade = *std::max_element(decades.begin(), decades.end());
    }
    for (const DrawingCircle& circle : drawing.circles)
        (circle.colour == DrawingColour::Red ? plot.red : plot.blue)
            .append(frame.Part(circle.x, circle.y));
    for (const DrawingLine& line : drawing.lines)
        if (line.colour == DrawingColour::Red)
            plot.line = QLineF(frame.Part(line.x1, line.y1), frame.Part(line.x2, line.y2));
    return plot;
}

Drawing ReadSvg(const QByteArray& bytes) {
    Drawing drawing;
    QXmlStreamReader xml(bytes);
    QString stroke;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        const QXmlStreamAttributes attributes = xml.attributes();
        if (xml.name() == u"g"_s) {
            stroke = attributes.value(u"stroke"_s).toString();
        } else if (xml.name() == u"polyline"_s) {
            const QStringList ends = attributes.value(u"points"_s).trimmed().toString().split(u' ');
            const QStringList from = ends.value(0).split(u',');
            const QStringList to = ends.value(1).split(u',');
            drawing.lines.push_back({from.value(0).toDouble(), from.value(1).toDouble(),
                                     to.value(0).toDouble(), to.value(1).toDouble(),
                                     ColourNamed(stroke)});
        } else if (xml.name() == u"circle"_s) {
            drawing.circles.push_back({attributes.value(u"cx"_s).toDouble(),
                                       attributes.value(u"cy"_s).toDouble(),
                                       attributes.value(u"r"_s).toDouble(), ColourNamed(stroke)});
        } else if (xml.name() == u"text"_s) {
            DrawingLabel label;
            label.text = xml.readElementText().toStdString();
            drawing.labels.push_back(std::move(label));
        }
    }
    return drawing;
}

Account ReadReport(const QString& text) {
    return ReadAccount(text, u"Time ("_s, {0, 14, 34, 49, 64}, {0, 1, 3, 4, 2});
}

Account ReadDetails(const QString& text) {
    return ReadAccount(text, u"Sample"_s, {0, 9, 23, 37, 51, 65}, {1, 2, 3, 4, 5});
}

QString PlotDisagreement(const ToldPlot& plot, const Account& account) {
    if (!plot.HasAxes())
        return u"there are no axes"_s;
    double lastTime = 0;
    for (const QStringList& row : account.rows)
        if (row[2].toDouble() > 0)
            lastTime = std::max(lastTime, row[0].toDouble());
    QList<QPointF> red;
    QList<QPointF> blue;
    for (const QStringList& row : account.rows)
        if (const double y = row[2].toDouble(); y > 0)
            (row[4] == u"Use"_s ? red : blue)
                .append({lastTime > 0 ? row[0].toDouble() / lastTime : 0, PartOfDecades(plot, y)});
    if (!AreSamePlaces(red, plot.red))
        return u"the points used are others"_s;
    if (!AreSamePlaces(blue, plot.blue))
        return u"the points not used are others"_s;
    const QString timeUnit = account.headings.value(0); // "Time (sec)"
    const QString yUnit = account.headings.value(2);    // "Y(ft)"
    if (!plot.labels.contains(timeUnit) || !plot.labels.contains(yUnit))
        return u"the axes are not those of "_s + timeUnit + u" and "_s + yUnit;
    return LineDisagreement(plot, account, lastTime);
}

} // namespace quarnel::windowtest
