// Saves the bytes of one file as another: replace_driver FROM TO. Prints why it failed.

#include "system/OpenFile.h"
#include "system/ReplaceFile.h"

#include <cstdio>

int main(int argc, char** argv) {
    if (argc != 3)
        return 2;
    const quarnel::FileBytes bytes = quarnel::ReadFileBytes(argv[1]);
    const quarnel::FileFailure failure = quarnel::SaveFileBytes(argv[2], bytes.View());
    if (failure == quarnel::FileFailure::None)
        return 0;
    std::printf("%s\n", quarnel::FileErrorMessage(failure).c_str());
    return 1;
}
