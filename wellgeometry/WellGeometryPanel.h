#pragma once

#include "project/ProjectState.h"
#include "project/Result.h"
#include "widgets/Panel.h"

#include <array>

class QAbstractButton;
class QComboBox;
class QGridLayout;
class QLabel;

namespace quarnel {

class TextBox;
class WellSectionPicture;

/// The panel "Well Geometry": the six dimensions of the well with their units, and the two pictures
/// that show what they mean.
class WellGeometryPanel : public Panel {
    Q_OBJECT
public:
    explicit WellGeometryPanel(ProjectState& state, QWidget* parent = nullptr);
    void ShowState() override;
    /// Shows what a check left: trimmed texts.
    void ShowCheckedData();
    /// Goes to the box that a message names.
    void GoTo(const FaultPlace& place);

Q_SIGNALS:
    /// "Check Data" has found no fault.
    void Accepted();

private:
    QWidget* BuildVerticalGroup();
    QWidget* BuildRadialGroup();
    QWidget* BuildPorosityRow();
    QWidget* BuildIllustration();
    void AddBox(int index, QGridLayout& grid, int row);
    QComboBox* AddUnitList(const QString& name, const QString& caption,
                           const QString& accessibleName, int ProjectState::*unit,
                           QGridLayout& grid);
    QAbstractButton* BuildRibbon(const QString& name, const QString& text, const QString& toolTip);
    void ChoosePicture(bool firstIsPressed);
    void CheckData();

    ProjectState& state_;
    std::array<TextBox*, 6> WellGeoText = {};
    std::array<QLabel*, 7> WellGeoLbl = {};
    QComboBox* WellGeoVertUnitsDDL = nullptr;
    QComboBox* WellGeoRadUnitsDDL = nullptr;
    QAbstractButton* SSRibbon1 = nullptr;
    QAbstractButton* SSRibbon2 = nullptr;
    std::array<WellSectionPicture*, 2> Image1 = {};
};

} // namespace quarnel
