#pragma once

#include <string>

namespace quarnel {

/// Why a file routine failed; the numbers are shown to the user.
enum class FileFailure {
    None = 0,
    InvalidProcedureCall = 5,
    Overflow = 6,
    OutOfMemory = 7,
    TypeMismatch = 13, ///< not a number where one is expected
    BadFileName = 52,
    FileNotFound = 53,
    DeviceIOError = 57,
    DiskFull = 61,
    InputPastEnd = 62,
    PermissionDenied = 70,
    PathFileAccess = 75, ///< a folder, a read-only file
    PathNotFound = 76,
    InvalidPropertyValue = 380 ///< a list position out of range
};

/// The text shown for a failure: its number, one blank, its description.
std::string FileErrorMessage(FileFailure failure);

/// The failure that the system's error number `systemError` (errno) stands for.
FileFailure FailureOfSystemError(int systemError);

} // namespace quarnel
