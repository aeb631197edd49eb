#pragma once

#include "system/FileFailure.h"

#include <string>
#include <sys/stat.h>

namespace quarnel {

/// Gives the open file `file` what the file at `original` grants to whom: group, access list or
/// permissions, the user's attributes and, where the system allows it, the owner. Where group or
/// access list cannot be kept, nobody is granted more than before: of the permissions only those
/// are given that hold for group and others alike, and where there was a list, the owner's alone.
/// That a file runs as its owner or group (setuid, setgid) is never copied. None, or why the
/// permissions could not be set.
FileFailure CopyAccess(int file, const std::string& original, const struct stat& info);

/// What became of an access list.
enum class AccessList {
    None,   ///< the original has none, and the file now has none of its own either
    Copied, ///< the file has that of the original, permissions included
    Lost    ///< the original's cannot be read or set; the permissions have to stand in for it
};

/// Gives the open file `file` the access list of the file at `original`, and takes away one that
/// it has from its folder.
AccessList CopyAccessList(int file, const std::string& original);
/// Takes away the access list that the open file `file` has from its folder. Whether it has none
/// now.
bool RemoveAccessList(int file);

} // namespace quarnel
