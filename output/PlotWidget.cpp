#include "output/PlotWidget.h"

#include "kcompute/UseIgnoreGrid.h"
#include "output/PlotLegend.h"
#include "output/PlotWords.h"
#include "widgets/Colours.h"
#include "widgets/QtTexts.h"

#include <QAction>
#include <QItemSelectionModel>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

namespace quarnel {

namespace {

/// In this width no label runs into another, and this height leaves the axes a finger's breadth:
/// on a small screen with large letters the plot must leave room for K below it.
constexpr int LeastWidth = 4700;
constexpr int LeastHeight = 2700;
constexpr int UsualWidth = 9500;
constexpr int UsualHeight = 6500;

/// A selected point has a ring around its circle, the current one a square around that (twips).
constexpr double RingRadius = 90;
constexpr double RingWidth = 40;
constexpr double SquareHalf = 140;
/// Selected points that share a square of so many pixels have one ring.
constexpr int SpotPixels = 2;
constexpr float RangeOpacity = 0.2F;

} // namespace

PlotWidget::PlotWidget(const FileOnDisk& project, QWidget* parent)
    : DrawingWidget(project, parent) {
    setObjectName(QStringLiteral("Plot1"));
    setAccessibleName(QStringLiteral("Plot of Y against time"));
    setToolTip(QStringLiteral(
        "Change in head Y (logarithmic) against time: red, filled points enter the fit, blue rings "
        "do not. Click a point, or drag over a range of times, to select rows; then press U, I "
        "(capitals) or the space bar. Right click for more."));
    setMouseTracking(true);
    copy_->setText(QStringLiteral("&Copy"));
    copy_->setObjectName(QStringLiteral("CopyPlot"));
    save_->setText(QStringLiteral("&Save as Picture..."));
    save_->setObjectName(QStringLiteral("SavePlot"));

    auto* separator = new QAction(this);
    separator->setSeparator(true);
    headRange_ = new QAction(QStringLiteral("Show &Head Range 0.20-0.30"), this);
    headRange_->setObjectName(QStringLiteral("ShowHeadRange"));
    headRange_->setCheckable(true);
    connect(headRange_, &QAction::toggled, this, &PlotWidget::DrawAgain);
    addActions({separator, headRange_, legendOnPictures_});
    ShowComputation(nullptr);
}

QSize PlotWidget::sizeHint() const {
    return PixelsOf(UsualWidth, UsualHeight);
}

QSize PlotWidget::minimumSizeHint() const {
    return PixelsOf(LeastWidth, LeastHeight);
}

void PlotWidget::FollowGrid(UseIgnoreGrid& grid) {
    grid_ = &grid;
    markActions_ = grid.MakeMarkActions(this);
    auto* separator = new QAction(this);
    separator->setSeparator(true);
    insertActions(copy_, markActions_ + QList<QAction*>{separator});
    const auto show = [this] {
        Describe();
        update();
    };
    connect(&grid, &UseIgnoreGrid::Refilled, this, [this, show] {
        hasGridsPoints_.reset();
        show();
    });
    connect(grid.selectionModel(), &QItemSelectionModel::selectionChanged, this, show);
    connect(grid.selectionModel(), &QItemSelectionModel::currentChanged, this, show);
    connect(grid.model(), &QAbstractItemModel::dataChanged, this, [this] {
        DropWords();
        Describe();
    });
}

void PlotWidget::ShowComputation(ComputationPtr computation) {
    EndPress();
    DropWords();
    computation_ = computation;
    points_ = computation ? PlotPoints(computation->recovery.RecoveryPoints) : PlotPoints();
    hasGridsPoints_.reset();
    headRange_->setEnabled(computation != nullptr);
    Describe();
    if (computation == nullptr) {
        Show({}, QStringLiteral("Press Compute K/ Plot"));
        return;
    }
    Show(
        [this, computation = std::move(computation)](double areaWidth, double areaHeight) {
            PlotLayout layout = ScreenPlotLayout(areaWidth, areaHeight);
            layout.showHeadRange = headRange_->isChecked();
            return DrawPlot(PlotContents(*computation), layout);
        },
        QString(),
        [](double areaWidth, double areaHeight) {
            const PlotLayout layout = ScreenPlotLayout(areaWidth, areaHeight);
            return DrawLegend(layout, layout.top / 2);
        });
}

void PlotWidget::ShowK(const QString& k) {
    k_ = k;
    Describe();
}

void PlotWidget::ShowStale(bool stale) {
    stale_ = stale;
    Describe();
}

/// What a screen reader tells: the plot, and the point that the keyboard is on.
void PlotWidget::Describe() {
    if (computation_ == nullptr) {
        setAccessibleDescription(QStringLiteral("Press Compute K/ Plot"));
        return;
    }
    QString words = ToQString(PlotInWords(*computation_, ToUtf8(k_)));
    if (stale_)
        words += QLatin1Char(' ') + ToQString(NotCurrentMessage);
    if (const std::optional<std::size_t> point = CurrentPoint()) {
        std::size_t selected = 0;
        for (const PointRun& run : grid_->SelectedRuns())
            selected += run.last - run.first + 1;
        words += QStringLiteral(" %1 selected. ").arg(selected) + InWords(*point);
    }
    setAccessibleDescription(words);
}

PlotAxes PlotWidget::Axes() const {
    const QSizeF size = QSizeF(contentsRect().size()) * TwipsPerPixel();
    return {computation_->recovery.bounds, ScreenPlotLayout(size.width(), size.height())};
}

/// Whether a row of the grid is the point of the same number here.
bool PlotWidget::HasGridsPoints() const {
    // An opened project has emptied the working values before the grid shows it.
    if (grid_ == nullptr || computation_ == nullptr ||
        grid_->Working().marks.size() != points_.Count())
        return false;
    if (!hasGridsPoints_) {
        const RecoveryPointList& shown = *grid_->Working().recovery.RecoveryPoints;
        hasGridsPoints_ = &shown == &points_.List() || AreSameReadings(shown, points_.List());
    }
    return *hasGridsPoints_;
}

QString PlotWidget::InWords(std::size_t point) const {
    const bool inGrid = HasGridsPoints();
    const std::vector<Mark>& marks = inGrid ? grid_->Working().marks : computation_->marks;
    QString words = ToQString(PointInWords(computation_->recovery, point, marks[point]));
    if (!inGrid)
        words += QLatin1Char('\n') + ToQString(NotCurrentMessage);
    return words;
}

std::optional<std::size_t> PlotWidget::CurrentPoint() const {
    if (!HasGridsPoints() || !grid_->currentIndex().isValid())
        return std::nullopt;
    return static_cast<std::size_t>(grid_->currentIndex().row());
}

// ---- What is drawn over the plot ----------------------------------------------------------------

QPointF PlotWidget::PlaceOfPoint(std::size_t point) const {
    const PlotAxes axes = Axes();
    const RecoveryPoint& told = points_.List()[point];
    return ToPixels(axes.TimeX(told.time), axes.LogY(told.Log10Y()));
}

std::vector<QPointF> PlotWidget::SelectedSpots() const {
    if (!HasGridsPoints())
        return {};
    const PlotAxes axes = Axes();
    const int columns = width() / SpotPixels + 1;
    const int rows = height() / SpotPixels + 1;
    std::vector<bool> taken(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows));
    std::vector<QPointF> spots;
    for (const PointRun& run : grid_->SelectedRuns())
        for (std::size_t k = run.first; k <= run.last; ++k) {
            const RecoveryPoint& point = points_.List()[k];
            const QPointF at = ToPixels(axes.TimeX(point.time), axes.LogY(point.Log10Y()));
            if (!point.YIsValid() || !QRectF(rect()).contains(at))
                continue;
            const int column = static_cast<int>(at.x()) / SpotPixels;
            const int row = static_cast<int>(at.y()) / SpotPixels;
            const auto spot = static_cast<std::size_t>(row * columns + column);
            if (taken[spot])
                continue;
            taken[spot] = true;
            spots.push_back(at);
        }
    return spots;
}

