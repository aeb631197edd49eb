#pragma once

#include "project/Files.h"
#include "project/GlobalDeclar.h"
#include "project/Texts.h"
#include "tests/SourceFolder.h"

#include <cstddef>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel::test {

/// Numbers that are the same in every run and on every machine.
class Random {
public:
    explicit Random(unsigned seed)
        : engine_(seed) {}
    std::size_t Below(std::size_t bound) { return static_cast<std::size_t>(engine_() % bound); }
    int Between(int low, int high) {
        return low + static_cast<int>(Below(static_cast<std::size_t>(high - low) + 1));
    }
    std::uint64_t Bits() { return engine_(); }
    bool OneIn(std::size_t n) { return Below(n) == 0; }
    template <typename Container> const auto& Pick(const Container& choices) {
        return choices[Below(std::size(choices))];
    }

private:
    std::mt19937_64 engine_;
};

inline std::string ReadExample(const std::string& name) {
    std::ifstream file(test::SourceFolder() + "/examples/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

/// A project of typed texts that passes every check: a partially penetrating well and six readings
/// of change in head.
inline ProjectState SmallProject() {
    ProjectState state;
    state.WellGeoText = {"32.5", "19.8", "9.8", "8.25", "2", "30"};
    state.RecDatDataTypeDDL = ChangeInHead;
    state.RecDatGrid = {{"0", "2.5"},  {"15", "2.0"}, {"30", "1.6"},
                        {"45", "1.3"}, {"60", "1.0"}, {"75", "0.8"}};
    return state;
}

inline void AppendTexts(std::string& dump, std::string_view name, std::string_view text) {
    dump += std::string(name) + "=[" + std::string(TrimBlanks(text)) + "]\n";
}

/// Everything a file keeps of a project, one field a line: texts trimmed, rows without the blank
/// ones, keys as they stand.
inline std::string Dump(const ProjectState& state) {
    std::string dump;
    for (std::size_t i = 0; i < state.SiteIDText.size(); ++i)
        AppendTexts(dump, "SiteIDText " + std::to_string(i), state.SiteIDText[i]);
    for (std::size_t i = 0; i < state.WellTestIDTxt.size(); ++i)
        AppendTexts(dump, "WellTestIDTxt " + std::to_string(i), state.WellTestIDTxt[i]);
    AppendTexts(dump, "VolumeOfSlugText", state.VolumeOfSlugText);
    for (std::size_t i = 0; i < state.WellGeoText.size(); ++i)
        AppendTexts(dump, "WellGeoText " + std::to_string(i), state.WellGeoText[i]);
    AppendTexts(dump, "RecDatPreSlugHeadText", state.RecDatPreSlugHeadText);
    for (const int position :
         {state.WellGeoVertUnitsDDL, state.WellGeoRadUnitsDDL, state.SSRibbon1Pressed ? 1 : 2,
          state.RecDatTimeUnitsDDL, state.RecDatWaterLevelUnitsDDL, state.RecDatDataTypeDDL,
          state.RecDatSlugTestTypeDDL, state.CmboKTimeUnits, state.CmboKLengthUnits})
        dump += std::to_string(position) + " ";
    dump += "\n";
    for (const RecoveryRow& row : state.RecDatGrid)
        if (!TrimBlanks(row.time).empty() || !TrimBlanks(row.level).empty())
            dump += "row [" + std::string(TrimBlanks(row.time)) + "][" +
                    std::string(TrimBlanks(row.level)) + "]\n";
    for (const std::string& key : state.IgnoreKeyList)
        dump += "key [" + key + "]\n";
    for (std::size_t i = 0; i < state.PlotText.size(); ++i)
        AppendTexts(dump, "PlotText " + std::to_string(i), state.PlotText[i]);
    return dump;
}

} // namespace quarnel::test
