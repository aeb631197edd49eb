#pragma once

#include "project/ProjectState.h"
#include "recovery/RecoveryData.h"
#include "widgets/ColumnTableModel.h"
#include "widgets/GridView.h"

namespace quarnel {

/// The grid beside the readings that shows Y after a check: number, time as typed, Y. Without
/// points it has one empty row.
class RecDatCheckGrid : public GridView {
    Q_OBJECT
public:
    explicit RecDatCheckGrid(const ProjectState& state, QWidget* parent = nullptr);

    /// Shows these points from now on, however the project goes on being edited.
    void ShowYInCheckGrid(SharedPoints points);
    void ClearCheckGrid();
    void ShowHeadings() { model_.ShowHeadings(); }

private:
    SharedPoints points_;
    ColumnTableModel model_;
};

} // namespace quarnel
