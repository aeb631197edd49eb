// Opens one project and saves it over another as the program does: save_driver FROM TO. With a
// third argument TO is opened first, so that its bytes are kept beside it. Prints what failed.

#include "project/Files.h"

#include <cstdio>

int main(int argc, char** argv) {
    if (argc < 3)
        return 2;
    quarnel::ProjectState old;
    if (argc > 3)
        quarnel::OpenProjectFile(argv[2], old);
    quarnel::ProjectState state;
    quarnel::OpenProjectFile(argv[1], state);
    state.OriginalToKeep = old.OriginalToKeep;
    const std::vector<std::string> messages = quarnel::WriteProjectFile(argv[2], state);
    for (const std::string& message : messages)
        std::printf("%s\n", message.c_str());
    return messages.empty() ? 0 : 1;
}
