// A library to be preloaded into a program: it stands before the system's file calls, counts those
// that touch one folder and, at call number n, ends the process or lets the call fail. With it a
// test sees what a crash or a full disk leaves behind at every step of a save.
//
//   QUARNEL_FAIL_FOLDER  the folder whose calls count (its real path)
//   QUARNEL_FAIL_AT      n, counted from 1; 0 lets everything pass
//   QUARNEL_FAIL_ERRNO   the error that call n gives; 0 kills the process instead; for a write, -1
//                        takes no byte and calls that no fault
//   QUARNEL_FAIL_NAME    the call of which every one gives that error, instead of number n
//   QUARNEL_FAIL_LOG     a file outside the folder that gets one line with the name of each call
//
// The calls go to the kernel directly: the preloaded names must not find themselves, and nothing
// here may depend on a runtime library that is not up yet.

#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

int callCount = 0;

const char* Setting(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? "" : value;
}

bool IsInFolder(const char* path) {
    const char* folder = Setting("QUARNEL_FAIL_FOLDER");
    const std::size_t length = std::strlen(folder);
    return length != 0 && std::strncmp(path, folder, length) == 0;
}

bool IsInFolder(int descriptor) {
    char link[64];
    char path[PATH_MAX];
    std::snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
    const long size = syscall(SYS_readlinkat, AT_FDCWD, link, path, sizeof path - 1);
    if (size < 0)
        return false;
    path[size] = '\0';
    return IsInFolder(path);
}

void Log(const char* call) {
    const long log = syscall(SYS_openat, AT_FDCWD, Setting("QUARNEL_FAIL_LOG"),
                             O_WRONLY | O_CREAT | O_APPEND, 0666);
    if (log < 0)
        return;
    char line[64];
    const int size = std::snprintf(line, sizeof line, "%s\n", call);
    syscall(SYS_write, log, line, size);
    syscall(SYS_close, log);
}

/// Counts a call on a path or descriptor. True, with errno set, when this one is to fail.
template <class File> bool Fails(const char* call, File file) {
    if (!IsInFolder(file))
        return false;
    Log(call);
    const char* name = Setting("QUARNEL_FAIL_NAME");
    ++callCount;
    if (*name != '\0' ? std::strcmp(name, call) != 0
                      : callCount != std::atoi(Setting("QUARNEL_FAIL_AT")))
        return false;
    const int error = std::atoi(Setting("QUARNEL_FAIL_ERRNO"));
    if (error == 0)
        syscall(SYS_kill, getpid(), SIGKILL);
    errno = error;
    return true;
}

int Open(const char* path, int flags, mode_t mode) {
    if (Fails("open", path))
        return -1;
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

template <class File, class... Rest>
int Pass(const char* call, File file, long number, Rest... rest) {
    return Fails(call, file) ? -1 : static_cast<int>(syscall(number, rest...));
}

mode_t ModeOf(int flags, va_list rest) {
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(rest, mode_t) : 0;
}

} // namespace

extern "C" {

int open(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = ModeOf(flags, rest);
    va_end(rest);
    return Open(path, flags, mode);
}

int open64(const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = ModeOf(flags, rest);
    va_end(rest);
    return Open(path, flags | O_LARGEFILE, mode);
}

int openat(int folder, const char* path, int flags, ...) {
    va_list rest;
    va_start(rest, flags);
    const mode_t mode = ModeOf(flags, rest);
    va_end(rest);
    return Pass("openat", path, SYS_openat, folder, path, flags, mode);
}

ssize_t write(int file, const void* bytes, size_t size) {
    if (Fails("write", file))
        return errno == -1 ? 0 : -1;
    return syscall(SYS_write, file, bytes, size);
}

ssize_t read(int file, void* bytes, size_t size) {
    return Fails("read", file) ? -1 : syscall(SYS_read, file, bytes, size);
}

int stat(const char* path, struct stat* info) noexcept {
    return Pass("stat", path, SYS_newfstatat, AT_FDCWD, path, info, 0);
}

int lstat(const char* path, struct stat* info) noexcept {
    return Pass("lstat", path, SYS_newfstatat, AT_FDCWD, path, info, AT_SYMLINK_NOFOLLOW);
}

int fstat(int file, struct stat* info) noexcept {
    return Pass("fstat", file, SYS_fstat, file, info);
}

int flock(int file, int operation) noexcept {
    return Pass("flock", file, SYS_flock, file, operation);
}

ssize_t getxattr(const char* path, const char* name, void* value, size_t size) noexcept {
    return Fails("getxattr", path) ? -1 : syscall(SYS_getxattr, path, name, value, size);
}

ssize_t listxattr(const char* path, char* names, size_t size) noexcept {
    return Fails("listxattr", path) ? -1 : syscall(SYS_listxattr, path, names, size);
}

int fsetxattr(int file, const char* name, const void* value, size_t size, int flags) noexcept {
    return Pass("fsetxattr", file, SYS_fsetxattr, file, name, value, size, flags);
}

int fremovexattr(int file, const char* name) noexcept {
    return Pass("fremovexattr", file, SYS_fremovexattr, file, name);
}

int fsync(int file) {
    return Pass("fsync", file, SYS_fsync, file);
}

int fdatasync(int file) {
    return Pass("fdatasync", file, SYS_fdatasync, file);
}

int ftruncate(int file, off_t size) noexcept {
    return Pass("ftruncate", file, SYS_ftruncate, file, size);
}

int fchmod(int file, mode_t mode) noexcept {
    return Pass("fchmod", file, SYS_fchmod, file, mode);
}

int fchown(int file, uid_t owner, gid_t group) noexcept {
    return Pass("fchown", file, SYS_fchown, file, owner, group);
}

int chmod(const char* path, mode_t mode) noexcept {
    return Pass("chmod", path, SYS_fchmodat, AT_FDCWD, path, mode);
}

/// A close that fails has closed all the same.
int close(int file) {
    const bool fails = Fails("close", file);
    const int error = errno;
    const long result = syscall(SYS_close, file);
    if (fails)
        errno = error;
    return fails ? -1 : static_cast<int>(result);
}

int rename(const char* from, const char* to) noexcept {
    return Pass("rename", to, SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept {
    return Pass("rename", to, SYS_renameat2, fromFolder, from, toFolder, to, 0);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
              unsigned flags) noexcept {
    return Pass("rename", to, SYS_renameat2, fromFolder, from, toFolder, to, flags);
}

int link(const char* from, const char* to) noexcept {
    return Pass("link", to, SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept {
    return Pass("link", to, SYS_linkat, fromFolder, from, toFolder, to, flags);
}

int unlink(const char* path) noexcept {
    return Pass("unlink", path, SYS_unlinkat, AT_FDCWD, path, 0);
}

} // extern "C"
