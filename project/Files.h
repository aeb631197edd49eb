#pragma once

#include "project/FileOnDisk.h"
#include "project/ProjectState.h"
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

/// Whether a project that was read with this report holds all that its file does, in a form that a
/// save writes again.
bool IsWhole(const ReadReport& report);

/// Reads the file at `path` (the name's own bytes, UTF-8 by custom), of either format, into
/// `state`. A file that is neither, or cannot be read, leaves `state` and `file` as they were.
/// Otherwise the project is first cleared as New does, then filled with all that could be read;
/// `file` becomes the version read.
ReadReport OpenProjectFile(const std::string& path, ProjectState& state, FileOnDisk& file);
/// The same for who only looks at the project and never saves it.
ReadReport OpenProjectFile(const std::string& path, ProjectState& state);

/// The same for the bytes of a file already in memory.
ReadReport OpenProjectBytes(std::string_view bytes, ProjectState& state);

// ---- Writing -----------------------------------------------------------------------------------

/// A project as the text of its file.
struct ProjectText {
    std::string text;                  ///< UTF-8, lines ended by CR LF
    std::vector<std::string> messages; ///< a section that could not be written whole says why
};
ProjectText ProjectFileText(const ProjectState& state);

/// What a save says.
struct SaveReport {
    bool isSaved = false;              ///< the file is on disk
    std::vector<std::string> messages; ///< of whatever failed; none when all is on disk
    std::string keptAs;                ///< the copy of the file that was there; empty without one
    bool changedOnDisk = false;        ///< somebody else had changed that file since it was opened
};

/// Saves the project at `path`, which becomes CurrentProjectFile where that succeeds; after a
/// failure `file` names what it did before. A file there is first copied beside it as NAME.bak, or
/// NAME.bak2, NAME.bak3 ... where those exist, when the save would lose what it holds: the file
/// that was opened, if it was in the old format or could not be read whole, or if somebody changed
/// it since it was opened or last saved from here; and any other file that does not read whole as a
/// project. When the copy fails nothing is written.
SaveReport WriteProjectFile(const std::string& path, const ProjectState& state, FileOnDisk& file);

} // namespace quarnel
