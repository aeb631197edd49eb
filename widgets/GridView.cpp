#include "widgets/GridView.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <algorithm>

namespace quarnel {

namespace {
/// The largest row number that must be readable, and the room around a text in a cell.
constexpr QLatin1String WidestNumber("1000000");
constexpr int CellMargin = 6;
} // namespace

GridView::GridView(QWidget* parent)
    : QTableView(parent) {
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setDefaultAlignment(Qt::AlignCenter);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
}

void GridView::setModel(QAbstractItemModel* newModel) {
    QTableView::setModel(newModel);
    if (newModel != nullptr)
        connect(newModel, &QAbstractItemModel::headerDataChanged, this, &GridView::FitToFont);
    FitToFont();
}

void GridView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FitToFont();
}

void GridView::FitToFont() {
    if (model() == nullptr)
        return;
    const int rowHeight = fontMetrics().height() + CellMargin;
    verticalHeader()->setMinimumSectionSize(rowHeight);
    verticalHeader()->setDefaultSectionSize(rowHeight);
    QHeaderView& header = *horizontalHeader();
    const int numberWidth = fontMetrics().horizontalAdvance(WidestNumber) + 2 * CellMargin;
    int total = 0;
    for (int column = 0; column < header.count(); ++column) {
        const int hint = header.sectionSizeHint(column);
        const int width = column == 0 ? std::max(hint, numberWidth) : hint;
        header.setSectionResizeMode(column,
                                    column == 0 ? QHeaderView::Fixed : QHeaderView::Stretch);
        header.resizeSection(column, width);
        total += width;
    }
    setMinimumWidth(total + verticalScrollBar()->sizeHint().width() + 2 * frameWidth());
}

} // namespace quarnel
