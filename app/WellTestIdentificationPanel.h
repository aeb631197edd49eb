#pragma once

#include "project/ProjectState.h"
#include "widgets/Panel.h"

#include <array>

class QFormLayout;
class QLabel;

namespace quarnel {

class TextBox;

/// The panel "Well and Slug Test Identification": the well, the test, who did it, and the slug's
/// volume, all as free texts. The test date is not parsed.
class WellTestIdentificationPanel : public Panel {
    Q_OBJECT
public:
    explicit WellTestIdentificationPanel(ProjectState& state, QWidget* parent = nullptr);
    void ShowState() override;

private:
    void AddFields(QFormLayout* form);
    void AddSlugVolume(QFormLayout* form);

    /// Both by WellTestIDIndex. The names of those who tested share one label, that of the first.
    ProjectState& state_;
    std::array<TextBox*, 6> WellTestIDTxt{};
    std::array<QLabel*, 6> WellTestID{};
    TextBox* VolumeOfSlugText = nullptr;
};

} // namespace quarnel
