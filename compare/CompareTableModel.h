#pragma once

#include "compare/CompareLines.h"
#include "compare/CompareStatistics.h"
#include "widgets/ColumnTableModel.h"

#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace quarnel {

/// The table of the window "Compare Projects": the rows in the order given and how they compare,
/// shown in the order they are sorted by. A row's place counts in the order given, from 0.
class CompareTableModel : public ColumnTableModel {
    Q_OBJECT
public:
    explicit CompareTableModel(QObject* parent = nullptr);

    /// Changes the rows and the numbers by which the window knows each however they are moved and
    /// sorted; there must be as many of both. Views lose what they have selected.
    using RowChange =
        std::function<void(std::vector<CompareRow>& rows, std::vector<std::size_t>& ids)>;
    void ChangeRows(const RowChange& change);
    void ShowSettings(const CompareSettings& settings);
    /// The project at `path` is being edited: its row says so while it is not saved.
    void ShowOpenProject(const std::string& path, bool isUnsaved);

    const std::vector<CompareRow>& Rows() const { return rows_; }
    const std::vector<std::size_t>& Ids() const { return ids_; }
    const Comparison& Compared() const { return comparison_; }
    const CompareSettings& Settings() const { return settings_; }
    /// The place of a shown row.
    std::size_t PlaceOf(int shownRow) const { return order_[static_cast<std::size_t>(shownRow)]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    /// Numbers by their value, dashes last whatever the order; texts as people sort names.
    void sort(int column, Qt::SortOrder order) override;

private:
    using Texts = std::array<std::string, CompareColumnCount>;

    QString HeadingOf(std::size_t column) const;
    const Texts& TextsOf(std::size_t place) const;
    QString TextOf(std::size_t shownRow, std::size_t column) const;
    void Compare();
    void SortOrder();
    bool IsBefore(std::size_t a, std::size_t b) const;

    std::vector<CompareRow> rows_;
    std::vector<std::size_t> ids_;
    CompareSettings settings_;
    Comparison comparison_;
    std::vector<std::size_t> order_;                    ///< the places in the order shown
    mutable std::vector<std::unique_ptr<Texts>> texts_; ///< by place, made when first looked at
    std::string openFile_;                              ///< without links
    bool isUnsaved_ = false;
    std::size_t sortColumn_ = CompareNumber;
    Qt::SortOrder sortOrder_ = Qt::AscendingOrder;
};

} // namespace quarnel
