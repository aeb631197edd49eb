#pragma once

#include "project/GlobalDeclar.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

// ---- Failures ----------------------------------------------------------------------------------

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

/// The message for a file that is neither a project nor an old input file.
inline constexpr std::string_view NotAnInputFileMessage =
    "The file selected does not appear to be a QUARNEL input file.";

// ---- Reading -----------------------------------------------------------------------------------

enum class FileFormat { Unrecognised, Current, Legacy };

/// An item of a file that no field took.
struct PassedOverItem {
    std::size_t line = 0; ///< counted from 1
    std::string text;     ///< at most 80 bytes of it
};

/// What opening a file says.
struct ReadReport {
    FileFormat format = FileFormat::Unrecognised; ///< Unrecognised leaves the project untouched
    std::vector<std::string> messages;      ///< each different one once, in the order they arose
    std::size_t passedOverCount = 0;        ///< items that no field took
    std::vector<PassedOverItem> passedOver; ///< the first hundred of them

    void AddMessage(const std::string& message);
    void AddFailure(FileFailure failure);
};

/// Reads the file at `path` (UTF-8), of either format, into `state`. A file that is neither, or
/// cannot be read, leaves `state` as it was. Otherwise the project is first cleared as New does,
/// then filled with all that could be read; CurrentProjectFile becomes `path`.
ReadReport OpenProjectFile(const std::string& path, ProjectState& state);

/// The same for the bytes of a file already in memory.
ReadReport OpenProjectBytes(std::string_view bytes, const std::string& path, ProjectState& state);

/// Bytes of a file, or why they could not be read.
struct FileBytes {
    FileFailure failure = FileFailure::None;
    std::unique_ptr<char[]> data;
    std::size_t size = 0;
    std::string_view View() const { return {data.get(), size}; }
};
FileBytes ReadFileBytes(const std::string& path);

// ---- Writing -----------------------------------------------------------------------------------

/// A project as the text of its file.
struct ProjectText {
    std::string text;                  ///< UTF-8, lines ended by CR LF
    std::vector<std::string> messages; ///< a section that could not be written whole says why
};
ProjectText ProjectFileText(const ProjectState& state);

} // namespace quarnel
