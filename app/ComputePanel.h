#pragma once

#include "kcompute/Analysis.h"
#include "kcompute/MarkEditor.h"
#include "widgets/Panel.h"

#include <cstddef>
#include <vector>

class QAction;
class QBoxLayout;
class QComboBox;
class QPushButton;

namespace quarnel {

class KLabel;
class PlotWidget;
class StaleLabel;
class UseIgnoreGrid;

/// The panel "Compute Hydraulic Conductivity": the plot, the Use/Ignore grid, K and its units, and
/// the commands for details, printed plot and report.
class ComputePanel : public Panel {
    Q_OBJECT
public:
    explicit ComputePanel(Analysis& analysis, QWidget* parent = nullptr);
    /// Shows the analysis again after New or Open.
    void ShowState() override;
    /// Shows what a preparation left: the points with their marks. Plot and K label stay.
    void ShowPreparedData();
    /// Headings follow the unit lists of the recovery data.
    void ShowHeadings();
    /// Marks these points (counted from 0) Use and all others Ignore, as one step.
    void UseOnly(const std::vector<std::size_t>& points);
    /// Adds a command of the main window to the menu of the plot.
    void AddToPlotMenu(QAction* action);
    /// Says that the data have changed since the computation, or nothing.
    void ShowStale(bool stale);

Q_SIGNALS:
    void DetailsRequested();   ///< CmdDetails
    void PrintPlotRequested(); ///< CmdPrintPlot
    void SummaryRequested();   ///< CmdPrtSummary
    /// Something was done that the user is to read of: K computed or not, a picture of the plot
    /// saved where or not.
    void Told(const QString& said);
    /// "Compute K/ Plot" has made or dropped the computation, or K is shown in other units.
    void ComputationChanged();

protected:
    void changeEvent(QEvent* event) override;
    bool event(QEvent* event) override;

private:
    void SetTabOrder();
    void MakeGrey();
    QBoxLayout* BuildMarkSide();
    QLayout* BuildCommands();
    QBoxLayout* BuildKDisplay();
    QPushButton* AddCommand(const QString& name, const QString& text, const QString& toolTip);

    void Compute();
    void ChooseKLength(int index);
    void ChooseKTime(int index);
    void ShowComputation();
    void ShowK();

    Analysis& analysis_;
    MarkEditor marks_;
    PlotWidget* Plot1 = nullptr;
    UseIgnoreGrid* RecDatWeightGrid = nullptr;
    QPushButton* CmdComputeK = nullptr;
    KLabel* ComputedKLabel = nullptr;
    StaleLabel* StaleText = nullptr;
    QComboBox* CmboKLengthUnits = nullptr;
    QComboBox* CmboKTimeUnits = nullptr;
    QPushButton* CmdDetails = nullptr;
    QPushButton* CmdPrintPlot = nullptr;
    QPushButton* CmdPrtSummary = nullptr;
};

} // namespace quarnel
