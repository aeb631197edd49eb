#include "project/Files.h"

#include "project/ItemReader.h"
#include "project/ProjectReaders.h"
#include "project/TextEncoding.h"
#include "project/Texts.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <new>
#include <sys/stat.h>
#include <utility>

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

/// A missing file in a missing folder is a path not found.
FileFailure MissingFileFailure(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == std::string::npos || slash == 0)
        return FileFailure::FileNotFound;
    struct stat folder {};
    return stat(path.substr(0, slash).c_str(), &folder) == 0 ? FileFailure::FileNotFound
                                                             : FileFailure::PathNotFound;
}

FileBytes FailedBytes(FileFailure failure) {
    FileBytes bytes;
    bytes.failure = failure;
    return bytes;
}

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

/// Reads to the end of the file whatever size the system gave for it.
FileBytes ReadAll(std::FILE* file, std::size_t expectedSize) {
    FileBytes bytes;
    std::size_t capacity = expectedSize + 1;
    bytes.data = std::make_unique_for_overwrite<char[]>(capacity);
    for (;;) {
        const std::size_t room = capacity - bytes.size;
        const std::size_t got = std::fread(bytes.data.get() + bytes.size, 1, room, file);
        bytes.size += got;
        if (got < room)
            break;
        auto larger = std::make_unique_for_overwrite<char[]>(capacity * 2);
        std::copy_n(bytes.data.get(), bytes.size, larger.get());
        bytes.data = std::move(larger);
        capacity *= 2;
    }
    if (std::ferror(file) != 0)
        bytes.failure = FailureOfSystemError(errno);
    return bytes;
}

/// Recognises the format of a file's text and reads it.
void ReadRecognised(std::string_view text, const std::string& path, ProjectState& state,
                    ReadReport& report) {
    ItemReader reader(text);
    if (!reader.HasLine()) {
        report.AddFailure(FileFailure::InputPastEnd);
        return;
    }
    std::array<std::string_view, 5> lines;
    lines[0] = reader.NextLine();
    if (ContainsIgnoringCase(lines[0], "QUARNEL PROJECT FILE")) {
        report.format = FileFormat::Current;
        ReadProjectFile(reader, text, path, state, report);
    } else {
        std::size_t read = 1;
        while (read < lines.size() && reader.HasLine())
            lines[read++] = reader.NextLine();
        if (read < lines.size() || lines[4].find(" Le ") == std::string_view::npos) {
            report.AddMessage(std::string(NotAnInputFileMessage));
            return;
        }
        report.format = FileFormat::Legacy;
        ReadLegacyInputFile(reader, lines, path, state, report);
    }
}

} // namespace

std::string FileErrorMessage(FileFailure failure) {
    return std::to_string(static_cast<int>(failure)) + " " + std::string(Description(failure));
}

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

void ReadReport::AddMessage(const std::string& message) {
    if (std::find(messages.begin(), messages.end(), message) == messages.end())
        messages.push_back(message);
}

void ReadReport::AddFailure(FileFailure failure) {
    if (failure != FileFailure::None)
        AddMessage(FileErrorMessage(failure));
}

FileBytes ReadFileBytes(const std::string& path) {
    struct stat info {};
    if (path.find('\0') != std::string::npos)
        return FailedBytes(FileFailure::BadFileName);
    if (stat(path.c_str(), &info) != 0) {
        const FileFailure failure = FailureOfSystemError(errno);
        return FailedBytes(failure == FileFailure::FileNotFound ? MissingFileFailure(path)
                                                                : failure);
    }
    // A pipe or a device never ends or never begins; a project is a plain file.
    if (!S_ISREG(info.st_mode))
        return FailedBytes(FileFailure::PathFileAccess);
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
    if (!file)
        return FailedBytes(FailureOfSystemError(errno));
    try {
        return ReadAll(file.get(), static_cast<std::size_t>(info.st_size));
    } catch (const std::bad_alloc&) {
        return FailedBytes(FileFailure::OutOfMemory);
    }
}

ReadReport OpenProjectFile(const std::string& path, ProjectState& state) {
    const FileBytes bytes = ReadFileBytes(path);
    if (bytes.failure != FileFailure::None) {
        ReadReport report;
        report.AddFailure(bytes.failure);
        return report;
    }
    return OpenProjectBytes(bytes.View(), path, state);
}

ReadReport OpenProjectBytes(std::string_view bytes, const std::string& path, ProjectState& state) {
    ReadReport report;
    std::string original;
    try {
        original = path;
        if (IsValidUtf8(bytes))
            ReadRecognised(bytes, path, state, report);
        else
            ReadRecognised(Windows1252ToUtf8(bytes), path, state, report);
    } catch (const std::bad_alloc&) {
        // The rows read so far stay; handing them over takes no memory.
        if (!state.RecoveryDataTexts.empty())
            state.RecDatGrid = std::exchange(state.RecoveryDataTexts, {});
        report.AddFailure(FileFailure::OutOfMemory);
    }
    if (report.format != FileFormat::Unrecognised &&
        (!report.messages.empty() || report.format == FileFormat::Legacy))
        state.OriginalToKeep = std::move(original);
    return report;
}

} // namespace quarnel
