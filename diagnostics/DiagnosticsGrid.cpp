#include "diagnostics/DiagnosticsGrid.h"

#include "widgets/QtTexts.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <algorithm>

namespace quarnel {

namespace {

constexpr int CellMargin = 6;
/// Characters that the widest column shows at least in a line.
/// A table narrower than its texts shows so many characters and scrolls.
constexpr int LeastGridCharacters = 40;
constexpr int LeastCharacters = 18;
constexpr int BarCharacters = 24;

/// Draws a bar from the middle of the cell, to the left for a smaller K and to the right for a
/// greater one.
class BarDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        const QVariant bar = index.data(TextRowsModel::BarRole);
        if (!bar.isValid())
            return;
        const QRect room = option.rect.adjusted(CellMargin, 4, -CellMargin, -4);
        const double middle = room.left() + room.width() / 2.0;
        const QPointF ends = bar.toPointF();
        const bool isSelected = (option.state & QStyle::State_Selected) != 0;
        painter->fillRect(
            QRectF(middle + ends.x() * room.width() / 2.0, room.top(),
                   (ends.y() - ends.x()) * room.width() / 2.0, room.height()),
            option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Highlight));
        painter->setPen(
            option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text));
        painter->drawLine(QPointF(middle, option.rect.top()),
                          QPointF(middle, option.rect.bottom()));
    }
};

} // namespace

// ---- Model -------------------------------------------------------------------------------------

void TextRowsModel::ShowTexts(PageTexts texts) {
    beginResetModel();
    texts_ = std::move(texts);
    looks_.clear();
    endResetModel();
}

void TextRowsModel::LookChanged(int row) {
    Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void TextRowsModel::SetBold(int row) {
    looks_[row].isBold = true;
    LookChanged(row);
}

void TextRowsModel::SetToolTip(int row, const QString& toolTip) {
    looks_[row].toolTip = toolTip;
    LookChanged(row);
}

void TextRowsModel::SetIcon(int row, const QIcon& icon) {
    looks_[row].icon = icon;
    LookChanged(row);
}

void TextRowsModel::SetBar(int row, QPointF leastAndGreatest) {
    looks_[row].bar = leastAndGreatest;
    LookChanged(row);
}

const TextRowsModel::RowLook* TextRowsModel::LookOf(int row) const {
    const auto found = looks_.find(row);
    return found == looks_.end() ? nullptr : &found->second;
}

int TextRowsModel::TextColumns() const {
    return texts_.rows.empty() ? static_cast<int>(texts_.headings.size())
                               : static_cast<int>(texts_.rows.front().size());
}

int TextRowsModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(texts_.rows.size());
}

int TextRowsModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : TextColumns() + (barHeading_.isEmpty() ? 0 : 1);
}

QString TextRowsModel::Text(const QModelIndex& index) const {
    const TextRow& row = texts_.rows[static_cast<std::size_t>(index.row())];
    const auto column = static_cast<std::size_t>(index.column());
    return column < row.size() ? ToQString(row[column]) : QString();
}

QVariant TextRowsModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const RowLook* look = LookOf(index.row());
    switch (role) {
    case Qt::DisplayRole:
        return Text(index);
    case Qt::TextAlignmentRole:
        // A long sentence stands beside its name, not its name beside the middle of it.
        return int((texts_.hasNumbers && index.column() > 0 ? Qt::AlignRight : Qt::AlignLeft) |
                   (texts_.hasNumbers ? Qt::AlignVCenter : Qt::AlignTop));
    case Qt::FontRole:
        if (look != nullptr && look->isBold) {
            // Only the weight: the view adds its own family and size.
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        return {};
    case Qt::ToolTipRole:
        return look != nullptr && !look->toolTip.isEmpty() ? look->toolTip : QVariant();
    case Qt::DecorationRole:
        return look != nullptr && index.column() == 0 && !look->icon.isNull() ? look->icon
                                                                              : QVariant();
    case BarRole:
        return look != nullptr && index.column() == TextColumns() ? look->bar : QVariant();
    default:
        return {};
    }
}

QVariant TextRowsModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal)
        return int((texts_.hasNumbers && section > 0 && section < TextColumns() ? Qt::AlignRight
                                                                                : Qt::AlignLeft) |
                   Qt::AlignVCenter);
    if (role != Qt::DisplayRole || section < 0 || orientation == Qt::Vertical)
        return {};
    const auto column = static_cast<std::size_t>(section);
    return column < texts_.headings.size() ? ToQString(texts_.headings[column]) : barHeading_;
}

// ---- View --------------------------------------------------------------------------------------

DiagnosticsGrid::DiagnosticsGrid(const QString& name, const QString& accessibleName, int wideColumn)
    : bars_(new BarDelegate(this))
    , wideColumn_(wideColumn) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    setModel(&model_);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(ContiguousSelection);
    setTabKeyNavigation(false);
    setCornerButtonEnabled(false);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    horizontalHeader()->setSectionsClickable(false);
    horizontalHeader()->setHighlightSections(false);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(&model_, &QAbstractItemModel::modelReset, this, &DiagnosticsGrid::FitToTexts);
    connect(&model_, &QAbstractItemModel::dataChanged, this, &DiagnosticsGrid::FitToTexts);
}

