#pragma once

#include "kcompute/MarkEditor.h"
#include "kcompute/UseIgnore.h"
#include "kcompute/WorkingValues.h"
#include "project/ProjectState.h"
#include "widgets/ColumnTableModel.h"
#include "widgets/GridView.h"

#include <QList>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <optional>

class QAction;

namespace quarnel {

/// The grid `RecDatWeightGrid`. The keys space, "U" and "I" mark the selected points while the
/// selection lies wholly in the last column. Rows that say "Ignore" are dimmed. Its selection is
/// that of the plot too, which may select several runs of rows at once.
class UseIgnoreGrid : public GridView {
    Q_OBJECT
public:
    enum Column { SampleColumn = 0, TimeColumn = 1, YColumn = 2, CriteriaColumn = 3 };

    UseIgnoreGrid(const ProjectState& state, const WorkingValues& working, MarkEditor& editor,
                  QWidget* parent = nullptr);
    /// The mark key that a typed character is. Only three do anything: no lower-case letter does.
    static std::optional<MarkKey> MarkKeyOf(const QKeyEvent& event);

    /// Shows the points anew, with row 1 in view and current unless they are the same readings as
    /// before; with no points there is one empty row.
    void Refill();
    /// The marks were changed by something other than this grid.
    void ShowMarks();
    void Undo();
    void Redo();
    /// The unit lists changed.
    void ShowHeadings() { model_.ShowHeadings(); }

    const WorkingValues& Working() const { return working_; }
    /// The rows that are selected (counted from 0), in whatever columns; the current row alone
    /// where nothing is.
    PointRuns SelectedRuns() const;
    /// Selects the marks of these rows. `current` is where the selection began, `end` is kept in
    /// view.
    void SelectRuns(const PointRuns& runs, std::size_t current, std::size_t end);
    /// Marks the selected rows, in whatever columns they are selected.
    void MarkRuns(MarkKey key);
    /// "Use", "Ignore", "Turn Over" and "Use Only These" for the selected rows, as actions of
    /// `parent`.
    QList<QAction*> MakeMarkActions(QObject* parent);
    QString BlockText() const override;

Q_SIGNALS:
    /// The user marked points.
    void MarksChanged();
    /// The points were shown anew.
    void Refilled();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    /// Whether the selection lies wholly in the criteria column.
    bool SelectsMarksOnly() const;
    void UseOnlySelected();

    const WorkingValues& working_;
    MarkEditor& editor_;
    ColumnTableModel model_;
    std::uint64_t readings_ = 0; ///< what tells the readings that are shown from others
};

} // namespace quarnel
