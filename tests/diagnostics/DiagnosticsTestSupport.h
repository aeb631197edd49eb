#pragma once

#include "diagnostics/Diagnostics.h"
#include "kcompute/Analysis.h"
#include "tests/CoreTestSupport.h"
#include "tests/SourceFolder.h"

#include <charconv>
#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

namespace quarnel::test {

/// The shortest text of a number, as one would type it.
inline std::string Typed(double value) {
    std::array<char, 32> digits{};
    const auto result = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return std::string(digits.data(), result.ptr);
}

/// The Pratt County test with the three readings of its published K marked Use.
inline ProjectState PrattProject() {
    Analysis analysis;
    const ReadReport report =
        OpenProjectFile(test::SourceFolder() + "/examples/pratt-county-1998.qn2", analysis);
    EXPECT_TRUE(report.messages.empty());
    return analysis.state;
}

/// The same with every reading marked Use.
inline ProjectState PrattProjectAll() {
    ProjectState state = PrattProject();
    state.IgnoreKeyList.clear();
    return state;
}

/// Lengths and diameters in m, times in s, Y in the given unit; everything marked Use.
struct WellInMetres {
    double H = 0, Lw = 0, Le = 0, dw = 0, dc = 0;
};

inline void SetWell(ProjectState& state, const WellInMetres& well) {
    state.WellGeoText = {Typed(well.H),  Typed(well.Lw), Typed(well.Le),
                         Typed(well.dw), Typed(well.dc), "0"};
    state.WellGeoVertUnitsDDL = Metre;
    state.WellGeoRadUnitsDDL = Metre;
}

inline void SetSeries(ProjectState& state, const std::vector<double>& times,
                      const std::vector<double>& levels, int levelUnit) {
    state.RecDatDataTypeDDL = ChangeInHead;
    state.RecDatWaterLevelUnitsDDL = levelUnit;
    state.IgnoreKeyList.clear();
    state.RecDatGrid.clear();
    for (std::size_t i = 0; i < times.size(); ++i)
        state.RecDatGrid.push_back({CellText(Typed(times[i])), CellText(Typed(levels[i]))});
}

/// A screen far below the water table, from which no check of the well fires but ACCURACY.
inline constexpr WellInMetres PlainWell{50, 20, 4, 0.2, 0.1};

inline ProjectState ProjectOf(const std::vector<double>& times, const std::vector<double>& levels,
                              int levelUnit = Centimetre, const WellInMetres& well = PlainWell) {
    ProjectState state;
    SetWell(state, well);
    SetSeries(state, times, levels, levelUnit);
    return state;
}

/// Reads, prepares and computes as the programs do; null where there is no K.
inline ComputationPtr ComputationOf(ProjectState state) {
    Analysis analysis;
    analysis.state = std::move(state);
    const Preparation preparation = PrepareComputation(analysis);
    if (!preparation.result.IsError())
        Compute(analysis);
    return analysis.computation;
}

inline Diagnostics DiagnosticsOf(const ProjectState& state) {
    ComputationPtr computation = ComputationOf(state);
    EXPECT_TRUE(computation != nullptr);
    return Diagnostics(std::move(computation), state);
}

/// Falling by `rate` a second from `first` cm, every `step` seconds, to four decimals.
inline void ExactRecovery(std::vector<double>& times, std::vector<double>& levels, int count,
                          double first, double rate, double step) {
    for (int i = 0; i < count; ++i) {
        times.push_back(i * step);
        levels.push_back(first * std::exp(-rate * i * step));
    }
}

} // namespace quarnel::test
