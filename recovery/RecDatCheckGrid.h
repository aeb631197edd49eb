#pragma once

#include "project/GlobalDeclar.h"
#include "widgets/GridView.h"

#include <QAbstractTableModel>
#include <memory>

namespace quarnel {

/// The checked points as a table that is only looked at: number, time as typed, Y. Without points
/// it has one empty row.
class CheckGridModel : public QAbstractTableModel {
    Q_OBJECT
public:
    explicit CheckGridModel(const ProjectState& state, QObject* parent = nullptr);

    /// Shows these points from now on, however the project goes on being edited.
    void ShowPoints(std::shared_ptr<const RecoveryPointList> points);
    void ShowHeadings();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    const ProjectState& state_;
    std::shared_ptr<const RecoveryPointList> points_;
};

/// The grid beside the readings that shows Y after a check.
class RecDatCheckGrid : public GridView {
    Q_OBJECT
public:
    explicit RecDatCheckGrid(const ProjectState& state, QWidget* parent = nullptr);

    void ShowYInCheckGrid(std::shared_ptr<const RecoveryPointList> points);
    void ClearCheckGrid();
    void ShowHeadings() { model_.ShowHeadings(); }

private:
    CheckGridModel model_;
};

} // namespace quarnel
