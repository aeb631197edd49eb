#pragma once

#include "project/FieldTables.h"
#include "project/Files.h"
#include "project/TextEncoding.h"
#include "project/Texts.h"

#include <cstddef>
#include <cstdlib>
#include <string>
#include <string_view>
#include <unordered_map>

namespace quarnel::fuzz {

/// Ends the run; the fuzzer keeps the input.
inline void Require(bool holds) {
    if (!holds)
        std::abort();
}

/// What a file keeps of a project: texts trimmed, rows without the blank ones.
inline std::string Kept(const ProjectState& state) {
    std::string kept;
    const auto add = [&kept](std::string_view text) {
        kept += TrimBlanks(text);
        kept += '\n';
    };
    for (const std::string& text : state.SiteIDText)
        add(text);
    for (const std::string& text : state.WellTestIDTxt)
        add(text);
    add(state.VolumeOfSlugText);
    for (const std::string& text : state.WellGeoText)
        add(text);
    add(state.RecDatPreSlugHeadText);
    for (const std::string& text : state.PlotText)
        add(text);
    for (const int position :
         {state.WellGeoVertUnitsDDL, state.WellGeoRadUnitsDDL, state.SSRibbon1Pressed ? 1 : 2,
          state.RecDatTimeUnitsDDL, state.RecDatWaterLevelUnitsDDL, state.RecDatDataTypeDDL,
          state.RecDatSlugTestTypeDDL, state.CmboKTimeUnits, state.CmboKLengthUnits})
        add(std::to_string(position));
    for (const RecoveryRow& row : state.RecDatGrid) {
        if (TrimBlanks(row.time).empty() && TrimBlanks(row.level).empty())
            continue;
        add(row.time);
        add(row.level);
    }
    for (const std::string& key : state.IgnoreKeyList)
        kept += key + '\n';
    return kept;
}

/// What comes back when a saved project is opened. Most damaged files leave one of a few projects
/// behind, and what was read back once is not read again.
inline const std::string& KeptBySaving(const std::string& text) {
    constexpr std::size_t MostRemembered = 10'000;
    static std::unordered_map<std::string, std::string> known;
    if (const auto found = known.find(text); found != known.end())
        return found->second;
    if (known.size() == MostRemembered)
        known.clear();
    const std::string file = EncodeFileText(text);
    ProjectState again;
    const ReadReport second = OpenProjectBytes(file, again);
    Require(second.messages.empty() && second.passedOverCount == 0);
    Require(EncodeFileText(ProjectFileText(again).text) == file);
    return known.emplace(text, Kept(again)).first->second;
}

/// Opens `bytes`; what was read must stand within its bounds and come back whole by saving. Returns
/// it.
inline ProjectState CheckOpening(std::string_view bytes) {
    ProjectState state;
    state.WellGeoText[GeoH] = "before";
    const ReadReport report = OpenProjectBytes(bytes, state);
    Require(report.messages.size() <= 6);
    Require(report.passedOver.size() <= 100 && report.passedOver.size() <= report.passedOverCount);
    Require(report.passedOverCount <= bytes.size());
    for (const PassedOverItem& item : report.passedOver)
        Require(item.text.size() <= 80 && IsValidUtf8(item.text));
    if (report.format == FileFormat::Unrecognised) {
        Require(report.messages.size() == 1 && state.WellGeoText[GeoH] == "before");
        return state;
    }
    Require(state.RecDatGrid.size() >= MinimumGridRows &&
            state.RecDatGrid.size() <= bytes.size() + 50);
    Require(state.RecoveryDataTexts.empty());
    const ProjectText saved = ProjectFileText(state);
    Require(saved.messages.empty() && IsValidUtf8(saved.text));
    if (FieldsNotReadBackIntact(state).empty())
        Require(KeptBySaving(saved.text) == Kept(state));
    return state;
}

} // namespace quarnel::fuzz
