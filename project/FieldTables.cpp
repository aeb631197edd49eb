#include "project/FieldTables.h"

#include <algorithm>
#include <cstddef>

namespace quarnel {

namespace {

bool IsLost(std::string_view text) {
    return text.find_first_of("\"\r\n") != std::string_view::npos;
}

std::string NameOf(const IdentificationField& field) {
    if (field.label.empty())
        return "Field Testing Performed by";
    std::string name(field.label);
    if (name.back() == ':')
        name.pop_back();
    return field.group.empty() ? name : std::string(field.group) + ": " + name;
}

void AddIdentification(const ProjectState& state, std::vector<std::string>& names) {
    for (const IdentificationField& field : SiteIDFields)
        if (IsLost(state.SiteIDText[static_cast<std::size_t>(field.index)]))
            names.push_back(NameOf(field));
    for (const IdentificationField& field : WellTestIDFields)
        if (IsLost(state.WellTestIDTxt[static_cast<std::size_t>(field.index)]))
            names.push_back(NameOf(field));
    if (IsLost(state.VolumeOfSlugText))
        names.emplace_back("Volume of Slug");
}

void AddRecoveryRows(const ProjectState& state, std::vector<std::string>& names) {
    for (std::size_t row = 0; row < state.RecDatGrid.size(); ++row) {
        if (IsLost(state.RecDatGrid[row].time))
            names.push_back("Time in row " + std::to_string(row + 1));
        if (IsLost(state.RecDatGrid[row].level))
            names.push_back("Recovery data in row " + std::to_string(row + 1));
    }
}

} // namespace

std::vector<std::string> FieldsNotReadBackIntact(const ProjectState& state) {
    std::vector<std::string> names;
    AddIdentification(state, names);
    for (std::size_t i = 0; i < WellGeoFields.size(); ++i)
        if (IsLost(state.WellGeoText[i]))
            names.emplace_back(WellGeoFields[i].label);
    if (IsLost(state.RecDatPreSlugHeadText))
        names.emplace_back("Pre-Slug Test Condition");
    AddRecoveryRows(state, names);
    if (std::any_of(state.IgnoreKeyList.begin(), state.IgnoreKeyList.end(), IsLost))
        names.emplace_back("Use/Ignore marks");
    for (std::size_t i = 0; i < state.PlotText.size(); ++i)
        if (IsLost(state.PlotText[i]))
            names.push_back("Graph Title " + std::to_string(i + 1));
    return names;
}

} // namespace quarnel
