// Prints the drawings of a project, for the deliberate renewal of the kept ones.

#include "tests/output/DrawingText.h"

#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 2)
        return 2;
    return std::fputs(quarnel::ExampleDrawings(argv[1]).c_str(), stdout) < 0 ? 1 : 0;
}
