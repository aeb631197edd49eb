#include "system/TemporaryFilePosix.h"

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <string_view>
#include <sys/file.h>

namespace quarnel {

namespace {

constexpr std::string_view NameStart = ".quarnel-";
constexpr std::string_view NameEnd = ".tmp";

/// Locks a file just created, which is another program's to remove until then. False, with the name
/// free again, where that has happened. A file system without locks has no one who cleans up.
bool LockNew(int file) {
    struct stat info {};
    if (flock(file, LOCK_EX | LOCK_NB) != 0)
        return errno != EWOULDBLOCK;
    return fstat(file, &info) != 0 || info.st_nlink > 0;
}

/// A short name, since the target's own may be as long as names can be.
int CreateTemporary(const std::string& folder, bool replaces, std::string& path) {
    const std::string start = folder + std::string(NameStart) + std::to_string(getpid()) + "-";
    constexpr int MostTries = 10000;
    for (int i = 0; i < MostTries; ++i) {
        path = start + std::to_string(i) + std::string(NameEnd);
        const int file = CreateNew(path, replaces);
        if (file < 0 && errno != EEXIST)
            return file;
        if (file >= 0 && LockNew(file))
            return file;
        if (file >= 0)
            close(file);
    }
    errno = EEXIST;
    return -1;
}

/// Whether a name is .quarnel-PID-N.tmp.
bool IsTemporaryName(std::string_view name) {
    if (!name.starts_with(NameStart) || !name.ends_with(NameEnd))
        return false;
    name.remove_prefix(NameStart.size());
    name.remove_suffix(std::min(name.size(), NameEnd.size()));
    const std::size_t dash = name.find('-');
    const auto isNumber = [](std::string_view text) {
        return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
    };
    return dash != std::string_view::npos && isNumber(name.substr(0, dash)) &&
           isNumber(name.substr(dash + 1));
}

void RemoveIfStale(const std::string& path) {
    const OpenDescriptor file(
        open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat info {};
    if (!file.IsOpen() || fstat(file.Get(), &info) != 0 || !S_ISREG(info.st_mode) ||
        flock(file.Get(), LOCK_EX | LOCK_NB) != 0)
        return;
    // Its owner may have renamed it before the lock was free, and made the next one by this name.
    struct stat now {};
    if (lstat(path.c_str(), &now) == 0 && VersionOf(now) == VersionOf(info))
        unlink(path.c_str());
}

} // namespace

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

int CreateNew(const std::string& path, bool replaces) {
    return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, replaces ? 0600 : 0666);
}

TemporaryFile::TemporaryFile(const std::string& folder, bool replaces)
    : file_(CreateTemporary(folder, replaces, path_))
    , lock_(file_.IsOpen() ? fcntl(file_.Get(), F_DUPFD_CLOEXEC, 0) : -1) {
    if (!file_.IsOpen())
        path_.clear();
}

TemporaryFile::~TemporaryFile() {
    if (!path_.empty())
        unlink(path_.c_str());
}

void RemoveStaleTemporaries(const std::string& folder) {
    const std::unique_ptr<DIR, int (*)(DIR*)> names(opendir(folder.c_str()), closedir);
    if (!names)
        return;
    while (const dirent* entry = readdir(names.get()))
        if (IsTemporaryName(entry->d_name))
            RemoveIfStale(folder + entry->d_name);
}

} // namespace quarnel
