#include "kcompute/UseIgnoreGrid.h"

#include "recovery/RecoveryDa.h"
#include "widgets/QtTexts.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>
#include <array>

namespace quarnel {

namespace {

constexpr std::string_view CriteriaHeading = "Criteria\r\n(U/I)";
/// Room that the widest text of each column needs.
constexpr std::array<const char*, UseIgnoreModel::Columns> WidestTexts = {
    "1000000", "100000.00", "-1.234567E-05", "Ignore"};

/// Paints the row numbers as a heading: they are no data and cannot be selected.
class SampleDelegate : public QStyledItemDelegate {
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

/// The key that a typed character is. Only these three do anything: no lower-case letter does.
std::optional<MarkKey> MarkKeyOf(const QKeyEvent& event) {
    if ((event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0)
        return std::nullopt;
    const QString text = event.text();
    if (text == QLatin1String(" "))
        return MarkKey::TurnOver;
    if (text == QLatin1String("U"))
        return MarkKey::Use;
    if (text == QLatin1String("I"))
        return MarkKey::Ignore;
    return std::nullopt;
}

bool IsCharacter(const QKeyEvent& event) {
    return !event.text().isEmpty() && event.text().front().isPrint();
}

} // namespace

// ---- The rows ---------------------------------------------------------------------------------

UseIgnoreModel::UseIgnoreModel(Analysis& analysis, QObject* parent)
    : QAbstractTableModel(parent)
    , analysis_(analysis) {}

int UseIgnoreModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rowCount_;
}

int UseIgnoreModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : Columns;
}

std::string UseIgnoreModel::TextAt(std::size_t row, int column) const {
    if (column == SampleColumn)
        return std::to_string(row + 1);
    const RecoveryPointList& points = *analysis_.computed.RecoveryPoints;
    if (row >= points.size())
        return {};
    if (column == TimeColumn)
        return points[row].timeText.ToString();
    if (column == YColumn)
        return YText(points[row]);
    const std::vector<CellText>& criteria = analysis_.computed.Criteria;
    return row < criteria.size() ? criteria[row].ToString() : std::string();
}

QVariant UseIgnoreModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    if (role == Qt::DisplayRole)
        return ToQString(TextAt(static_cast<std::size_t>(index.row()), index.column()));
    if (role == Qt::TextAlignmentRole && index.column() == SampleColumn)
        return int(Qt::AlignRight | Qt::AlignVCenter);
    return {};
}

QVariant UseIgnoreModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    switch (section) {
    case SampleColumn:
        return ToHeading(SampleHeading());
    case TimeColumn:
        return ToHeading(TimeHeading(analysis_.state.RecDatTimeUnitsDDL));
    case YColumn:
        return ToHeading(YHeading(analysis_.state.RecDatWaterLevelUnitsDDL));
    case CriteriaColumn:
        return ToHeading(CriteriaHeading);
    default:
        return {};
    }
}

Qt::ItemFlags UseIgnoreModel::flags(const QModelIndex& index) const {
    // The row number is a fixed column: the current cell never stands in it.
    if (!index.isValid() || index.column() == SampleColumn)
        return Qt::ItemNeverHasChildren;
    return Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
}

void UseIgnoreModel::Refill() {
    beginResetModel();
    rowCount_ = std::max(1, static_cast<int>(analysis_.computed.RecoveryPoints->size()));
    endResetModel();
}

void UseIgnoreModel::Apply(MarkKey key, int first, int last) {
    ChangeMarks(analysis_.state, analysis_.computed, static_cast<std::size_t>(first),
                static_cast<std::size_t>(last), key);
    Q_EMIT dataChanged(index(first, CriteriaColumn), index(last, CriteriaColumn));
}

void UseIgnoreModel::ShowMarks() {
    Q_EMIT dataChanged(index(0, CriteriaColumn), index(rowCount_ - 1, CriteriaColumn));
}

void UseIgnoreModel::ShowHeadings() {
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, Columns - 1);
}

// ---- The grid ---------------------------------------------------------------------------------

