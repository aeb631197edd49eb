#pragma once

#include "project/GlobalDeclar.h"
#include "project/ProjectState.h"

#include <cmath>
#include <cstddef>
#include <cstdio>
#include <random>
#include <string>

namespace quarnel::bench {

inline std::string Text(const char* format, double value) {
    char text[32];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

/// A project of `rows` logger readings: a falling change in head with the logger's noise, every
/// half second.
inline ProjectState MakeProject(std::size_t rows) {
    ProjectState project;
    project.WellTestIDTxt[WellLabel] = "Logger";
    project.WellGeoText = {"32.5", "19.8", "9.8", "8.25", "2", "30"};
    project.RecDatDataTypeDDL = ChangeInHead;
    project.RecDatGrid.resize(rows);
    std::mt19937_64 engine(1);
    for (std::size_t row = 0; row < rows; ++row) {
        const double seconds = static_cast<double>(row) / 2;
        const double noise = static_cast<double>(engine() % 2001) / 1e7;
        const double y = 3 * std::exp(-4 * static_cast<double>(row) / static_cast<double>(rows));
        project.RecDatGrid[row] = {Text("%.1f", seconds), Text("%.4f", y + noise)};
    }
    return project;
}

} // namespace quarnel::bench
