#include "widgets/GridView.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

namespace quarnel {

namespace {

/// Room for a row number of so many digits is there from the start.
constexpr int UsualDigits = 7;
/// The room around a text in a cell.
constexpr int CellMargin = 6;
/// Wider than so many times its need no column gets: the eye would lose the row.
constexpr int MostTimesTheNeed = 2;
/// So many rows are seen at least.
constexpr int LeastRows = 4;

/// Paints the row numbers as a heading: they are no data and cannot be selected.
class NumberDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        option->state |= QStyle::State_Enabled;
        option->state &= ~(QStyle::State_Selected | QStyle::State_HasFocus);
        option->backgroundBrush = option->palette.button();
        option->palette.setColor(QPalette::Text,
                                 option->palette.color(QPalette::Active, QPalette::ButtonText));
    }
};

/// The width of the widest number of so many digits.
int NumberWidth(const QFontMetrics& metrics, int digits) {
    int widest = 0;
    for (char digit = '0'; digit <= '9'; ++digit)
        widest = std::max(widest, metrics.horizontalAdvance(QLatin1Char(digit)));
    return widest * digits;
}

} // namespace

GridView::GridView(QWidget* parent)
    : QTableView(parent) {
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    QHeaderView& header = *horizontalHeader();
    header.setHighlightSections(false);
    header.setDefaultAlignment(Qt::AlignCenter);
    // A click selects the column as this view does it, not as the toolkit would.
    header.setSectionsClickable(true);
    disconnect(&header, &QHeaderView::sectionPressed, this, nullptr);
    disconnect(&header, &QHeaderView::sectionEntered, this, nullptr);
    connect(&header, &QHeaderView::sectionPressed, this, &GridView::SelectColumn);
    setItemDelegateForColumn(0, new NumberDelegate(this));
    setSelectionMode(ContiguousSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    setEditTriggers(NoEditTriggers);
    setAutoScroll(false);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setWordWrap(false);
}

void GridView::setModel(QAbstractItemModel* newModel) {
    QTableView::setModel(newModel);
    if (newModel != nullptr) {
        connect(newModel, &QAbstractItemModel::headerDataChanged, this, &GridView::FitToFont);
        connect(newModel, &QAbstractItemModel::rowsInserted, this, &GridView::FitNumberColumn);
        connect(newModel, &QAbstractItemModel::modelReset, this, &GridView::FitNumberColumn);
    }
    FitToFont();
}

void GridView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FitToFont();
}

void GridView::SetWidestTexts(const QStringList& texts) {
    widestTexts_ = texts;
    FitToFont();
}

int GridView::WidestTextWidth(int column) const {
    return fontMetrics().horizontalAdvance(widestTexts_.value(column)) + 2 * CellMargin;
}

void GridView::FitNumberColumn() {
    if (model() != nullptr && QString::number(model()->rowCount()).size() > numberDigits_)
        FitToFont();
}

void GridView::FitToFont() {
    if (model() == nullptr)
        return;
    numberDigits_ =
        std::max<int>(UsualDigits, static_cast<int>(QString::number(model()->rowCount()).size()));
    const int rowHeight = fontMetrics().height() + CellMargin;
    verticalHeader()->setMinimumSectionSize(rowHeight);
    verticalHeader()->setDefaultSectionSize(rowHeight);
    QHeaderView& header = *horizontalHeader();
    const int numberWidth = NumberWidth(fontMetrics(), numberDigits_) + 2 * CellMargin + 2;
    int total = 0;
    int most = 0;
    for (int column = 0; column < header.count(); ++column) {
        const int width = std::max(header.sectionSizeHint(column),
                                   column == 0 ? numberWidth : WidestTextWidth(column));
        header.setSectionResizeMode(column,
                                    column == 0 ? QHeaderView::Fixed : QHeaderView::Stretch);
        header.resizeSection(column, width);
        total += width;
        most += column == 0 ? width : width * MostTimesTheNeed;
    }
    const int around = verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
    setMinimumWidth(total + around);
    setMaximumWidth(most + around);
    setMinimumHeight(header.sizeHint().height() + LeastRows * rowHeight + 2 * frameWidth());
}

QSize GridView::sizeHint() const {
    return {minimumWidth(), QTableView::sizeHint().height()};
}

} // namespace quarnel
