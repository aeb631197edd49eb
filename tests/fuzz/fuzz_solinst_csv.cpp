// Feeds bytes to the reader of Solinst CSV files, behind the heading that makes them one.

#include "tests/fuzz/LoggerFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quarnel::fuzz::CheckLogger(data, size, "LEVEL\nUNIT: m\nDate,Time,ms,LEVEL\n");
    return 0;
}
