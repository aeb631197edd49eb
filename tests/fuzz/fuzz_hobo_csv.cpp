// Feeds bytes to the reader of HOBO CSV files, behind the lines that make them one.

#include "tests/fuzz/LoggerFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quarnel::fuzz::CheckLogger(data, size,
                               "\"Plot Title: x\"\n\"#\",\"Date Time\",\"Pres, kPa\"\n");
    return 0;
}