void DiagnosticsGrid::ShowTexts(PageTexts texts) {
    const QModelIndex before = currentIndex();
    const int row = before.isValid() ? before.row() : 0;
    const int column = before.isValid() ? before.column() : 0;
    horizontalHeader()->setVisible(!texts.headings.empty());
    model_.ShowTexts(std::move(texts));
    selectionModel()->setCurrentIndex(model_.index(std::min(row, model_.rowCount() - 1),
                                                   std::min(column, model_.columnCount() - 1)),
                                      QItemSelectionModel::NoUpdate);
}

/// All columns as wide as their texts but the wide one, which takes the rest; without one the table
/// is no wider than its texts.
void DiagnosticsGrid::FitToTexts() {
    int total = 2 * frameWidth();
    for (int column = 0; column < model_.columnCount(); ++column) {
        const int width = ColumnWidth(column);
        if (column != wideColumn_) {
            horizontalHeader()->setSectionResizeMode(column, QHeaderView::Fixed);
            horizontalHeader()->resizeSection(column, width);
        }
        total += width;
    }
    neededWidth_ = total;
    setMinimumWidth(std::min(total, fontMetrics().averageCharWidth() * LeastGridCharacters));
    if (wideColumn_ < 0)
        setMaximumWidth(total);
    FitToWidth();
}

/// Where the window is too narrow for the texts, this table scrolls sideways, and not the page with
/// its sentences.
void DiagnosticsGrid::FitToWidth() {
    if (wideColumn_ >= 0 && wideColumn_ < horizontalHeader()->count()) {
        const bool isCut = width() < neededWidth_;
        const QHeaderView::ResizeMode mode = isCut ? QHeaderView::Fixed : QHeaderView::Stretch;
        if (horizontalHeader()->sectionResizeMode(wideColumn_) != mode)
            horizontalHeader()->setSectionResizeMode(wideColumn_, mode);
        if (isCut)
            horizontalHeader()->resizeSection(wideColumn_, ColumnWidth(wideColumn_));
    }
    FitHeight();
}

/// What a column needs at least.
int DiagnosticsGrid::ColumnWidth(int column) {
    const int heading = horizontalHeader()->isHidden()
                            ? 0
                            : horizontalHeader()->sectionSizeHint(column) + CellMargin;
    const int character = fontMetrics().averageCharWidth();
    if (model_.index(0, column).data(TextRowsModel::BarRole).isValid()) {
        setItemDelegateForColumn(column, bars_);
        return std::max(heading, character * BarCharacters);
    }
    if (column == wideColumn_)
        return std::max(heading, character * LeastCharacters);
    return std::max(heading, sizeHintForColumn(column) + 2 * CellMargin);
}

void DiagnosticsGrid::FitHeight() {
    const int oneLine = fontMetrics().height() + CellMargin; // as in all grids
    for (int row = 0; row < model_.rowCount(); ++row)
        setRowHeight(row, std::max(sizeHintForRow(row), oneLine));
    int height = 2 * frameWidth() + verticalHeader()->length();
    if (!horizontalHeader()->isHidden())
        height += horizontalHeader()->sizeHint().height();
    if (width() < neededWidth_)
        height += horizontalScrollBar()->sizeHint().height();
    setFixedHeight(height);
}

void DiagnosticsGrid::initViewItemOption(QStyleOptionViewItem* option) const {
    QTableView::initViewItemOption(option);
    option->decorationAlignment = Qt::AlignHCenter | Qt::AlignTop;
}

void DiagnosticsGrid::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        FitToTexts();
}

void DiagnosticsGrid::resizeEvent(QResizeEvent* event) {
    QTableView::resizeEvent(event);
    if (event->size().width() != event->oldSize().width())
        FitToWidth();
}

void DiagnosticsGrid::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    for (QWidget* outer = parentWidget(); outer != nullptr; outer = outer->parentWidget())
        if (auto* scroll = qobject_cast<QScrollArea*>(outer)) {
            const QRect cell = visualRect(current);
            const QPoint middle = viewport()->mapTo(scroll->widget(), cell.center());
            scroll->ensureVisible(middle.x(), middle.y(), cell.width() / 2,
                                  cell.height() / 2 + CellMargin);
            return;
        }
}

void DiagnosticsGrid::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        CopySelection();
    else
        QTableView::keyPressEvent(event);
}

void DiagnosticsGrid::CopySelection() {
    QModelIndexList cells = selectedIndexes();
    std::sort(cells.begin(), cells.end());
    QString text;
    for (qsizetype i = 0; i < cells.size(); ++i) {
        if (i > 0)
            text += cells[i].row() == cells[i - 1].row() ? u'\t' : u'\n';
        text += cells[i].data().toString();
    }
    if (!cells.isEmpty())
        QGuiApplication::clipboard()->setText(text);
}

} // namespace quarnel
