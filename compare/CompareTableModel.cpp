#include "compare/CompareTableModel.h"

#include "compare/PathResolver.h"
#include "compare/ProjectPaths.h"
#include "diagnostics/DiagnosticsLines.h"
#include "project/PlainText.h"
#include "widgets/QtTexts.h"

#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <numeric>

namespace quarnel {

namespace {

constexpr std::string_view SavedState = " (saved state)";

} // namespace

CompareTableModel::CompareTableModel(QObject* parent)
    : ColumnTableModel(
          [this] {
              std::vector<TableColumn> columns;
              for (std::size_t column = 0; column < CompareColumnCount; ++column)
                  columns.push_back(
                      {[this, column] { return HeadingOf(column); },
                       [this, column](std::size_t row) { return TextOf(row, column); }});
              return columns;
          }(),
          parent) {
    Compare();
}

void CompareTableModel::ChangeRows(const RowChange& change) {
    ShowRows(0, [&] {
        change(rows_, ids_);
        Compare();
    });
    ShowHeadings();
}

int CompareTableModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

void CompareTableModel::ShowSettings(const CompareSettings& settings) {
    Q_EMIT layoutAboutToBeChanged();
    settings_ = settings;
    const std::vector<std::size_t> before = order_;
    Compare();
    // A new unit changes no order of numbers, and a new grouping none at all.
    order_ = before;
    Q_EMIT layoutChanged();
    ShowHeadings();
}

void CompareTableModel::ShowOpenProject(const std::string& path, bool isUnsaved) {
    const std::string resolved = path.empty() ? path : ResolvedPath(path);
    if (resolved == openFile_ && isUnsaved == isUnsaved_)
        return;
    openFile_ = resolved;
    isUnsaved_ = isUnsaved;
    if (!rows_.empty())
        ShowTexts(0, rowCount() - 1, CompareFile);
}

void CompareTableModel::Compare() {
    comparison_ = CompareRows(rows_, settings_);
    texts_.clear();
    texts_.resize(rows_.size());
    SortOrder();
}

// ---- Texts --------------------------------------------------------------------------------------

QString CompareTableModel::HeadingOf(std::size_t column) const {
    return ToQString(CompareHeadings(comparison_)[column]);
}

const CompareTableModel::Texts& CompareTableModel::TextsOf(std::size_t place) const {
    std::unique_ptr<Texts>& texts = texts_[place];
    if (texts == nullptr)
        texts = std::make_unique<Texts>(CompareTexts(rows_[place], comparison_, place));
    return *texts;
}

QString CompareTableModel::TextOf(std::size_t shownRow, std::size_t column) const {
    const std::size_t place = order_[shownRow];
    std::string text = PlainText(TextsOf(place)[column]);
    if (column == CompareFile && isUnsaved_ && !openFile_.empty() &&
        rows_[place].resolvedFile == openFile_)
        text += SavedState;
    return ToQString(text);
}

QVariant CompareTableModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const std::size_t place = PlaceOf(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    switch (role) {
    case Qt::TextAlignmentRole:
        return int((IsNumberColumn(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    case Qt::ForegroundRole:
        return comparison_.rows[place].status == CompareStatus::Counted
                   ? QVariant()
                   : QVariant(QGuiApplication::palette().brush(QPalette::PlaceholderText));
    case Qt::ToolTipRole: {
        const QString toolTip = ToQString(
            WellFormedUtf8(CompareToolTip(rows_[place], comparison_.rows[place], column)));
        return toolTip.isEmpty() ? QVariant() : QVariant(toolTip);
    }
    default:
        return ColumnTableModel::data(index, role);
    }
}

QVariant CompareTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role == Qt::TextAlignmentRole && orientation == Qt::Horizontal)
        return int(
            (IsNumberColumn(static_cast<std::size_t>(section)) ? Qt::AlignRight : Qt::AlignLeft) |
            Qt::AlignVCenter);
    return ColumnTableModel::headerData(section, orientation, role);
}

// ---- Sorting ------------------------------------------------------------------------------------

/// Whether the row at place `a` is shown before that at `b`, for different rows.
bool CompareTableModel::IsBefore(std::size_t a, std::size_t b) const {
    const bool rises = sortOrder_ == Qt::AscendingOrder;
    if (IsNumberColumn(sortColumn_)) {
        const auto first = CompareSortValue(rows_[a], comparison_, a, sortColumn_);
        const auto second = CompareSortValue(rows_[b], comparison_, b, sortColumn_);
        if (!first || !second)
            return first.has_value() && !second.has_value();
        return rises ? *first < *second : *second < *first;
    }
    const std::string& first = TextsOf(a)[sortColumn_];
    const std::string& second = TextsOf(b)[sortColumn_];
    const auto isNothing = [](const std::string& text) { return text.empty() || text == Dash; };
    if (isNothing(first) || isNothing(second))
        return !isNothing(first) && isNothing(second);
    return rises ? IsNaturallyLess(first, second) : IsNaturallyLess(second, first);
}

void CompareTableModel::SortOrder() {
    order_.resize(rows_.size());
    std::iota(order_.begin(), order_.end(), 0);
    std::stable_sort(order_.begin(), order_.end(),
                     [this](std::size_t a, std::size_t b) { return IsBefore(a, b); });
}

void CompareTableModel::sort(int column, Qt::SortOrder order) {
    if (column < 0)
        return;
    Q_EMIT layoutAboutToBeChanged();
    const QModelIndexList before = persistentIndexList();
    std::vector<std::size_t> places;
    for (const QModelIndex& index : before)
        places.push_back(PlaceOf(index.row()));
    sortColumn_ = static_cast<std::size_t>(column);
    sortOrder_ = order;
    SortOrder();
    std::vector<int> shownRows(order_.size());
    for (std::size_t row = 0; row < order_.size(); ++row)
        shownRows[order_[row]] = static_cast<int>(row);
    QModelIndexList after;
    for (qsizetype i = 0; i < before.size(); ++i)
        after.append(index(shownRows[places[static_cast<std::size_t>(i)]], before[i].column()));
    changePersistentIndexList(before, after);
    Q_EMIT layoutChanged();
}

} // namespace quarnel
