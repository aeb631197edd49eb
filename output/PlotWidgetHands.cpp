// Mouse and keys of the plot: how points are selected, marked and asked for.

#include "output/PlotWidget.h"

#include "kcompute/UseIgnoreGrid.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>
#include <algorithm>
#include <limits>

namespace quarnel {

namespace {

/// How far from the middle of a circle the pointer still means its point (twips).
constexpr double Reach = 120;

constexpr double Infinity = std::numeric_limits<double>::infinity();

} // namespace

// ---- What is selected ---------------------------------------------------------------------------

std::optional<std::size_t> PlotWidget::PointUnder(QPointF position) const {
    if (computation_ == nullptr)
        return std::nullopt;
    const QPointF at = ToTwips(position);
    return points_.Nearest(Axes(), at.x(), at.y(), Reach);
}

void PlotWidget::SelectPlaces(PlaceRange places, bool backwards) {
    const std::size_t first = points_.PointAt(places.first);
    const std::size_t last = points_.PointAt(places.end - 1);
    grid_->SelectRuns(points_.RunsOf(places), backwards ? last : first, backwards ? first : last);
}

void PlotWidget::SelectFrom(std::size_t anchor, std::size_t end) {
    SelectPlaces({std::min(anchor, end), std::max(anchor, end) + 1}, end < anchor);
}

void PlotWidget::ExtendTo(std::size_t place) {
    SelectFrom(AnchorPlace(), place);
}

/// Where the selection began.
std::size_t PlotWidget::AnchorPlace() const {
    return points_.PlaceOf(CurrentPoint().value_or(0));
}

/// The end of the selection that keys and mouse move.
std::size_t PlotWidget::EndPlace() const {
    const PlaceRange places = points_.PlacesOf(grid_->SelectedRuns());
    return AnchorPlace() == places.first ? places.end - 1 : places.first;
}

// ---- Mouse --------------------------------------------------------------------------------------

void PlotWidget::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton || !HasGridsPoints() || points_.Count() == 0)
        return;
    const bool extends = event->modifiers().testFlag(Qt::ShiftModifier);
    Press press;
    press.at = event->pos();
    press.from = ToTwips(event->position()).x();
    press.selection = grid_->selectionModel()->selection();
    press.current = grid_->currentIndex();
    if (extends) {
        press.anchor = AnchorPlace();
        press.from = Axes().TimeX(points_.List()[points_.PointAt(*press.anchor)].time);
    }
    press_ = press;
    const std::optional<std::size_t> point = PointUnder(event->position());
    if (point && extends)
        ExtendTo(points_.PlaceOf(*point));
    else if (point)
        SelectFrom(points_.PlaceOf(*point), points_.PlaceOf(*point));
}

void PlotWidget::mouseMoveEvent(QMouseEvent* event) {
    if (!event->buttons().testFlag(Qt::LeftButton)) {
        // A box that came up has taken the release of the button.
        EndPress();
        Hover(event->pos());
    } else if (press_ && (press_->drags || (event->pos() - press_->at).manhattanLength() >=
                                               QApplication::startDragDistance())) {
        press_->drags = true;
        DragTo(event->pos());
    }
}

/// Selects the points of the range that was dragged over; beyond the edges of the plot all that
/// lie there. A range without a point selects what was selected before.
void PlotWidget::DragTo(QPoint position) {
    const QRect area = contentsRect();
    press_->to = position.x() < area.left()    ? -Infinity
                 : position.x() > area.right() ? Infinity
                                               : ToTwips(position).x();
    const bool backwards = press_->to < press_->from;
    PlaceRange places = points_.Between(Axes(), std::min(press_->from, press_->to),
                                        std::max(press_->from, press_->to));
    if (press_->anchor && backwards)
        places.end = *press_->anchor + 1;
    else if (press_->anchor)
        places.first = *press_->anchor;
    update();
    if (places == press_->places)
        return;
    press_->places = places;
    if (places.IsEmpty())
        PutBack();
    else
        SelectPlaces(places, backwards);
}

void PlotWidget::PutBack() {
    grid_->selectionModel()->setCurrentIndex(press_->current, QItemSelectionModel::NoUpdate);
    grid_->selectionModel()->select(press_->selection, QItemSelectionModel::ClearAndSelect);
}

