#pragma once

#include "project/Files.h"

#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// Puts `bytes` on disk at `path` (the name's own bytes, UTF-8 by custom) all or nothing: a
/// temporary file in the same folder, flushed to disk, then renamed over the target. Symbolic links
/// are followed; permissions and, where the system allows it, owner and group of the target are
/// kept. Whatever fails before the renaming leaves the old file as it was. Returns None, or
///   52 for an empty or overlong name,    61 when the disk is full,
///   70 when the folder may not be written, 75 for a folder, a device or a read-only file,
///   76 when the folder does not exist,   57 for a fault of the disk.
FileFailure SaveFileBytes(const std::string& path, std::string_view bytes);

/// Saves the project at `path`, which becomes its CurrentProjectFile first. The first save over
/// OriginalToKeep, by whichever name it is reached, first copies that file's bytes beside it as
/// NAME.bak, or NAME.bak2, NAME.bak3 ... where those exist, and then forgets OriginalToKeep; when
/// the copy fails nothing is written. Returns the messages of whatever failed, none when all is on
/// disk.
std::vector<std::string> WriteProjectFile(const std::string& path, ProjectState& state);

} // namespace quarnel
