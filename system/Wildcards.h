#pragma once

#include <string>
#include <vector>

namespace quarnel {

/// Whether a path holds a character that stands for others: `*`, `?` or `[`.
bool HasWildcards(const std::string& path);

/// The files and folders that a path with wildcards matches, in no particular order. None where the
/// folder may not be read.
std::vector<std::string> PathsMatching(const std::string& pattern);

} // namespace quarnel
