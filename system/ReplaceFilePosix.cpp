#include "system/ReplaceFile.h"

#include "system/FileAccessPosix.h"
#include "system/OpenDescriptorPosix.h"
#include "system/TemporaryFilePosix.h"

#include <climits>
#include <cstdio>
#include <fcntl.h>
#include <vector>

namespace quarnel {

namespace {

/// What is known of a file that is replaced or copied.
struct Original {
    std::string path;
    struct stat info {};
};

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
FileFailure CheckTarget(const Original& target) {
    constexpr mode_t AnyoneMayWrite = S_IWUSR | S_IWGRP | S_IWOTH;
    const bool writable = S_ISREG(target.info.st_mode) &&
                          (target.info.st_mode & AnyoneMayWrite) != 0 &&
                          faccessat(AT_FDCWD, target.path.c_str(), W_OK, AT_EACCESS) == 0;
    return writable ? FileFailure::None : FileFailure::PathFileAccess;
}

SaveTarget LookAtTarget(const std::string& path, Original& original) {
    SaveTarget target;
    target.path = path;
    if (path.empty() || path.find('\0') != std::string::npos)
        target.failure = FileFailure::BadFileName;
    else
        target.failure = FollowLinks(target.path);
    if (target.failure != FileFailure::None)
        return target;
    original.path = target.path;
    target.exists = stat(target.path.c_str(), &original.info) == 0;
    if (!target.exists && errno != ENOENT)
        target.failure = LastFailure();
    if (target.exists) {
        target.failure = CheckTarget(original);
        target.version = VersionOf(original.info);
    }
    return target;
}

FileFailure WriteAll(int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR)
            continue;
        if (written < 0)
            return LastFailure();
        // A system that takes nothing and calls that no fault would be asked for ever.
        if (written == 0)
            return FileFailure::DeviceIOError;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return FileFailure::None;
}

/// Puts what was written into `file` on disk, with the access of `original`, and closes it.
FileFailure FinishFile(OpenDescriptor& file, const Original* original, FileVersion* version) {
    FileFailure failure = FileFailure::None;
    if (original != nullptr)
        failure = CopyAccess(file.Get(), original->path, original->info);
    if (failure == FileFailure::None && fsync(file.Get()) != 0)
        failure = LastFailure();
    struct stat info {};
    if (failure == FileFailure::None && fstat(file.Get(), &info) != 0)
        failure = LastFailure();
    if (version != nullptr)
        *version = VersionOf(info);
    if (!file.Close() && failure == FileFailure::None)
        failure = LastFailure();
    return failure;
}

/// Makes the renaming itself last. Where a folder cannot be flushed the system does so in its time.
FileFailure FlushFolder(const std::string& folder) {
    const OpenDescriptor directory(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!directory.IsOpen() || fsync(directory.Get()) == 0 || errno == EINVAL || errno == EBADF)
        return FileFailure::None;
    return LastFailure();
}

FileFailure ReplaceFile(const std::string& target, std::string_view bytes, const Original* original,
                        FileVersion* saved) {
    const std::string folder = FolderOf(target);
    RemoveStaleTemporaries(folder);
    TemporaryFile temporary(folder, original != nullptr);
    if (!temporary.File().IsOpen())
        return errno == ENOENT ? FileFailure::PathNotFound : LastFailure();
    FileFailure failure = WriteAll(temporary.File().Get(), bytes);
    if (failure == FileFailure::None)
        failure = FinishFile(temporary.File(), original, saved);
    if (failure == FileFailure::None && rename(temporary.Path().c_str(), target.c_str()) != 0)
        failure = LastFailure();
    if (failure != FileFailure::None)
        return failure;
    temporary.WasRenamed();
    return FlushFolder(folder);
}

/// Creates the first of NAME.bak, NAME.bak2, NAME.bak3 ... that does not exist.
OpenDescriptor CreateBeside(const std::string& path, std::string& name) {
    for (int i = 1;; ++i) {
        name = path + ".bak" + (i == 1 ? "" : std::to_string(i));
        OpenDescriptor file(CreateNew(name, true));
        if (file.IsOpen() || errno != EEXIST)
            return file;
    }
}

/// Copies in pieces: a file too large to be read as a project can be kept all the same.
FileFailure CopyBytes(int from, int to) {
    std::vector<char> piece(std::size_t{1} << 20U);
    for (;;) {
        const ssize_t got = ReadFully(from, piece.data(), piece.size());
        if (got < 0)
            return LastFailure();
        if (got == 0)
            return FileFailure::None;
        const FileFailure failure = WriteAll(to, {piece.data(), static_cast<std::size_t>(got)});
        if (failure != FileFailure::None)
            return failure;
    }
}

} // namespace

SaveTarget TargetOf(const std::string& path) {
    Original original;
    return LookAtTarget(path, original);
}

FileFailure SaveFileBytes(const std::string& path, std::string_view bytes, FileVersion* saved) {
    Original original;
    const SaveTarget target = LookAtTarget(path, original);
    if (target.failure != FileFailure::None)
        return target.failure;
    return ReplaceFile(target.path, bytes, target.exists ? &original : nullptr, saved);
}

FileFailure KeepFileBeside(const std::string& path, std::string& keptAs) {
    Original original;
    original.path = path;
    FileFailure failure = FileFailure::None;
    const OpenDescriptor from = OpenPlainFile(path, original.info, failure);
    if (failure != FileFailure::None)
        return failure;
    std::string name;
    OpenDescriptor to = CreateBeside(path, name);
    if (!to.IsOpen())
        return LastFailure();
    failure = CopyBytes(from.Get(), to.Get());
    if (failure == FileFailure::None)
        failure = FinishFile(to, &original, nullptr);
    if (failure == FileFailure::None)
        failure = FlushFolder(FolderOf(path));
    if (failure == FileFailure::None)
        keptAs = name;
    else
        unlink(name.c_str());
    return failure;
}

} // namespace quarnel
