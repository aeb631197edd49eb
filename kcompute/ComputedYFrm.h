#pragma once

#include "kcompute/Computation.h"
#include "project/ProjectState.h"
#include "widgets/ColumnTableModel.h"
#include "widgets/GridView.h"

#include <QDialog>

class QPlainTextEdit;
class QSplitter;

namespace quarnel {

class StaleLabel;

/// The window "Computation Details". It holds texts and rows only while it is shown: those of a
/// logger's million readings are made when someone looks at them.
class ComputedYFrm : public QDialog {
    Q_OBJECT
public:
    ComputedYFrm(const ProjectState& state, const ComputationPtr& computation,
                 QWidget* parent = nullptr);
    /// Shows the computation again: another one, none, other units of K or other names.
    void ShowState();
    void ShowStale(bool stale);

protected:
    /// Large enough for the lines there are now, within the screen.
    QSize sizeHint() const override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void BuildGrid();
    QSize TextSize() const;
    void Arrange();
    void Grow();
    void FillWhileShown();
    void ShowRowsOf(ComputationPtr computation);

    const ProjectState& state_;
    const ComputationPtr& computation_; ///< of the analysis, as it stands now
    ComputationPtr shown_;              ///< what the grid's rows are made from
    QPlainTextEdit* SummaryText = nullptr;
    GridView* ComputeYGrid = nullptr;
    QSplitter* splitter_ = nullptr;
    StaleLabel* stale_ = nullptr;
    ColumnTableModel model_;
};

} // namespace quarnel
