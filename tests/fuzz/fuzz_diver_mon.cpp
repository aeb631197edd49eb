// Feeds bytes to the reader of MON and LEV files, behind the lines that make them one.

#include "tests/fuzz/LoggerFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quarnel::fuzz::CheckLogger(data, size, "Data file for DataLogger.\n[Channel 1]\n[Data]\n");
    return 0;
}
