// Feeds bytes to the reader of In-Situ reports, behind the row that makes them one.

#include "tests/fuzz/LoggerFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quarnel::fuzz::CheckLogger(
        data, size,
        "<tr isi-data-table><td>Time<td isi-parameter-type=3>Depth (m)<tr isi-data-row><td>");
    return 0;
}
