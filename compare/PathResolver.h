#pragma once

#include <mutex>
#include <string>

namespace quarnel {

/// The path without links, "." and ".."; what of it does not exist stays as it is written.
std::string ResolvedPath(const std::string& path);

/// Resolves the paths of one run. Files of one folder stand together, and asking the system for
/// every folder above each of them takes longer than computing its K: a folder is asked for once.
/// May be called on several threads at a time.
class PathResolver {
public:
    /// As ResolvedPath.
    std::string Resolve(const std::string& path);

private:
    std::string ResolvedFolder(const std::string& folder);

    std::mutex mutex_; ///< of the two below it
    std::string folder_;
    std::string resolvedFolder_; ///< ends in "/"; empty before the first
};

} // namespace quarnel
