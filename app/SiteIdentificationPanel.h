#pragma once

#include "project/ProjectState.h"
#include "widgets/Panel.h"

#include <array>
#include <string_view>

class QFormLayout;
class QGroupBox;
class QLabel;

namespace quarnel {

class ReflowLayout;
class TextBox;

/// The panel "Site Identification": the site, the client and the consultant as free texts. No text
/// is checked.
class SiteIdentificationPanel : public Panel {
    Q_OBJECT
public:
    explicit SiteIdentificationPanel(ProjectState& state, QWidget* parent = nullptr);
    void ShowState() override;

private:
    QGroupBox* MakeFrame(std::string_view group);
    /// Adds a row with one field to `form`; others can follow on its line.
    ReflowLayout* AddLine(std::size_t i, QFormLayout* form);
    /// Makes label and box of a field, by its place in SiteIDFields.
    void MakeField(std::size_t i);

    ProjectState& state_;
    /// Both by SiteIDIndex.
    std::array<TextBox*, 20> SiteIDText{};
    std::array<QLabel*, 20> SiteIDLbl{};
};

} // namespace quarnel
