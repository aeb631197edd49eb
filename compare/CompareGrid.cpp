#include "compare/CompareGrid.h"

#include <QAction>
#include <QEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

namespace quarnel {

namespace {

constexpr int CellMargin = 6;
/// A longer text is cut by "..." until the user widens its column.
constexpr int MostCharacters = 44;
/// Rows that are measured for the width of a column.
constexpr int MeasuredRows = 100;

} // namespace

CompareGrid::CompareGrid(QWidget* parent)
    : QTableView(parent) {
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(ExtendedSelection);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setWordWrap(false);
    setHorizontalScrollMode(ScrollPerPixel);
    setSortingEnabled(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setResizeContentsPrecision(MeasuredRows);
    horizontalHeader()->setSortIndicator(0, Qt::AscendingOrder);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    const auto add = [this](const QString& name, const QString& text, auto command) {
        auto* action = new QAction(text, this);
        action->setObjectName(name);
        connect(action, &QAction::triggered, this, command);
        addAction(action);
        return action;
    };
    add(QStringLiteral("CompareOpenRow"), QStringLiteral("&Open Project"),
        &CompareGrid::OpenCurrent);
    QAction* copy = add(QStringLiteral("CompareCopyRows"), QStringLiteral("&Copy Rows"),
                        &CompareGrid::CopyRequested);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    add(QStringLiteral("CompareSortColumn"), QStringLiteral("&Sort by This Column"),
        &CompareGrid::SortByCurrentColumn);
    connect(this, &QTableView::doubleClicked, this, &CompareGrid::OpenRequested);
    FitToFont();
}

void CompareGrid::setModel(QAbstractItemModel* newModel) {
    QTableView::setModel(newModel);
    sortByColumn(0, Qt::AscendingOrder);
}

void CompareGrid::SetEmptyText(const QString& text) {
    emptyText_ = text;
    setAccessibleDescription(text);
    viewport()->update();
}

void CompareGrid::FitToFont() {
    const int rowHeight = fontMetrics().height() + CellMargin;
    verticalHeader()->setMinimumSectionSize(rowHeight);
    verticalHeader()->setDefaultSectionSize(rowHeight);
}

void CompareGrid::FitColumns() {
    const int most = fontMetrics().averageCharWidth() * MostCharacters;
    for (int column = 0; column < model()->columnCount(); ++column) {
        const int width = std::max(horizontalHeader()->sectionSizeHint(column),
                                   std::min(sizeHintForColumn(column) + CellMargin, most));
        horizontalHeader()->resizeSection(column, width);
    }
}

void CompareGrid::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange)
        return;
    FitToFont();
    if (model() != nullptr)
        FitColumns();
}

void CompareGrid::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        OpenCurrent();
    else
        QTableView::keyPressEvent(event);
}

void CompareGrid::OpenCurrent() {
    if (currentIndex().isValid())
        Q_EMIT OpenRequested(currentIndex());
}

/// What a click on the heading does, for those who have no mouse.
void CompareGrid::SortByCurrentColumn() {
    const int column = std::max(0, currentIndex().column());
    const bool turns = horizontalHeader()->sortIndicatorSection() == column &&
                       horizontalHeader()->sortIndicatorOrder() == Qt::AscendingOrder;
    sortByColumn(column, turns ? Qt::DescendingOrder : Qt::AscendingOrder);
}

void CompareGrid::paintEvent(QPaintEvent* event) {
    QTableView::paintEvent(event);
    if (model() == nullptr || model()->rowCount() > 0)
        return;
    QPainter painter(viewport());
    painter.setPen(palette().color(QPalette::Text));
    painter.drawText(viewport()->rect().adjusted(CellMargin, 0, -CellMargin, 0),
                     Qt::AlignCenter | Qt::TextWordWrap, emptyText_);
}

} // namespace quarnel
