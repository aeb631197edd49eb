#include "compare/PathResolver.h"

#include "system/OpenFile.h"

#include <cstddef>
#include <filesystem>
#include <string_view>
#include <system_error>

namespace quarnel {

namespace fs = std::filesystem;

std::string ResolvedPath(const std::string& path) {
    std::error_code failure;
    const fs::path whole = fs::absolute(path, failure);
    const fs::path resolved = fs::weakly_canonical(whole, failure);
    // Where a folder may not be looked into the name itself has to do.
    return failure ? whole.lexically_normal().string() : resolved.string();
}

std::string PathResolver::ResolvedFolder(const std::string& folder) {
    const std::lock_guard lock(mutex_);
    if (resolvedFolder_.empty() || folder != folder_) {
        resolvedFolder_ = ResolvedPath(folder.empty() ? "." : folder);
        if (!resolvedFolder_.ends_with('/'))
            resolvedFolder_ += '/';
        folder_ = folder;
    }
    return resolvedFolder_;
}

std::string PathResolver::Resolve(const std::string& path) {
    const std::size_t nameAt = path.find_last_of('/') + 1;
    const std::string_view name = std::string_view(path).substr(nameAt);
    // Only the last name of a path is known to be none when it is no link itself.
    if (name.empty() || name == "." || name == ".." || !ExistsAndIsNoLink(path))
        return ResolvedPath(path);
    return ResolvedFolder(path.substr(0, nameAt)).append(name);
}

} // namespace quarnel
