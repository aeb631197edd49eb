#include "system/DiskSpace.h"

#include <sys/statvfs.h>

namespace quarnel {

std::optional<std::uint64_t> FreeDiskSpace(const std::string& folder) {
    struct statvfs space {};
    if (statvfs(folder.c_str(), &space) != 0)
        return std::nullopt;
    return std::uint64_t{space.f_bavail} * space.f_frsize;
}

} // namespace quarnel
