#include "system/ReplaceFile.h"

#include "project/TextEncoding.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace quarnel {

namespace {

/// A descriptor that is closed on every way out.
class OpenFile {
public:
    explicit OpenFile(int descriptor)
        : descriptor_(descriptor) {}
    ~OpenFile() {
        if (descriptor_ >= 0)
            close(descriptor_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int Get() const { return descriptor_; }
    bool IsOpen() const { return descriptor_ >= 0; }
    /// Network file systems tell of a full disk only here.
    bool Close() { return close(std::exchange(descriptor_, -1)) == 0; }

private:
    int descriptor_;
};

FileFailure LastFailure() {
    return FailureOfSystemError(errno);
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

/// The file that `path` leads to through symbolic links, also where it does not exist yet.
FileFailure FollowLinks(std::string& path) {
    constexpr int MostLinks = 40; // as the system itself allows
    for (int i = 0; i < MostLinks; ++i) {
        char target[PATH_MAX];
        const ssize_t size = readlink(path.c_str(), target, sizeof target);
        if (size < 0)
            return FileFailure::None;
        if (static_cast<std::size_t>(size) == sizeof target)
            return FileFailure::BadFileName;
        path = target[0] == '/' ? std::string() : FolderOf(path);
        path.append(target, static_cast<std::size_t>(size));
    }
    return FileFailure::PathFileAccess;
}

/// Whether `target` may be replaced. Renaming asks only the folder, and root may do anything, so a
/// file marked read-only has to be refused here.
FileFailure CheckTarget(const std::string& path, const struct stat& target) {
    constexpr mode_t AnyoneMayWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    const bool writable = S_ISREG(target.st_mode) && (target.st_mode & AnyoneMayWrite) != 0 &&
                          faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0;
    return writable ? FileFailure::None : FileFailure::PathFileAccess;
}

FileFailure WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return LastFailure();
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return FileFailure::None;
}

/// Gives `file` the permissions of `original`, and its owner where the system allows it.
FileFailure CopyPermissions(int file, const struct stat& original) {
    constexpr mode_t Permissions = 07777;
    // Only root may give a file away; the permissions are what protects it.
    if (fchown(file, original.st_uid, original.st_gid) != 0)
        errno = 0;
    if (fchmod(file, original.st_mode & Permissions) == 0)
        return FileFailure::None;
    const FileFailure failure = LastFailure();
    // A file system without permissions of its own shows the same ones for every file.
    struct stat now {};
    const bool same =
        fstat(file, &now) == 0 && (now.st_mode & Permissions) == (original.st_mode & Permissions);
    return same ? FileFailure::None : failure;
}

/// Fills a file just created and closes it: everything is on disk when this returns None.
FileFailure FillFile(OpenFile& file, std::string_view bytes, const struct stat* original) {
    FileFailure failure = WriteAll(file.Get(), bytes);
    if (failure == FileFailure::None && original != nullptr)
        failure = CopyPermissions(file.Get(), *original);
    if (failure == FileFailure::None && fsync(file.Get()) != 0)
        failure = LastFailure();
    if (!file.Close() && failure == FileFailure::None)
        failure = LastFailure();
    return failure;
}

/// A file that replaces another is nobody else's to read before it has that one's permissions.
int CreateNew(const std::string& path, bool replaces) {
    return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, replaces ? 0600 : 0666);
}

/// Makes the renaming itself last. Where a folder cannot be flushed the system does so in its time.
FileFailure FlushFolder(const std::string& folder) {
    const OpenFile directory(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!directory.IsOpen() || fsync(directory.Get()) == 0 || errno == EINVAL || errno == EBADF)
        return FileFailure::None;
    return LastFailure();
}

/// Creates the temporary file beside the target: a short name, since the target's own may be as
/// long as names can be.
int CreateTemporary(const std::string& folder, bool replaces, std::string& path) {
    const std::string start = folder + ".quarnel-" + std::to_string(getpid()) + "-";
    constexpr int MostTries = 10000;
    for (int i = 0; i < MostTries; ++i) {
        path = start + std::to_string(i) + ".tmp";
        const int file = CreateNew(path, replaces);
        if (file >= 0 || errno != EEXIST)
            return file;
    }
    return -1;
}

FileFailure ReplaceFile(const std::string& target, std::string_view bytes,
                        const struct stat* original) {
    const std::string folder = FolderOf(target);
    std::string temporary;
    OpenFile file(CreateTemporary(folder, original != nullptr, temporary));
    if (!file.IsOpen())
        return errno == ENOENT ? FileFailure::PathNotFound : LastFailure();
    FileFailure failure = FillFile(file, bytes, original);
    if (failure == FileFailure::None && rename(temporary.c_str(), target.c_str()) != 0)
        failure = LastFailure();
    if (failure != FileFailure::None) {
        unlink(temporary.c_str());
        return failure;
    }
    return FlushFolder(folder);
}

/// Copies the file at `path` beside it under the first free name.
FileFailure KeepOriginal(const std::string& path, const struct stat& original) {
    const FileBytes bytes = ReadFileBytes(path);
    if (bytes.failure != FileFailure::None)
        return bytes.failure;
    for (int i = 1;; ++i) {
        const std::string name = path + ".bak" + (i == 1 ? "" : std::to_string(i));
        OpenFile file(CreateNew(name, true));
        if (!file.IsOpen() && errno == EEXIST)
            continue;
        if (!file.IsOpen())
            return LastFailure();
        const FileFailure failure = FillFile(file, bytes.View(), &original);
        if (failure != FileFailure::None)
            unlink(name.c_str());
        return failure == FileFailure::None ? FlushFolder(FolderOf(path)) : failure;
    }
}

/// Keeps the original when saving at `path` would replace it.
FileFailure KeepOriginalAt(std::string path, std::string& originalToKeep) {
    struct stat target {};
    struct stat original {};
    if (originalToKeep.empty() || stat(path.c_str(), &target) != 0 ||
        stat(originalToKeep.c_str(), &original) != 0 || target.st_dev != original.st_dev ||
        target.st_ino != original.st_ino)
        return FileFailure::None;
    FileFailure failure = FollowLinks(path);
    // A target that no save can replace needs no copy beside it.
    if (failure == FileFailure::None)
        failure = CheckTarget(path, target);
    if (failure == FileFailure::None)
        failure = KeepOriginal(path, target);
    if (failure == FileFailure::None)
        originalToKeep.clear();
    return failure;
}

FileFailure SaveProjectText(const std::string& path, const std::string& text,
                            std::string& originalToKeep) {
    try {
        const std::string bytes = EncodeFileText(text);
        const FileFailure failure = KeepOriginalAt(path, originalToKeep);
        return failure == FileFailure::None ? SaveFileBytes(path, bytes) : failure;
    } catch (const std::bad_alloc&) {
        return FileFailure::OutOfMemory;
    }
}

} // namespace

FileFailure SaveFileBytes(const std::string& path, std::string_view bytes) {
    if (path.empty() || path.find('\0') != std::string::npos)
        return FileFailure::BadFileName;
    std::string target = path;
    if (const FileFailure failure = FollowLinks(target); failure != FileFailure::None)
        return failure;
    struct stat original {};
    const bool exists = stat(target.c_str(), &original) == 0;
    if (!exists && errno != ENOENT)
        return LastFailure();
    if (exists)
        if (const FileFailure failure = CheckTarget(target, original); failure != FileFailure::None)
            return failure;
    return ReplaceFile(target, bytes, exists ? &original : nullptr);
}

std::vector<std::string> WriteProjectFile(const std::string& path, ProjectState& state) {
    state.CurrentProjectFile = path;
    ProjectText project = ProjectFileText(state);
    const FileFailure failure = SaveProjectText(path, project.text, state.OriginalToKeep);
    if (failure != FileFailure::None)
        project.messages.push_back(FileErrorMessage(failure));
    return project.messages;
}

} // namespace quarnel
