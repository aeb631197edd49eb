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
constexpr std::array<const char*, 4> WidestTexts = {"1000000", "100000.00", "-1.234567E-05",
                                                    "Ignore"};

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

std::vector<TableColumn> UseIgnoreColumns(const ProjectState& state, const WorkingValues& working) {
    const auto pointText = [&working](auto textOf) {
        return [&working, textOf](std::size_t row) {
            const RecoveryPointList& points = *working.recovery.RecoveryPoints;
            return row < points.size() ? ToQString(textOf(points[row])) : QString();
        };
    };
    return {{[] { return ToHeading(SampleHeading()); },
             [](std::size_t row) { return QString::number(row + 1); }, true},
            {[&state] { return ToHeading(TimeHeading(state.RecDatTimeUnitsDDL)); },
             pointText([](const RecoveryPoint& point) { return point.timeText.ToString(); })},
            {[&state] { return ToHeading(YHeading(state.RecDatWaterLevelUnitsDDL)); },
             pointText([](const RecoveryPoint& point) { return YText(point); })},
            {[] { return ToHeading(CriteriaHeading); },
             [&working](std::size_t row) {
                 return row < working.marks.size() ? ToQString(MarkText(working.marks[row]))
                                                   : QString();
             }}};
}

} // namespace

UseIgnoreGrid::UseIgnoreGrid(const ProjectState& state, const WorkingValues& working,
                             MarkEditor& editor, QWidget* parent)
    : QTableView(parent)
    , working_(working)
    , editor_(editor)
    , model_(UseIgnoreColumns(state, working)) {
    setObjectName(QStringLiteral("RecDatWeightGrid"));
    setAccessibleName(tr("Points to use or ignore in the fit"));
    setModel(&model_);
    setItemDelegateForColumn(SampleColumn, new SampleDelegate(this));
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
    for (int column = 0; column < static_cast<int>(WidestTexts.size()); ++column) {
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
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FitColumns();
}

void UseIgnoreGrid::Refill() {
    rowAnchor_ = -1;
    model_.ShowRows(std::max<std::size_t>(1, working_.recovery.RecoveryPoints->size()));
    // In the column of the marks, so that its keys work as soon as the grid has the focus.
    setCurrentIndex(model_.index(0, CriteriaColumn));
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
    return left == CriteriaColumn && right == CriteriaColumn ? std::optional<RowRange>(rows)
                                                             : std::nullopt;
}

void UseIgnoreGrid::MarkSelected(MarkKey key) {
    const std::optional<RowRange> rows = RowsToMark();
    if (!rows)
        return;
    editor_.Press(key, static_cast<std::size_t>(rows->first), static_cast<std::size_t>(rows->last));
    ShowMarks();
    Q_EMIT MarksChanged();
}

void UseIgnoreGrid::Undo() {
    editor_.Undo();
    ShowMarks();
    Q_EMIT MarksChanged();
}

void UseIgnoreGrid::Redo() {
    editor_.Redo();
    ShowMarks();
    Q_EMIT MarksChanged();
}

void UseIgnoreGrid::ShowMarks() {
    model_.ShowTexts(0, model_.rowCount() - 1, CriteriaColumn);
}

void UseIgnoreGrid::keyPressEvent(QKeyEvent* event) {
    if (const std::optional<MarkKey> key = MarkKeyOf(*event)) {
        MarkSelected(*key);
        event->accept();
        return;
    }
    if (event->matches(QKeySequence::Undo)) {
        Undo();
        return;
    }
    if (event->matches(QKeySequence::Redo)) {
        Redo();
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
    const QItemSelection rows(model_.index(std::min(rowAnchor_, row), TimeColumn),
                              model_.index(std::max(rowAnchor_, row), CriteriaColumn));
    selectionModel()->setCurrentIndex(model_.index(rowAnchor_, TimeColumn),
                                      QItemSelectionModel::NoUpdate);
    selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect);
}

void UseIgnoreGrid::mousePressEvent(QMouseEvent* event) {
    const QModelIndex pressed = indexAt(event->position().toPoint());
    if (pressed.isValid() && pressed.column() == SampleColumn) {
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
        QAction* action = menu.addAction(text, this, [this, key] { MarkSelected(key); });
        action->setObjectName(name);
        action->setEnabled(RowsToMark().has_value());
    };
    add(tr("&Use\tU"), QStringLiteral("MarkUse"), MarkKey::Use);
    add(tr("&Ignore\tI"), QStringLiteral("MarkIgnore"), MarkKey::Ignore);
    add(tr("&Turn Over\tSpace"), QStringLiteral("MarkTurnOver"), MarkKey::TurnOver);
    menu.addSeparator();
    menu.addAction(QStringLiteral("U&ndo\tCtrl+Z"), this, &UseIgnoreGrid::Undo)
        ->setEnabled(editor_.CanUndo());
    menu.addAction(QStringLiteral("&Redo\tCtrl+Shift+Z"), this, &UseIgnoreGrid::Redo)
        ->setEnabled(editor_.CanRedo());
    menu.exec(event->globalPos());
}

} // namespace quarnel
