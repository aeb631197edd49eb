#pragma once

#include "kcompute/Analysis.h"
#include "kcompute/UseIgnore.h"

#include <QAbstractTableModel>
#include <QTableView>
#include <optional>

namespace quarnel {

/// The rows of the Use/Ignore grid, straight over the checked points: sample number, time, Y and
/// criterion. With no points there is one empty row.
class UseIgnoreModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { SampleColumn = 0, TimeColumn = 1, YColumn = 2, CriteriaColumn = 3 };
    static constexpr int Columns = 4;

    explicit UseIgnoreModel(Analysis& analysis, QObject* parent = nullptr);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

    /// Shows the points anew, after a check or New.
    void Refill();
    /// Applies a key to rows first..last (from 0) and carries it into the ignore-key list.
    void Apply(MarkKey key, int first, int last);
    /// The marks were rewritten by a gathering.
    void ShowMarks();
    /// The unit lists changed.
    void ShowHeadings();

private:
    std::string TextAt(std::size_t row, int column) const;

    Analysis& analysis_;
    int rowCount_ = 1; ///< as told to the views, however the points change meanwhile
};

/// The grid `RecDatWeightGrid`. The keys space, "U" and "I" mark the selected points while the
/// selection lies wholly in the last column.
class UseIgnoreGrid : public QTableView {
    Q_OBJECT
public:
    explicit UseIgnoreGrid(Analysis& analysis, QWidget* parent = nullptr);
    UseIgnoreModel& Model() { return *model_; }
    /// Shows the points anew with row 1 in view.
    void Refill();
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct RowRange {
        int first = 0;
        int last = 0;
    };
    /// The selected rows, if the selection lies wholly in the criteria column.
    std::optional<RowRange> RowsToMark() const;
    void Mark(MarkKey key);
    void SelectRowsTo(int row, bool extend);
    void FitColumns();

    UseIgnoreModel* model_ = nullptr;
    int rowAnchor_ = -1; ///< where a selection by row numbers began; -1 for none
};

} // namespace quarnel
