#pragma once

#include "system/FileFailure.h"
#include "system/OpenFile.h"

#include <string>
#include <string_view>

namespace quarnel {

/// What a save at a path would replace.
struct SaveTarget {
    FileFailure failure = FileFailure::None; ///< why nothing may be saved there
    std::string path;                        ///< the file's own, at the end of all symbolic links
    bool exists = false;                     ///< otherwise a new file is made
    FileVersion version;                     ///< of the file that exists
};

/// Looks at what a save at `path` would replace, and changes nothing. Failures are those of
/// SaveFileBytes that come before the disk is written.
SaveTarget TargetOf(const std::string& path);

/// Puts `bytes` on disk at `path` (the name's own bytes, UTF-8 by custom) all or nothing: a
/// temporary file in the same folder, flushed to disk, then renamed over the target. Symbolic links
/// are followed, hard links are not: the other names keep the old file. Of the target are kept,
/// where the system allows each: owner, group, permissions, access list, and the user's attributes;
/// access is never widened, and that a file runs as its owner or group is dropped. Whatever fails
/// before the renaming leaves the old file as it was. A temporary file that a killed program left
/// in the folder is removed. Returns None, and in `saved`, where it is given, the version that is
/// on disk now, or
///   52 for an empty or overlong name,    61 when the disk is full,
///   70 when the folder may not be written, 75 for a folder, a device or a read-only file,
///   76 when the folder does not exist,   57 for a fault of the disk.
FileFailure SaveFileBytes(const std::string& path, std::string_view bytes,
                          FileVersion* saved = nullptr);

/// Copies the file at `path`, which is no link, beside it as NAME.bak, or NAME.bak2, NAME.bak3 ...
/// where those exist, with the access it has. The name given is in `keptAs`. On failure there is no
/// copy.
FileFailure KeepFileBeside(const std::string& path, std::string& keptAs);

} // namespace quarnel
