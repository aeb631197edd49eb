#include "tests/SourceFolder.h"

namespace quarnel::test {

std::string SourceFolder() {
    return QUARNEL_SOURCE_DIR;
}

} // namespace quarnel::test
