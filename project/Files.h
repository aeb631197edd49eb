#pragma once

#include "project/GlobalDeclar.h"
#include "system/FileFailure.h"

#include <string>
#include <string_view>
#include <vector>

namespace quarnel {

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

// ---- Writing -----------------------------------------------------------------------------------

/// A project as the text of its file.
struct ProjectText {
    std::string text;                  ///< UTF-8, lines ended by CR LF
    std::vector<std::string> messages; ///< a section that could not be written whole says why
};
ProjectText ProjectFileText(const ProjectState& state);

/// Saves the project at `path`, which becomes its CurrentProjectFile first. The first save over
/// OriginalToKeep, by whichever name it is reached, first copies that file's bytes beside it as
/// NAME.bak, or NAME.bak2, NAME.bak3 ... where those exist, and then forgets OriginalToKeep; when
/// the copy fails nothing is written. Returns the messages of whatever failed, none when all is on
/// disk.
std::vector<std::string> WriteProjectFile(const std::string& path, ProjectState& state);

} // namespace quarnel
