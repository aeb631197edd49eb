// Feeds bytes to the reader of Diver CSV files, behind the lines that make them one.

#include "tests/fuzz/LoggerFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quarnel::fuzz::CheckLogger(data, size, "Data file for DataLogger.\nDate/time,Pressure[cm]\n");
    return 0;
}
