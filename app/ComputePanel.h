#pragma once

#include "widgets/Panel.h"

class QBoxLayout;
class QComboBox;
class QLabel;
class QPushButton;

namespace quarnel {

class PlotWidget;
class UseIgnoreGrid;

/// The panel "Compute Hydraulic Conductivity": the plot, the Use/Ignore grid, K and its units, and
/// the commands for details, printed plot and report.
class ComputePanel : public Panel {
    Q_OBJECT
public:
    explicit ComputePanel(Analysis& analysis, QWidget* parent = nullptr);
    /// Shows the project again after New or Open: empty plot, empty K, empty Use/Ignore grid.
    void ShowState() override;
    /// Shows what a preparation left: the points with their marks. Plot and K label stay.
    void ShowPreparedData();
    /// Headings follow the unit lists of the recovery data.
    void ShowHeadings();

Q_SIGNALS:
    void DetailsRequested();   ///< CmdDetails
    void PrintPlotRequested(); ///< CmdPrintPlot
    void SummaryRequested();   ///< CmdPrtSummary
    /// A computation has succeeded or K is shown in other units: the details changed.
    void DetailsChanged();
    /// A computation has failed: the details grid keeps only its headings.
    void DetailsCleared();

private:
    QWidget* BuildPlotSide();
    QWidget* BuildMarkSide();
    QBoxLayout* BuildCommands();
    QBoxLayout* BuildKDisplay();
    QPushButton* AddCommand(const QString& name, const QString& text, const QString& toolTip);

    void Compute();
    void ChooseKLength(int index);
    void ChooseKTime(int index);
    void ShowK();

    PlotWidget* Plot1 = nullptr;
    UseIgnoreGrid* RecDatWeightGrid = nullptr;
    QPushButton* CmdComputeK = nullptr;
    QLabel* ComputedKLabel = nullptr;
    QComboBox* CmboKLengthUnits = nullptr;
    QComboBox* CmboKTimeUnits = nullptr;
    QPushButton* CmdDetails = nullptr;
    QPushButton* CmdPrintPlot = nullptr;
    QPushButton* CmdPrtSummary = nullptr;
};

} // namespace quarnel
