#include "system/FileAccessPosix.h"

#include <cerrno>
#include <string_view>
#include <unistd.h>
#include <vector>

#ifdef __linux__
#include <linux/limits.h>
#include <sys/xattr.h>
#endif

namespace quarnel {

namespace {

constexpr mode_t Permissions = 0777;
constexpr mode_t OwnersPermissions = 0700;

/// The permissions that stay where the group is another one: its members may have been anybody's
/// others before, and the old group's members are others now, so both get what both had.
mode_t ForAnotherGroup(mode_t mode) {
    const mode_t both = (mode >> 3U) & mode & 07U;
    return (mode & OwnersPermissions) | both << 3U | both;
}

FileFailure SetPermissions(int file, mode_t mode) {
    if (fchmod(file, mode) == 0)
        return FileFailure::None;
    const FileFailure failure = FailureOfSystemError(errno);
    // A file system without permissions of its own shows the same ones for every file.
    struct stat now {};
    const bool same = fstat(file, &now) == 0 && (now.st_mode & Permissions) == mode;
    return same ? FileFailure::None : failure;
}

/// Owner and group are set one by one: everybody may pass a file to a group of his own, but only
/// the administrator may give one away.
bool KeepGroup(int file, const struct stat& original) {
    if (fchown(file, static_cast<uid_t>(-1), original.st_gid) == 0)
        return true;
    struct stat now {};
    return fstat(file, &now) == 0 && now.st_gid == original.st_gid;
}

#ifdef __linux__
/// The attributes that users and their programs give a file. One that the file system cannot take
/// is no reason not to save.
void CopyUserAttributes(int file, const std::string& original) {
    std::vector<char> names(XATTR_LIST_MAX);
    const ssize_t size = listxattr(original.c_str(), names.data(), names.size());
    if (size <= 0)
        return;
    std::vector<char> value(XATTR_SIZE_MAX);
    constexpr std::string_view Users = "user.";
    for (std::string_view rest(names.data(), static_cast<std::size_t>(size)); !rest.empty();) {
        const std::string name(rest.substr(0, rest.find('\0')));
        rest.remove_prefix(name.size() + 1);
        if (!name.starts_with(Users))
            continue;
        const ssize_t length = getxattr(original.c_str(), name.c_str(), value.data(), value.size());
        if (length >= 0)
            fsetxattr(file, name.c_str(), value.data(), static_cast<std::size_t>(length), 0);
    }
}
#else
void CopyUserAttributes(int, const std::string&) {}
#endif

} // namespace

FileFailure CopyAccess(int file, const std::string& original, const struct stat& info) {
    const mode_t mode = info.st_mode & Permissions;
    const bool groupKept = KeepGroup(file, info);
    const AccessList list = CopyAccessList(file, original);
    FileFailure failure = FileFailure::None;
    if (list == AccessList::Lost || (list == AccessList::Copied && !groupKept)) {
        RemoveAccessList(file);
        failure = SetPermissions(file, mode & OwnersPermissions);
    } else if (list == AccessList::None) {
        failure = SetPermissions(file, groupKept ? mode : ForAnotherGroup(mode));
    }
    CopyUserAttributes(file, original);
    // Last, because permissions are the owner's to set.
    if (fchown(file, info.st_uid, static_cast<gid_t>(-1)) != 0)
        errno = 0;
    return failure;
}

} // namespace quarnel
