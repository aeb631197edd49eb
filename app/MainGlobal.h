#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace quarnel {

class BRMainForm;

inline constexpr int PanelCount = 6;
/// Titles of the panels 1 to 6; 0 is none.
inline constexpr std::array<std::string_view, PanelCount + 1> PanelTitles = {
    "",
    "Site Identification",
    "Well and Slug Test Identification",
    "Test Identification",
    "Well Geometry",
    "Recovery Data",
    "Compute Hydraulic Conductivity"};
/// Captions of the tabs, and the panel each one shows. No tab reaches panel 3.
inline constexpr std::array<std::string_view, 5> TabCaptions = {
    "Site ID", "Well/Test ID", "Well Geometry", "Recovery Data", "Compute K"};
inline constexpr std::array<int, 5> TabPanels = {1, 2, 4, 5, 6};

/// The window's title: the program's, then "/ " and the path of the project once there is one.
std::string MainWindowTitle(const std::string& currentProjectFile);

/// Tabs that a fault leads to, and the panel whose showing prepares the computation.
inline constexpr int WellGeometryTab = 3;
inline constexpr int RecoveryDataTab = 4;
inline constexpr int ComputePanelNumber = 6;

/// Builds the main window with everything in it.
std::unique_ptr<BRMainForm> SetUpMainWindow();

/// Puts window and project into the new-project state; the consultant stays.
void ResetProject(BRMainForm& window);

} // namespace quarnel
