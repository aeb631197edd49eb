#pragma once

#include "system/FileFailure.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace quarnel {

/// No file larger than this (1 GiB) is read. A project of a million readings has 40 MB, so nothing
/// that somebody measured comes near it; and what is read needs several times its size in memory,
/// so that beyond it a desktop would stand still instead of saying that the file is too large.
inline constexpr std::uint64_t MostFileBytes = std::uint64_t{1} << 30U;

/// What tells one version of a file from the next. A program that writes a new file and renames it
/// over the old one changes `file`, one that writes into the file itself changes `changedNs`, and
/// nearly always `size`. Permissions, names and attributes do not go into it: they change without
/// the contents.
struct FileVersion {
    std::uint64_t device = 0;
    std::uint64_t file = 0;     ///< number of the file on its device
    std::uint64_t size = 0;     ///< bytes
    std::int64_t changedNs = 0; ///< when the contents last changed, in ns

    bool operator==(const FileVersion&) const = default;
};

/// Bytes of a file, or why they could not be read.
struct FileBytes {
    FileFailure failure = FileFailure::None;
    FileVersion version; ///< as it was before the first byte was read
    std::unique_ptr<char[]> data;
    std::size_t size = 0;
    std::string_view View() const { return {data.get(), size}; }
};

/// Reads the file at `path` (the name's own bytes, UTF-8 by custom). A pipe, a device or a folder
/// is refused without waiting for it, whenever it came there. Failures:
///   53 or 76 when the file or its folder does not exist, 52 for a name that cannot be,
///   70 when it may not be read,                           75 for what is no plain file,
///   7 when it is larger than MostFileBytes or than memory, 57 for a fault of the disk.
FileBytes ReadFileBytes(const std::string& path);

/// Whether both names lead to one file, by whichever links. Not where one of them does not exist.
bool IsSameFile(const std::string& a, const std::string& b);

/// Whether something of that name exists that is no symbolic link itself; its folder may be one.
bool ExistsAndIsNoLink(const std::string& path);

} // namespace quarnel
