// Prints the record of a project, or of an empty one, for the deliberate renewal of the kept ones.

#include "tests/compare/RecordTestSupport.h"

#include <cstdio>

int main(int argc, char** argv) {
    using namespace quarnel::test;
    const AnalysedProject project = argc == 2 ? AnalysedFile(argv[1]) : AnalysedState({});
    return std::fputs(RecordOf(project).c_str(), stdout) < 0 ? 1 : 0;
}
