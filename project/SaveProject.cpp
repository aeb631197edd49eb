#include "project/Files.h"
#include "project/TextEncoding.h"
#include "system/ReplaceFile.h"

#include <new>

namespace quarnel {

namespace {

bool IsCurrentFile(const SaveTarget& target, const FileOnDisk& file) {
    return !file.CurrentProjectFile.empty() && IsSameFile(target.path, file.CurrentProjectFile);
}

/// A file that reads whole as a project is one that the user chose to replace; any other may be
/// anything.
bool ReadsWhole(const std::string& path) {
    ProjectState project;
    return IsWhole(OpenProjectFile(path, project));
}

bool MustBeKept(const SaveTarget& target, const FileOnDisk& file) {
    if (!target.exists)
        return false;
    if (IsCurrentFile(target, file))
        return target.version != file.version || !file.isWhole;
    return !ReadsWhole(target.path);
}

/// Copies the target beside it where a save would lose what it holds.
FileFailure KeepTarget(const SaveTarget& target, FileOnDisk& file, SaveReport& report) {
    if (!MustBeKept(target, file))
        return FileFailure::None;
    // A copy that somebody has removed since is made again.
    if (file.keptAs.empty() || target.version != file.keptVersion ||
        !TargetOf(file.keptAs).exists) {
        std::string name;
        const FileFailure failure = KeepFileBeside(target.path, name);
        if (failure != FileFailure::None)
            return failure;
        file.keptAs = std::move(name);
        file.keptVersion = target.version;
    }
    report.keptAs = file.keptAs;
    report.changedOnDisk = IsCurrentFile(target, file) && target.version != file.version;
    return FileFailure::None;
}

FileFailure SaveText(const std::string& path, const std::string& text, FileOnDisk& file,
                     SaveReport& report) {
    FileOnDisk saved;
    saved.CurrentProjectFile = path;
    saved.isWhole = true;
    const std::string bytes = EncodeFileText(text);
    const SaveTarget target = TargetOf(path);
    const bool isCurrent = IsCurrentFile(target, file);
    FileFailure failure = target.failure;
    if (failure == FileFailure::None)
        failure = KeepTarget(target, file, report);
    if (failure == FileFailure::None)
        failure = SaveFileBytes(path, bytes, &saved.version);
    // A disk may fail when the new file already stands there.
    if (failure == FileFailure::None || (isCurrent && TargetOf(path).version == saved.version))
        file = std::move(saved);
    return failure;
}

} // namespace

SaveReport WriteProjectFile(const std::string& path, const ProjectState& state, FileOnDisk& file) {
    SaveReport report;
    FileFailure failure = FileFailure::OutOfMemory;
    try {
        ProjectText project = ProjectFileText(state);
        report.messages = std::move(project.messages);
        failure = SaveText(path, project.text, file, report);
    } catch (const std::bad_alloc&) {
        failure = FileFailure::OutOfMemory;
    }
    report.isSaved = failure == FileFailure::None;
    if (!report.isSaved)
        report.messages.push_back(FileErrorMessage(failure));
    return report;
}

} // namespace quarnel
