#pragma once

#include "kcompute/MarkEditor.h"
#include "kcompute/UseIgnore.h"
#include "kcompute/WorkingValues.h"
#include "project/ProjectState.h"
#include "widgets/ColumnTableModel.h"
#include "widgets/GridView.h"

#include <optional>

namespace quarnel {

/// The grid `RecDatWeightGrid`. The keys space, "U" and "I" mark the selected points while the
/// selection lies wholly in the last column.
class UseIgnoreGrid : public GridView {
    Q_OBJECT
public:
    enum Column { SampleColumn = 0, TimeColumn = 1, YColumn = 2, CriteriaColumn = 3 };

    UseIgnoreGrid(const ProjectState& state, const WorkingValues& working, MarkEditor& editor,
                  QWidget* parent = nullptr);
    /// Shows the points anew with row 1 in view; with no points there is one empty row.
    void Refill();
    /// The marks were changed by something other than this grid.
    void ShowMarks();
    void Undo();
    void Redo();
    /// The unit lists changed.
    void ShowHeadings() { model_.ShowHeadings(); }

Q_SIGNALS:
    /// The user marked points.
    void MarksChanged();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    struct RowRange {
        int first = 0;
        int last = 0;
    };
    /// The selected rows, if the selection lies wholly in the criteria column.
    std::optional<RowRange> RowsToMark() const;
    void MarkSelected(MarkKey key);

    const WorkingValues& working_;
    MarkEditor& editor_;
    ColumnTableModel model_;
};

} // namespace quarnel
