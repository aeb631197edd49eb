#include "system/FileFailure.h"

#include <string_view>

namespace quarnel {

namespace {

std::string_view Description(FileFailure failure) {
    switch (failure) {
    case FileFailure::None:
        break;
    case FileFailure::InvalidProcedureCall:
        return "Invalid procedure call or argument";
    case FileFailure::Overflow:
        return "Overflow";
    case FileFailure::OutOfMemory:
        return "Out of memory";
    case FileFailure::TypeMismatch:
        return "Type mismatch";
    case FileFailure::BadFileName:
        return "Bad file name or number";
    case FileFailure::FileNotFound:
        return "File not found";
    case FileFailure::DeviceIOError:
        return "Device I/O error";
    case FileFailure::DiskFull:
        return "Disk full";
    case FileFailure::InputPastEnd:
        return "Input past end of file";
    case FileFailure::PermissionDenied:
        return "Permission denied";
    case FileFailure::PathFileAccess:
        return "Path/File access error";
    case FileFailure::PathNotFound:
        return "Path not found";
    case FileFailure::InvalidPropertyValue:
        return "Invalid property value";
    }
    return "";
}

} // namespace

std::string FileErrorMessage(FileFailure failure) {
    return std::to_string(static_cast<int>(failure)) + " " + std::string(Description(failure));
}

} // namespace quarnel
