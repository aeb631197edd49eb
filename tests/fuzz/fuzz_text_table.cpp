// Feeds bytes to the reader of text tables, with and without a heading.

#include "tests/fuzz/LoggerFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quarnel::fuzz::CheckLogger(data, size, "Time,Level\n");
    return 0;
}
