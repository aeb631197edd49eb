// Feeds bytes to the reader of Solinst XLE files, behind the tags that make them one.

#include "loggerfiles/XleReader.h"
#include "tests/fuzz/LoggerFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quarnel::fuzz::CheckLogger(data, size,
                               "<Body_xle><Ch1_data_header><Unit>m</Unit></Ch1_data_header><Data>",
                               &quarnel::ReadXle);
    return 0;
}
