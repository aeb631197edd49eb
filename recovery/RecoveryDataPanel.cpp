#include "recovery/RecoveryDataPanel.h"

#include "project/FixedLists.h"
#include "recovery/GridEditor.h"
#include "recovery/InsertRowsPanel.h"
#include "recovery/RecDatCheckGrid.h"
#include "recovery/RecDatGrid.h"
#include "recovery/RecoveryDa.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"
#include "widgets/TextBox.h"

#include <QMenu>

namespace quarnel {

// ---- Showing the project -----------------------------------------------------------------------

void RecoveryDataPanel::ShowState() {
    insertRows_->hide();
    model_->ShowState();
    ShowSettings();
}

void RecoveryDataPanel::TakeReadings(GridRows rows, ReadingSettings settings) {
    insertRows_->hide();
    model_->ReplaceAll(std::move(rows), std::move(settings));
    grid_->ShowSelection();
}

/// Other settings make other Ys: those of the last check are shown no longer.
void RecoveryDataPanel::ShowSettings() {
    const ProjectState& state = state_;
    RecDatDataTypeDDL->setCurrentIndex(state.RecDatDataTypeDDL);
    RecDatSlugTestTypeDDL->setCurrentIndex(state.RecDatSlugTestTypeDDL);
    RecDatTimeUnitsDDL->setCurrentIndex(state.RecDatTimeUnitsDDL);
    RecDatWaterLevelUnitsDDL->setCurrentIndex(state.RecDatWaterLevelUnitsDDL);
    RecDatPreSlugHeadText->ShowNewText();
    checkGrid_->ClearCheckGrid();
    SetHeadings();
}

void RecoveryDataPanel::ShowPreparedData() {
    RecDatPreSlugHeadText->ShowText();
    model_->ShowTrimmedCells();
    checkGrid_->ShowYInCheckGrid(data_.RecoveryPoints);
}

void RecoveryDataPanel::SetHeadings() {
    SetRecoveryHeadings();
    SetTimeHeading();
}

void RecoveryDataPanel::SetRecoveryHeadings() {
    if (RecDatDataTypeDDL->currentIndex() < 0 || RecDatWaterLevelUnitsDDL->currentIndex() < 0)
        return;
    ShowPreSlugBox();
    model_->ShowHeadings();
    checkGrid_->ShowHeadings();
    Q_EMIT HeadingsChanged();
}

void RecoveryDataPanel::SetTimeHeading() {
    model_->ShowHeadings();
    checkGrid_->ShowHeadings();
    Q_EMIT HeadingsChanged();
}

/// Changes in head need no reading from before the test.
void RecoveryDataPanel::ShowPreSlugBox() {
    const ProjectState& state = state_;
    RecDatPreSlugHeadLbl->setText(
        ToQString(PreSlugLabel(state.RecDatDataTypeDDL, state.RecDatWaterLevelUnitsDDL)));
    RecDatPreSlugHeadText->setVisible(state.RecDatDataTypeDDL != ChangeInHead);
}

// ---- Commands ----------------------------------------------------------------------------------

void RecoveryDataPanel::Carry(void (RecoveryDataPanel::*command)()) {
    // First, so that a command that leads elsewhere has the last word.
    grid_->setFocus();
    (this->*command)();
}

void RecoveryDataPanel::GoTo(const FaultPlace& place) {
    if (place.kind == FaultPlace::PreSlugBox) {
        RecDatPreSlugHeadText->setFocus();
        RecDatPreSlugHeadText->selectAll();
    } else if (place.kind == FaultPlace::RecoveryCell) {
        grid_->GoTo({place.row, place.column});
    }
}

void RecoveryDataPanel::OpenInsertRowsPanel() {
    PlaceInsertRows();
    insertRows_->Open();
}

void RecoveryDataPanel::DeleteGridRows() {
    if (grid_->Editor().SelectionHoldsData() &&
        !AskYesNo(this, QStringLiteral("The rows contain data. Are you sure you want to delete the "
                                       "selected rows (data in deleted rows is lost)?")))
        return;
    grid_->Editor().DeleteRows();
    grid_->ShowSelection();
}

void RecoveryDataPanel::Cut() {
    grid_->Cut();
}

void RecoveryDataPanel::Copy() {
    grid_->Copy();
}

void RecoveryDataPanel::Paste() {
    grid_->Paste();
}

void RecoveryDataPanel::SortByTime() {
    if (!AskOkCancel(this, QStringLiteral("Sort the Recovery Data by time?"),
                     QStringLiteral("Confirm Sort")))
        return;
    Result result;
    {
        const BusyPointer busy;
        // Checked apart: the points of the last check stay until the next one.
        RecoveryData checked;
        result = CheckRecoveryData(state_, checked);
        if (!result.IsError())
            grid_->Editor().SortByTime(*checked.RecoveryPoints);
        RecDatPreSlugHeadText->ShowText();
        model_->ShowTrimmedCells();
        grid_->ShowSelection();
    }
    if (result.IsError())
        ShowMessage(this, ToQString(result.message));
    GoTo(result.place);
}

void RecoveryDataPanel::CheckData() {
    Result result;
    {
        const BusyPointer busy;
        result = CheckRecoveryData(state_, data_);
        if (!result.IsError())
            result = ComputeRecoveryY(data_);
        ShowPreparedData();
        Q_EMIT Checked();
    }
    if (!result.message.empty())
        ShowMessage(this, ToQString(result.message));
    GoTo(result.place);
}

void RecoveryDataPanel::ShowContextMenu(QPoint position) {
    auto* menu = new QMenu(grid_);
    menu->setObjectName(QStringLiteral("RecDatGridMenu"));
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [menu](const QString& caption, bool enabled, auto* receiver, auto command) {
        menu->addAction(caption, receiver, command)->setEnabled(enabled);
    };
    const GridEditor& editor = grid_->Editor();
    add(QStringLiteral("&Undo\tCtrl+Z"), editor.CanUndo(), grid_, &RecDatGrid::Undo);
    add(QStringLiteral("&Redo\tCtrl+Shift+Z"), editor.CanRedo(), grid_, &RecDatGrid::Redo);
    menu->addSeparator();
    add(QStringLiteral("Cu&t\tCtrl+X"), true, grid_, &RecDatGrid::Cut);
    add(QStringLiteral("&Copy\tCtrl+C"), true, grid_, &RecDatGrid::Copy);
    add(QStringLiteral("&Paste\tCtrl+V"), true, grid_, &RecDatGrid::Paste);
    add(QStringLiteral("Select &All\tCtrl+A"), true, grid_, &RecDatGrid::selectAll);
    menu->addSeparator();
    add(QStringLiteral("&Insert Rows"), true, this, &RecoveryDataPanel::OpenInsertRowsPanel);
    add(QStringLiteral("&Delete Rows"), true, this, &RecoveryDataPanel::DeleteGridRows);
    add(QStringLiteral("&Sort"), true, this, &RecoveryDataPanel::SortByTime);
    menu->popup(grid_->viewport()->mapToGlobal(position));
}

/// While the grid has the focus Tab stays in it; around it nothing takes Tab either.
void RecoveryDataPanel::TakeTabStops(bool take) {
    for (const auto& [widget, policy] : tabStopsTaken_)
        widget->setFocusPolicy(policy);
    tabStopsTaken_.clear();
    if (!take)
        return;
    std::vector<QWidget*> stops(commands_.begin(), commands_.end());
    stops.push_back(checkGrid_);
    if (auto* tabs = window()->findChild<QWidget*>(QStringLiteral("TabStrip2")))
        stops.push_back(tabs);
    for (QWidget* widget : stops) {
        const Qt::FocusPolicy policy = widget->focusPolicy();
        tabStopsTaken_.emplace_back(widget, policy);
        widget->setFocusPolicy(static_cast<Qt::FocusPolicy>(policy & ~Qt::TabFocus));
    }
}

} // namespace quarnel
