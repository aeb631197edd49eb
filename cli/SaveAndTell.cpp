#include "cli/SaveAndTell.h"

#include "cli/Output.h"
#include "project/FieldTables.h"

#include <vector>

namespace quarnel {

SavedProject SaveAndTell(const std::string& path, const ProjectState& state, FileOnDisk& file) {
    const std::vector<std::string> lost = FieldsNotReadBackIntact(state);
    const SaveReport saved = WriteProjectFile(path, state, file);
    for (const std::string& message : saved.messages)
        PrintMessage(path, message);
    if (saved.isSaved && !saved.keptAs.empty())
        PrintMessage(path, "The file that was there is kept as " + saved.keptAs + ".");
    for (const std::string& field : lost)
        PrintMessage(path, "Will not read back intact: " + field);
    return {saved.isSaved && saved.messages.empty(), lost.empty()};
}

} // namespace quarnel
