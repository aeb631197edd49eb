#pragma once

#include "system/OpenFile.h"

#include <string>

namespace quarnel {

/// The file that a project came from or was last saved in. It is no part of the project: New leaves
/// none.
struct FileOnDisk {
    /// Full path (the name's own bytes) of the file last saved or opened; empty for a project never
    /// saved.
    std::string CurrentProjectFile;
    /// The version of it that was opened or last saved.
    FileVersion version;
    /// Whether a save over that version loses nothing: it was saved from here, or was a project
    /// file that was read without a failure and without an item passed over.
    bool isWhole = false;

    /// The version of a file that was copied beside it for a save that failed then, and the copy's
    /// name; the next try needs no second copy.
    FileVersion keptVersion;
    std::string keptAs;
};

} // namespace quarnel
