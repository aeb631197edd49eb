#pragma once

#include "kcompute/Computation.h"
#include "output/DrawingWidget.h"
#include "output/PlotPoints.h"

#include <QItemSelection>
#include <QPersistentModelIndex>
#include <QPointF>
#include <QString>
#include <cstddef>
#include <optional>
#include <vector>

namespace quarnel {

class UseIgnoreGrid;

/// The plot area `Plot1`: shows the plot of one computation. Points are selected here by mouse and
/// keys, and marked, as rows in the Use/Ignore grid: what is selected is the grid's selection,
/// drawn over the plot on screen alone. While the grid holds other readings than the plot shows,
/// nothing can be selected here. Its context menu shows besides the range of the head that is
/// recommended for the fit.
class PlotWidget : public DrawingWidget {
    Q_OBJECT
public:
    explicit PlotWidget(const FileOnDisk& project, QWidget* parent = nullptr);

    /// Selects and marks from now on in `grid`, which must live as long as this.
    void FollowGrid(UseIgnoreGrid& grid);
    /// Shows the plot of a computation, or with none an empty area that says how to get one.
    void ShowComputation(ComputationPtr computation);
    /// K with its unit, for the description of the plot; empty for none.
    void ShowK(const QString& k);
    /// Whether the data have changed since the computation.
    void ShowStale(bool stale);

    /// Where the circles of the selected points stand, in pixels of this widget; of those that
    /// share a spot one.
    std::vector<QPointF> SelectedSpots() const;
    /// Where a point (counted from 0) of the plot stands, in pixels of this widget.
    QPointF PlaceOfPoint(std::size_t point) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void PaintOver(QPainter& painter) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    /// A press of the left button that is held.
    struct Press {
        QPoint at;
        double from = 0; ///< x where the range begins, twips
        double to = 0;   ///< x where it ends
        /// The place where a range that is extended begins.
        std::optional<std::size_t> anchor;
        PlaceRange places;  ///< selected so far
        bool drags = false; ///< it has moved far enough to be no click
        /// What was selected before it.
        QItemSelection selection;
        QPersistentModelIndex current;
    };

    // The plot
    PlotAxes Axes() const;
    bool HasGridsPoints() const;
    void Describe();
    QString InWords(std::size_t point) const;
    // What is selected
    std::optional<std::size_t> CurrentPoint() const;
    std::optional<std::size_t> PointUnder(QPointF position) const;
    void SelectPlaces(PlaceRange places, bool backwards);
    void SelectFrom(std::size_t anchor, std::size_t end);
    void ExtendTo(std::size_t place);
    std::size_t AnchorPlace() const;
    std::size_t EndPlace() const;
    // Hands
    void DragTo(QPoint position);
    void PutBack();
    void EndPress();
    void Hover(QPoint position);
    void ShowWords(std::size_t point);
    void DropWords();
    bool PressSelectingKey(const QKeyEvent& event);
    bool PressCommandKey(const QKeyEvent& event);
    void PaintRange(QPainter& painter, const QColor& colour) const;
    void PaintSpots(QPainter& painter, const QColor& colour) const;
    void PaintCurrentPoint(QPainter& painter) const;

    UseIgnoreGrid* grid_ = nullptr;
    ComputationPtr computation_;
    PlotPoints points_;
    QString k_;
    bool stale_ = false;
    mutable std::optional<bool> hasGridsPoints_; ///< nothing until someone asks
    std::optional<Press> press_;
    std::optional<std::size_t> hovered_;
    QList<QAction*> markActions_;
    QAction* headRange_ = nullptr;
};

} // namespace quarnel
