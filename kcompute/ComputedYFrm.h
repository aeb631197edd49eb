#pragma once

#include "kcompute/Analysis.h"

#include <QDialog>

class QPlainTextEdit;
class QTableView;

namespace quarnel {

class FittedYModel;

/// The window "Computation Details". It holds texts and rows only while it is shown: those of a
/// logger's million readings are made when someone looks at them.
class ComputedYFrm : public QDialog {
    Q_OBJECT
public:
    explicit ComputedYFrm(Analysis& analysis, QWidget* parent = nullptr);
    /// Shows the analysis again, after New, Open or a computation.
    void ShowState();
    /// Leaves the grid with its headings only, until the next ShowState.
    void ClearGrid();
    /// Headings follow the unit lists of the recovery data.
    void ShowHeadings();

protected:
    QSize sizeHint() const override { return preferredSize_; }
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void BuildGrid();
    void FitToTexts();
    void FillWhileShown();

    Analysis& analysis_;
    bool gridIsCleared_ = false;
    QSize preferredSize_;
    QPlainTextEdit* SummaryText = nullptr;
    QTableView* ComputeYGrid = nullptr;
    FittedYModel* model_ = nullptr;
};

} // namespace quarnel
