// What the user does with the rows of the window "Compare Projects".

#include "compare/CompareGrid.h"
#include "compare/CompareProjectsFrm.h"

#include <QComboBox>
#include <QItemSelectionModel>
#include <algorithm>
#include <unordered_set>
#include <utility>

namespace quarnel {

namespace {

constexpr std::size_t NoId = static_cast<std::size_t>(-1);

} // namespace

std::vector<std::size_t> CompareProjectsFrm::ChosenPlaces() const {
    std::vector<std::size_t> places;
    const QModelIndexList chosen = grid_->selectionModel()->selectedRows();
    for (const QModelIndex& index : chosen)
        places.push_back(model_->PlaceOf(index.row()));
    std::sort(places.begin(), places.end());
    return places;
}

std::vector<std::size_t> CompareProjectsFrm::ChosenIds() const {
    std::vector<std::size_t> ids;
    for (const std::size_t place : ChosenPlaces())
        ids.push_back(model_->Ids()[place]);
    return ids;
}

std::size_t CompareProjectsFrm::CurrentId() const {
    const QModelIndex current = grid_->currentIndex();
    return current.isValid() ? model_->Ids()[model_->PlaceOf(current.row())] : NoId;
}

/// Changes the rows; those of `chosenIds` are chosen behind it.
void CompareProjectsFrm::ChangeRows(const CompareTableModel::RowChange& change,
                                    const std::vector<std::size_t>& chosenIds,
                                    std::size_t currentId) {
    const int column = std::max(0, grid_->currentIndex().column());
    model_->ChangeRows(change);
    const std::unordered_set<std::size_t> wanted(chosenIds.begin(), chosenIds.end());
    QItemSelection chosen;
    QModelIndex current;
    for (int row = 0; row < model_->rowCount(); ++row) {
        const std::size_t id = model_->Ids()[model_->PlaceOf(row)];
        const QModelIndex index = model_->index(row, column);
        if (id == currentId)
            current = index;
        if (wanted.contains(id))
            chosen.select(index, index);
    }
    QItemSelectionModel& selection = *grid_->selectionModel();
    selection.setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    selection.select(chosen, QItemSelectionModel::Select | QItemSelectionModel::Rows);
    ShowComparison();
}

/// Of the rows as they are shown: the first behind those that are chosen, or the last before them.
std::size_t CompareProjectsFrm::NeighbourOfChosen() const {
    const QItemSelectionModel& selection = *grid_->selectionModel();
    const QModelIndexList chosen = selection.selectedRows();
    const auto last = std::ranges::max_element(chosen, {}, &QModelIndex::row);
    int row = last == chosen.end() ? 0 : last->row() + 1;
    if (row == model_->rowCount())
        for (--row; row >= 0 && selection.isRowSelected(row);)
            --row;
    return row >= 0 && row < model_->rowCount() ? model_->Ids()[model_->PlaceOf(row)] : NoId;
}

/// The neighbour is chosen next, so that the keyboard goes on where it was.
void CompareProjectsFrm::RemoveChosen() {
    const std::vector<std::size_t> chosen = ChosenPlaces();
    const std::size_t next = NeighbourOfChosen();
    ChangeRows(
        [&chosen](std::vector<CompareRow>& rows, std::vector<std::size_t>& ids) {
            for (auto place = chosen.rbegin(); place != chosen.rend(); ++place) {
                rows.erase(rows.begin() + static_cast<std::ptrdiff_t>(*place));
                ids.erase(ids.begin() + static_cast<std::ptrdiff_t>(*place));
            }
        },
        {next}, next);
}

void CompareProjectsFrm::MoveChosenUp() {
    MoveChosen(-1);
}

void CompareProjectsFrm::MoveChosenDown() {
    MoveChosen(1);
}

/// Moves each chosen row by one place; those at the end of the table, and behind each other there,
/// stay.
void CompareProjectsFrm::MoveChosen(int by) {
    std::vector<std::size_t> places = ChosenPlaces();
    if (by > 0)
        std::reverse(places.begin(), places.end());
    ChangeRows(
        [&places, by](std::vector<CompareRow>& rows, std::vector<std::size_t>& ids) {
            std::size_t end = by > 0 ? rows.size() - 1 : 0; // where no row can move on
            for (const std::size_t place : places) {
                if (place == end) {
                    end -= static_cast<std::size_t>(by);
                    continue;
                }
                const std::size_t to = place + static_cast<std::size_t>(by);
                std::swap(rows[place], rows[to]);
                std::swap(ids[place], ids[to]);
            }
        },
        ChosenIds(), CurrentId());
}

void CompareProjectsFrm::OpenRow(const QModelIndex& index) {
    Q_EMIT OpenRequested(model_->Rows()[model_->PlaceOf(index.row())].file);
}

void CompareProjectsFrm::ChooseUnit() {
    CompareSettings settings = model_->Settings();
    settings.unit = CompareUnit{lengthUnit_->currentIndex(), timeUnit_->currentIndex()};
    model_->ShowSettings(settings);
    ShowComparison();
    grid_->FitColumns();
}

void CompareProjectsFrm::ChooseGroup() {
    CompareSettings settings = model_->Settings();
    settings.grouping = static_cast<Grouping>(group_->currentIndex());
    model_->ShowSettings(settings);
    ShowComparison();
}

} // namespace quarnel
