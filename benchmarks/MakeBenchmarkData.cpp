// make_benchmark_data ROWS FILE: writes a project of ROWS logger readings.

#include "benchmarks/LoggerProject.h"
#include "project/Files.h"
#include "project/TextEncoding.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: make_benchmark_data ROWS FILE\n", stderr);
        return 2;
    }
    const quarnel::ProjectState project =
        quarnel::bench::MakeProject(std::strtoul(argv[1], nullptr, 10));
    std::ofstream file(argv[2], std::ios::binary);
    file << quarnel::EncodeFileText(quarnel::ProjectFileText(project).text);
    return file.flush() ? 0 : 1;
}