void PlotWidget::EndPress() {
    if (!press_)
        return;
    press_.reset();
    update();
}

void PlotWidget::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        EndPress();
}

// ---- Words about a point ------------------------------------------------------------------------

void PlotWidget::Hover(QPoint position) {
    const std::optional<std::size_t> point = PointUnder(position);
    if (point == hovered_)
        return;
    hovered_ = point;
    if (point)
        ShowWords(*point);
    else
        QToolTip::hideText();
}

void PlotWidget::ShowWords(std::size_t point) {
    const QPoint at = PlaceOfPoint(point).toPoint();
    QToolTip::showText(mapToGlobal(at), InWords(point), this);
}

/// What a tip says of a point holds no more once its mark or the plot has changed.
void PlotWidget::DropWords() {
    hovered_.reset();
    if (underMouse() || hasFocus())
        QToolTip::hideText();
}

bool PlotWidget::event(QEvent* event) {
    // The plot's own tip does not stand in the way of a point's.
    if (event->type() == QEvent::ToolTip && hovered_)
        return true;
    return DrawingWidget::event(event);
}

void PlotWidget::leaveEvent(QEvent* event) {
    hovered_.reset();
    DrawingWidget::leaveEvent(event);
}

// ---- Menu and keys ------------------------------------------------------------------------------

void PlotWidget::contextMenuEvent(QContextMenuEvent* event) {
    const bool selects = HasGridsPoints();
    for (QAction* action : markActions_)
        action->setEnabled(selects);
    // The menu of a right click is about the point below it, or about all that are selected.
    const std::optional<std::size_t> point = PointUnder(event->pos());
    if (selects && point && event->reason() == QContextMenuEvent::Mouse &&
        !grid_->selectionModel()->rowIntersectsSelection(static_cast<int>(*point), {}))
        SelectFrom(points_.PlaceOf(*point), points_.PlaceOf(*point));
    DrawingWidget::contextMenuEvent(event);
}

void PlotWidget::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && press_) {
        PutBack();
        EndPress();
    } else if (!PressCommandKey(*event) && !PressSelectingKey(*event))
        DrawingWidget::keyPressEvent(event);
}

bool PlotWidget::PressCommandKey(const QKeyEvent& event) {
    if (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier) {
        const std::optional<std::size_t> point = CurrentPoint();
        const QPoint at = point ? PlaceOfPoint(*point).toPoint() : rect().center();
        QContextMenuEvent menu(QContextMenuEvent::Keyboard, at, mapToGlobal(at));
        contextMenuEvent(&menu);
        return true;
    }
    if (!HasGridsPoints())
        return false;
    if (const std::optional<MarkKey> key = UseIgnoreGrid::MarkKeyOf(event))
        grid_->MarkRuns(*key);
    else if (event.matches(QKeySequence::Undo))
        grid_->Undo();
    else if (event.matches(QKeySequence::Redo))
        grid_->Redo();
    else if (event.matches(QKeySequence::SelectAll))
        SelectPlaces({0, points_.Count()}, false);
    else
        return false;
    return true;
}

/// Left and Right walk the points that are drawn, in the order of time; Home and End go to the
/// first and the last. Shift moves the end of the selection instead.
bool PlotWidget::PressSelectingKey(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const bool extends = modifiers == Qt::ShiftModifier;
    if (!HasGridsPoints() || (!extends && modifiers != Qt::NoModifier))
        return false;
    const auto from = static_cast<std::ptrdiff_t>(extends ? EndPlace() : AnchorPlace());
    std::optional<std::size_t> place;
    switch (event.key()) {
    case Qt::Key_Left:
        place = points_.Neighbour(from, -1);
        break;
    case Qt::Key_Right:
        place = points_.Neighbour(from, 1);
        break;
    case Qt::Key_Home:
        place = points_.Neighbour(-1, 1);
        break;
    case Qt::Key_End:
        place = points_.Neighbour(static_cast<std::ptrdiff_t>(points_.Count()), -1);
        break;
    default:
        return false;
    }
    if (place) {
        SelectFrom(extends ? AnchorPlace() : *place, *place);
        ShowWords(points_.PointAt(*place));
    }
    return true;
}

} // namespace quarnel
