// make_benchmark_data ROWS FILE: writes a project of ROWS logger readings, a falling change in head
// with the logger's noise, every half second.

#include "project/Files.h"
#include "project/GlobalDeclar.h"
#include "project/TextEncoding.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <random>
#include <string>

namespace {

std::string Text(const char* format, double value) {
    char text[32];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

quarnel::ProjectState MakeProject(std::size_t rows) {
    quarnel::ProjectState project;
    project.WellTestIDTxt[quarnel::WellLabel] = "Logger";
    project.WellGeoText = {"32.5", "19.8", "9.8", "8.25", "2", "30"};
    project.RecDatDataTypeDDL = quarnel::ChangeInHead;
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

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: make_benchmark_data ROWS FILE\n", stderr);
        return 2;
    }
    const quarnel::ProjectState project = MakeProject(std::strtoul(argv[1], nullptr, 10));
    std::ofstream file(argv[2], std::ios::binary);
    file << quarnel::EncodeFileText(quarnel::ProjectFileText(project).text);
    return file.flush() ? 0 : 1;
}
