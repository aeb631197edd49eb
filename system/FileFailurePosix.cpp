#include "system/FileFailure.h"

#include <cerrno>

namespace quarnel {

FileFailure FailureOfSystemError(int systemError) {
    switch (systemError) {
    case ENOENT:
        return FileFailure::FileNotFound;
    case ENOTDIR:
        return FileFailure::PathNotFound;
    case EACCES:
    case EPERM:
        return FileFailure::PermissionDenied;
    case EISDIR:
    case EROFS:
    case ETXTBSY:
    case ELOOP:
        return FileFailure::PathFileAccess;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return FileFailure::DiskFull;
    case ENAMETOOLONG:
    case EINVAL:
        return FileFailure::BadFileName;
    case ENOMEM:
        return FileFailure::OutOfMemory;
    default:
        return FileFailure::DeviceIOError;
    }
}

} // namespace quarnel
