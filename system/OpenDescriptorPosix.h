#pragma once

#include "system/FileFailure.h"
#include "system/OpenFile.h"

#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

// What the POSIX sources of this room share.

namespace quarnel {

/// A descriptor that is closed on every way out.
class OpenDescriptor {
public:
    explicit OpenDescriptor(int descriptor)
        : descriptor_(descriptor) {}
    ~OpenDescriptor() {
        if (descriptor_ >= 0)
            close(descriptor_);
    }
    OpenDescriptor(OpenDescriptor&& other) noexcept
        : descriptor_(std::exchange(other.descriptor_, -1)) {}
    OpenDescriptor(const OpenDescriptor&) = delete;
    OpenDescriptor& operator=(const OpenDescriptor&) = delete;
    OpenDescriptor& operator=(OpenDescriptor&&) = delete;

    int Get() const { return descriptor_; }
    bool IsOpen() const { return descriptor_ >= 0; }
    /// Network file systems tell of a full disk only here.
    bool Close() { return close(std::exchange(descriptor_, -1)) == 0; }

private:
    int descriptor_;
};

inline FileFailure LastFailure() {
    return FailureOfSystemError(errno);
}

FileVersion VersionOf(const struct stat& info);

/// Opens the plain file at `path` for reading and looks at it. Nothing that is no plain file is
/// waited for, and none is opened that was none before. A failure is in `failure`.
OpenDescriptor OpenPlainFile(const std::string& path, struct stat& info, FileFailure& failure);

/// Reads up to `size` bytes into `room`, fewer only at the end of the file; minus one, with errno,
/// after a fault.
ssize_t ReadFully(int file, char* room, std::size_t size);

} // namespace quarnel
