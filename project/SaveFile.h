#pragma once

#include "project/Files.h"

#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

/// Puts `bytes` on disk at `path` (UTF-8) all or nothing: a temporary file in the same folder,
/// flushed, then renamed over the target. Links are followed and the target's permissions kept. A
/// failure leaves the old file as it was.
FileFailure SaveFileBytes(const std::string& path, std::string_view bytes);

/// Saves the project at `path`, which becomes its CurrentProjectFile first. The first save over a
/// file read with failures or in the old format keeps that file's bytes beside it. Returns the
/// messages of whatever failed, none when all is on disk.
std::vector<std::string> WriteProjectFile(const std::string& path, ProjectState& state);

} // namespace quarnel
