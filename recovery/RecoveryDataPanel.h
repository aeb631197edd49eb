#pragma once

#include "project/ProjectState.h"
#include "project/Result.h"
#include "recovery/GridEditing.h"
#include "recovery/ReadingSettings.h"
#include "recovery/RecoveryData.h"
#include "widgets/Panel.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <cstddef>
#include <utility>
#include <vector>

class QBoxLayout;

namespace quarnel {

class InsertRowsPanel;
class RecDatCheckGrid;
class RecDatGrid;
class RecoveryGridModel;
class TextBox;

/// The panel "Recovery Data": measurement settings, the grid of readings with its commands, and the
/// check grid that shows Y.
class RecoveryDataPanel : public Panel {
    Q_OBJECT
public:
    RecoveryDataPanel(ProjectState& state, RecoveryData& checked, QWidget* parent = nullptr);
    /// Shows the project again; New and Open come through here, so the editing history starts
    /// afresh.
    void ShowState() override;
    /// Shows what a preparation left: trimmed cells and pre-slug text, and Y in the check grid.
    void ShowPreparedData();
    /// Puts imported readings in the place of all that are there; undo in the grid takes it back.
    void TakeReadings(GridRows rows, ReadingSettings settings);
    /// Goes to the cell or box that a message names.
    void GoTo(const FaultPlace& place);

Q_SIGNALS:
    /// A unit or type list changed, so headings elsewhere follow.
    void HeadingsChanged();
    /// The user changed, added or removed readings.
    void ReadingsEdited();
    /// The clipboard's `text` was pasted, as far as it could be, of which `rows` rows.
    void Pasted(const QString& text, std::size_t rows);
    /// The last change of the readings was taken back or, `undone` false, made again.
    void TookBack(bool undone);
    /// "Check Data/Show Y's" has made the points anew.
    void Checked();

protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QLayout* BuildSettings();
    QWidget* BuildPreSlugBox();
    void FitPreSlugLabel();
    void PlaceInsertRows();
    QBoxLayout* BuildCommands();
    QBoxLayout* BuildCheckColumn();
    QPushButton* MakeCommand(const QString& name, const QString& caption, const QString& tip,
                             void (RecoveryDataPanel::*command)());
    void ConnectLists();

    void ShowSettings();
    void SetHeadings();
    void SetRecoveryHeadings();
    void SetTimeHeading();
    void ShowPreSlugBox();

    /// Carries out what a button stands for; the keys are the grid's again.
    void Carry(void (RecoveryDataPanel::*command)());
    void OpenInsertRowsPanel();
    void DeleteGridRows();
    void Cut();
    void Copy();
    void Paste();
    void SortByTime();
    void CheckData();
    void ShowContextMenu(QPoint position);
    void TakeTabStops(bool take);

    ProjectState& state_;
    RecoveryData& data_; ///< what the last check left
    QComboBox* RecDatDataTypeDDL = nullptr;
    QComboBox* RecDatSlugTestTypeDDL = nullptr;
    QComboBox* RecDatTimeUnitsDDL = nullptr;
    QComboBox* RecDatWaterLevelUnitsDDL = nullptr;
    QLabel* RecDatPreSlugHeadLbl = nullptr;
    TextBox* RecDatPreSlugHeadText = nullptr;
    RecoveryGridModel* model_ = nullptr;
    RecDatGrid* grid_ = nullptr;
    RecDatCheckGrid* checkGrid_ = nullptr;
    InsertRowsPanel* insertRows_ = nullptr;
    std::vector<QPushButton*> commands_;
    /// What is out of the tab order while the grid has the focus, with its own focus policy.
    std::vector<std::pair<QWidget*, Qt::FocusPolicy>> tabStopsTaken_;
};

} // namespace quarnel
