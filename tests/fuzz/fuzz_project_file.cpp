// Feeds bytes to the project reader, behind the header that makes them a project.

#include "tests/fuzz/FuzzProperties.h"

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    quarnel::fuzz::CheckOpening(bytes);
    std::string project = "\"QUARNEL PROJECT FILE\"\r\n";
    project += bytes;
    quarnel::fuzz::CheckOpening(project);
    return 0;
}
