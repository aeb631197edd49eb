#pragma once

#include "project/Files.h"

#include <string>

namespace quarnel {

struct SavedProject {
    bool isSaved = false;  ///< on disk, and nothing failed
    bool isIntact = false; ///< every field of it can be read back
};

/// Saves the project at `path` and tells on standard error, each after the file's name, what
/// failed, where the file that was there is kept, and which fields will not read back intact.
SavedProject SaveAndTell(const std::string& path, const ProjectState& state, FileOnDisk& file);

} // namespace quarnel
