#pragma once

#include "system/OpenDescriptorPosix.h"

#include <string>

namespace quarnel {

/// The folder of the file at `path`, with the slash at its end.
std::string FolderOf(const std::string& path);

/// Creates a file that did not exist, not even as a link. One that stands for another is nobody
/// else's to read before it has that one's permissions. The descriptor, or -1 with errno.
int CreateNew(const std::string& path, bool replaces);

/// A file beside the one that it will replace. It is locked as long as this object lives, so that
/// whoever cleans up knows that somebody is still writing it, and removed at the end unless it was
/// renamed.
class TemporaryFile {
public:
    /// Creates it in `folder`; File() is not open where that failed, with the reason in errno.
    TemporaryFile(const std::string& folder, bool replaces);
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    OpenDescriptor& File() { return file_; }
    const std::string& Path() const { return path_; }
    void WasRenamed() { path_.clear(); }

private:
    std::string path_;
    OpenDescriptor file_;
    /// A second descriptor of the same file: it holds the lock when the first has been closed to
    /// hear of a full disk.
    OpenDescriptor lock_;
};

/// Removes temporary files that nobody holds a lock on: a kill or a power cut in the middle of a
/// save left them. The lock and not the number of the process in the name says so, because that
/// number is another's after a restart, in a container, or on another machine with the same folder.
void RemoveStaleTemporaries(const std::string& folder);

} // namespace quarnel