UseIgnoreGrid::UseIgnoreGrid(Analysis& analysis, QWidget* parent)
    : QTableView(parent)
    , model_(new UseIgnoreModel(analysis, this)) {
    setObjectName(QStringLiteral("RecDatWeightGrid"));
    setAccessibleName(tr("Points to use or ignore in the fit"));
    setModel(model_);
    setItemDelegateForColumn(UseIgnoreModel::SampleColumn, new SampleDelegate(this));
    setSelectionMode(QAbstractItemView::ContiguousSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setTabKeyNavigation(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setVerticalScrollMode(QAbstractItemView::ScrollPerItem);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    FitColumns();
}

void UseIgnoreGrid::FitColumns() {
    const QFontMetrics metrics(font());
    const int margin = 2 * (style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, this) + 1) +
                       metrics.horizontalAdvance(QLatin1Char('0'));
    for (int column = 0; column < UseIgnoreModel::Columns; ++column) {
        const int text =
            metrics.horizontalAdvance(QLatin1String(WidestTexts[static_cast<std::size_t>(column)]));
        setColumnWidth(column, std::max(text + margin,
                                        horizontalHeader()->sectionSizeHint(column) + margin / 2));
    }
    verticalHeader()->setDefaultSectionSize(
        std::max(metrics.height() + 4, verticalHeader()->minimumSectionSize()));
}

QSize UseIgnoreGrid::sizeHint() const {
    return {horizontalHeader()->length() + verticalScrollBar()->sizeHint().width() +
                2 * frameWidth() + 2,
            QTableView::sizeHint().height()};
}

/// Never narrower than its columns: going to the marks would scroll the row numbers out of sight.
QSize UseIgnoreGrid::minimumSizeHint() const {
    return {sizeHint().width(), QTableView::minimumSizeHint().height()};
}

void UseIgnoreGrid::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (model_ != nullptr &&
        (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange))
        FitColumns();
}

void UseIgnoreGrid::Refill() {
    rowAnchor_ = -1;
    model_->Refill();
    // In the column of the marks, so that its keys work as soon as the grid has the focus.
    setCurrentIndex(model_->index(0, UseIgnoreModel::CriteriaColumn));
    scrollToTop();
}

std::optional<UseIgnoreGrid::RowRange> UseIgnoreGrid::RowsToMark() const {
    const QModelIndex current = currentIndex();
    if (!current.isValid())
        return std::nullopt;
    RowRange rows{current.row(), current.row()};
    int left = current.column();
    int right = current.column();
    for (const QItemSelectionRange& range : selectionModel()->selection()) {
        rows.first = std::min(rows.first, range.top());
        rows.last = std::max(rows.last, range.bottom());
        left = std::min(left, range.left());
        right = std::max(right, range.right());
    }
    constexpr int Criteria = UseIgnoreModel::CriteriaColumn;
    return left == Criteria && right == Criteria ? std::optional<RowRange>(rows) : std::nullopt;
}

void UseIgnoreGrid::Mark(MarkKey key) {
    if (const std::optional<RowRange> rows = RowsToMark())
        model_->Apply(key, rows->first, rows->last);
}

void UseIgnoreGrid::keyPressEvent(QKeyEvent* event) {
    if (const std::optional<MarkKey> key = MarkKeyOf(*event)) {
        Mark(*key);
        event->accept();
        return;
    }
    // A view would search its cells for a typed character, or turn the selection over at a space.
    if (IsCharacter(*event)) {
        event->ignore();
        return;
    }
    rowAnchor_ = -1;
    QTableView::keyPressEvent(event);
}

void UseIgnoreGrid::SelectRowsTo(int row, bool extend) {
    if (!extend || rowAnchor_ < 0)
        rowAnchor_ = row;
    const QItemSelection rows(
        model_->index(std::min(rowAnchor_, row), UseIgnoreModel::TimeColumn),
        model_->index(std::max(rowAnchor_, row), UseIgnoreModel::CriteriaColumn));
    selectionModel()->setCurrentIndex(model_->index(rowAnchor_, UseIgnoreModel::TimeColumn),
                                      QItemSelectionModel::NoUpdate);
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
}

void UseIgnoreGrid::mousePressEvent(QMouseEvent* event) {
    const QModelIndex pressed = indexAt(event->position().toPoint());
    if (pressed.isValid() && pressed.column() == UseIgnoreModel::SampleColumn) {
        if (event->button() == Qt::LeftButton)
            SelectRowsTo(pressed.row(), (event->modifiers() & Qt::ShiftModifier) != 0);
        return;
    }
    rowAnchor_ = -1;
    QTableView::mousePressEvent(event);
}

void UseIgnoreGrid::mouseMoveEvent(QMouseEvent* event) {
    if (rowAnchor_ < 0) {
        QTableView::mouseMoveEvent(event);
        return;
    }
    const int row = rowAt(event->position().toPoint().y());
    if ((event->buttons() & Qt::LeftButton) != 0 && row >= 0)
        SelectRowsTo(row, true);
}

void UseIgnoreGrid::contextMenuEvent(QContextMenuEvent* event) {
    QMenu menu(this);
    const auto add = [this, &menu](const QString& text, const QString& name, MarkKey key) {
        QAction* action = menu.addAction(text, this, [this, key] { Mark(key); });
        action->setObjectName(name);
        action->setEnabled(RowsToMark().has_value());
    };
    add(tr("&Use\tU"), QStringLiteral("MarkUse"), MarkKey::Use);
    add(tr("&Ignore\tI"), QStringLiteral("MarkIgnore"), MarkKey::Ignore);
    add(tr("&Turn Over\tSpace"), QStringLiteral("MarkTurnOver"), MarkKey::TurnOver);
    menu.exec(event->globalPos());
}

} // namespace quarnel
