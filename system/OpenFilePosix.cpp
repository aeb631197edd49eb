#include "system/OpenFile.h"

#include "system/OpenDescriptorPosix.h"

#include <algorithm>
#include <fcntl.h>
#include <new>
#include <time.h>

namespace quarnel {

namespace {

/// A missing file in a missing folder is a path not found.
FileFailure MissingFileFailure(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos || slash == 0)
        return FileFailure::FileNotFound;
    struct stat folder {};
    return stat(path.substr(0, slash).c_str(), &folder) == 0 ? FileFailure::FileNotFound
                                                             : FileFailure::PathNotFound;
}

FileFailure OpenFailure(const std::string& path) {
    const FileFailure failure = LastFailure();
    return failure == FileFailure::FileNotFound ? MissingFileFailure(path) : failure;
}

/// Opens without waiting for whoever may stand at the other end of a pipe. A file that a server has
/// on loan to another machine is to be had as soon as that one has given it back, which the system
/// enforces; meanwhile it says "try again".
int OpenWithoutWaiting(const std::string& path) {
    constexpr int MostTries = 6000;
    constexpr timespec Pause = {0, 10'000'000};
    for (int i = 0;; ++i) {
        const int file = open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
        if (file >= 0 || errno != EWOULDBLOCK || i == MostTries)
            return file;
        nanosleep(&Pause, nullptr);
    }
}

/// Reads to the end of the file whatever size the system gave for it.
FileFailure ReadAll(int file, std::size_t expectedSize, FileBytes& bytes) {
    std::size_t capacity = expectedSize + 1;
    bytes.data = std::make_unique_for_overwrite<char[]>(capacity);
    for (;;) {
        const std::size_t room = capacity - bytes.size;
        const ssize_t got = ReadFully(file, bytes.data.get() + bytes.size, room);
        if (got < 0)
            return LastFailure();
        bytes.size += static_cast<std::size_t>(got);
        if (static_cast<std::size_t>(got) < room)
            return FileFailure::None;
        if (bytes.size > MostFileBytes)
            return FileFailure::OutOfMemory;
        auto larger = std::make_unique_for_overwrite<char[]>(capacity * 2);
        std::copy_n(bytes.data.get(), bytes.size, larger.get());
        bytes.data = std::move(larger);
        capacity *= 2;
    }
}

} // namespace

FileVersion VersionOf(const struct stat& info) {
    constexpr std::int64_t NsPerSec = 1'000'000'000;
    return {info.st_dev, info.st_ino, static_cast<std::uint64_t>(info.st_size),
            info.st_mtim.tv_sec * NsPerSec + info.st_mtim.tv_nsec};
}

OpenDescriptor OpenPlainFile(const std::string& path, struct stat& info, FileFailure& failure) {
    // Looked at first, because opening alone does things to some devices; and once more when open,
    // because something else may have come there in between.
    if (path.find('\0') != std::string::npos)
        failure = FileFailure::BadFileName;
    else if (stat(path.c_str(), &info) != 0)
        failure = OpenFailure(path);
    else if (!S_ISREG(info.st_mode))
        failure = FileFailure::PathFileAccess;
    if (failure != FileFailure::None)
        return OpenDescriptor(-1);
    OpenDescriptor file(OpenWithoutWaiting(path));
    if (!file.IsOpen())
        failure = OpenFailure(path);
    else if (fstat(file.Get(), &info) != 0)
        failure = LastFailure();
    else if (!S_ISREG(info.st_mode))
        failure = FileFailure::PathFileAccess;
    return file;
}

ssize_t ReadFully(int file, char* room, std::size_t size) {
    std::size_t filled = 0;
    while (filled < size) {
        const ssize_t got = read(file, room + filled, size - filled);
        if (got < 0 && errno == EINTR)
            continue;
        if (got < 0)
            return got;
        if (got == 0)
            break;
        filled += static_cast<std::size_t>(got);
    }
    return static_cast<ssize_t>(filled);
}

FileBytes ReadFileBytes(const std::string& path) {
    FileBytes bytes;
    struct stat info {};
    const OpenDescriptor file = OpenPlainFile(path, info, bytes.failure);
    if (bytes.failure != FileFailure::None)
        return bytes;
    bytes.version = VersionOf(info);
    if (bytes.version.size > MostFileBytes) {
        bytes.failure = FileFailure::OutOfMemory;
        return bytes;
    }
    try {
        bytes.failure = ReadAll(file.Get(), static_cast<std::size_t>(info.st_size), bytes);
    } catch (const std::bad_alloc&) {
        bytes.failure = FileFailure::OutOfMemory;
    }
    return bytes;
}

bool IsSameFile(const std::string& a, const std::string& b) {
    struct stat one {};
    struct stat other {};
    return stat(a.c_str(), &one) == 0 && stat(b.c_str(), &other) == 0 &&
           one.st_dev == other.st_dev && one.st_ino == other.st_ino;
}

bool ExistsAndIsNoLink(const std::string& path) {
    struct stat info {};
    return lstat(path.c_str(), &info) == 0 && !S_ISLNK(info.st_mode);
}

} // namespace quarnel
