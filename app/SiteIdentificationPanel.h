#pragma once

#include "project/ProjectState.h"
#include "widgets/Panel.h"

#include <array>
#include <string_view>

class QFormLayout;
class QLabel;

namespace quarnel {

class TextBox;

/// The panel "Site Identification": the site, the client and the consultant as free texts. No text
/// is checked.
class SiteIdentificationPanel : public Panel {
    Q_OBJECT
public:
    explicit SiteIdentificationPanel(ProjectState& state, QWidget* parent = nullptr);
    void ShowState() override;

private:
    /// Adds the fields of one frame, "" for those that stand in none.
    void AddGroup(std::string_view group, QFormLayout* form);

    ProjectState& state_;
    /// Both by SiteIDIndex.
    std::array<TextBox*, 20> SiteIDText{};
    std::array<QLabel*, 20> SiteIDLbl{};
};

} // namespace quarnel