void PlotWidget::PaintOver(QPainter& painter) {
    if (!HasGridsPoints())
        return;
    const QColor colour = WithContrast(palette().color(QPalette::Active, QPalette::Highlight),
                                       palette().color(QPalette::Base),
                                       palette().color(QPalette::Text), SignContrast);
    PaintRange(painter, colour);
    PaintSpots(painter, colour);
    if (hasFocus())
        PaintCurrentPoint(painter);
}

void PlotWidget::PaintRange(QPainter& painter, const QColor& colour) const {
    if (!press_ || !press_->drags)
        return;
    const PlotAxes axes = Axes();
    const double left =
        std::clamp<double>(ToPixels(std::min(press_->from, press_->to), 0).x(), 0, width());
    const double right =
        std::clamp<double>(ToPixels(std::max(press_->from, press_->to), 0).x(), 0, width());
    const QRectF range(QPointF(left, ToPixels(0, axes.Top()).y()),
                       QPointF(right, ToPixels(0, axes.Bottom()).y()));
    QColor fill = colour;
    fill.setAlphaF(RangeOpacity);
    painter.fillRect(range, fill);
    painter.setPen(colour);
    painter.drawLine(range.topLeft(), range.bottomLeft());
    painter.drawLine(range.topRight(), range.bottomRight());
}

/// One picture of a ring for all of them, however many are selected.
void PlotWidget::PaintSpots(QPainter& painter, const QColor& colour) const {
    const double radius = RingRadius / TwipsPerPixel();
    const double width = RingWidth / TwipsPerPixel();
    const int half = static_cast<int>(std::ceil(radius + width));
    const double ratio = devicePixelRatioF();
    QPixmap ring((QSizeF(2 * half, 2 * half) * ratio).toSize());
    ring.setDevicePixelRatio(ratio);
    ring.fill(Qt::transparent);
    {
        QPainter ringPainter(&ring);
        ringPainter.setRenderHint(QPainter::Antialiasing);
        ringPainter.setPen(QPen(colour, width));
        ringPainter.drawEllipse(QPointF(half, half), radius, radius);
    }
    for (const QPointF& spot : SelectedSpots())
        painter.drawPixmap(QPointF(spot.toPoint() - QPoint(half, half)), ring);
}

void PlotWidget::PaintCurrentPoint(QPainter& painter) const {
    const std::optional<std::size_t> point = CurrentPoint();
    if (!point || !points_.List()[*point].YIsValid())
        return;
    const double half = SquareHalf / TwipsPerPixel();
    const QPointF at = PlaceOfPoint(*point).toPoint();
    painter.setPen(QPen(palette().color(QPalette::Text), 1, Qt::DotLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(at.x() - half, at.y() - half, 2 * half, 2 * half));
}

} // namespace quarnel
