// Opens one project and saves it over another as the program does: save_driver FROM TO. With a
// third argument TO is what was opened before. Prints what failed.

#include "project/Files.h"

#include <cstdio>

int main(int argc, char** argv) {
    if (argc < 3)
        return 2;
    quarnel::ProjectState state;
    quarnel::FileOnDisk file;
    if (argc > 3)
        quarnel::OpenProjectFile(argv[2], state, file);
    quarnel::OpenProjectFile(argv[1], state);
    const quarnel::SaveReport report = quarnel::WriteProjectFile(argv[2], state, file);
    for (const std::string& message : report.messages)
        std::printf("%s\n", message.c_str());
    return report.messages.empty() ? 0 : 1;
}
