#include "system/FileFailure.h"

#include <cerrno>
#include <gtest/gtest.h>
#include <string_view>

namespace quarnel {
namespace {

TEST(FileErrorMessage, IsNumberBlankAndDescription) {
    struct Case {
        FileFailure failure;
        std::string_view message;
    };
    for (const Case& c :
         {Case{FileFailure::InvalidProcedureCall, "5 Invalid procedure call or argument"},
          Case{FileFailure::Overflow, "6 Overflow"},
          Case{FileFailure::OutOfMemory, "7 Out of memory"},
          Case{FileFailure::TypeMismatch, "13 Type mismatch"},
          Case{FileFailure::BadFileName, "52 Bad file name or number"},
          Case{FileFailure::FileNotFound, "53 File not found"},
          Case{FileFailure::DeviceIOError, "57 Device I/O error"},
          Case{FileFailure::DiskFull, "61 Disk full"},
          Case{FileFailure::InputPastEnd, "62 Input past end of file"},
          Case{FileFailure::PermissionDenied, "70 Permission denied"},
          Case{FileFailure::PathFileAccess, "75 Path/File access error"},
          Case{FileFailure::PathNotFound, "76 Path not found"},
          Case{FileFailure::InvalidPropertyValue, "380 Invalid property value"}})
        EXPECT_EQ(FileErrorMessage(c.failure), c.message);
}

TEST(FailureOfSystemError, NamesWhatTheSystemSays) {
    struct Case {
        int error;
        FileFailure failure;
    };
    for (const Case& c :
         {Case{ENOENT, FileFailure::FileNotFound}, Case{ENOTDIR, FileFailure::PathNotFound},
          Case{EACCES, FileFailure::PermissionDenied}, Case{EPERM, FileFailure::PermissionDenied},
          Case{EISDIR, FileFailure::PathFileAccess}, Case{EROFS, FileFailure::PathFileAccess},
          Case{ELOOP, FileFailure::PathFileAccess}, Case{ENOSPC, FileFailure::DiskFull},
          Case{EDQUOT, FileFailure::DiskFull}, Case{EFBIG, FileFailure::DiskFull},
          Case{ENAMETOOLONG, FileFailure::BadFileName}, Case{EINVAL, FileFailure::BadFileName},
          Case{ENOMEM, FileFailure::OutOfMemory}, Case{EIO, FileFailure::DeviceIOError},
          Case{EPIPE, FileFailure::DeviceIOError}})
        EXPECT_EQ(FailureOfSystemError(c.error), c.failure) << c.error;
}

} // namespace
} // namespace quarnel
