#include "project/Files.h"
#include "project/TextEncoding.h"
#include "system/OpenFile.h"
#include "system/ReplaceFile.h"

#include <new>

namespace quarnel {

namespace {

/// Keeps the original when saving at `path` would replace it.
FileFailure KeepOriginalAt(const std::string& path, std::string& originalToKeep) {
    if (originalToKeep.empty() || !IsSameFile(path, originalToKeep))
        return FileFailure::None;
    const SaveTarget target = TargetOf(path);
    std::string keptAs;
    FileFailure failure = target.failure;
    // A target that no save can replace needs no copy beside it.
    if (failure == FileFailure::None)
        failure = KeepFileBeside(target.path, keptAs);
    if (failure == FileFailure::None)
        originalToKeep.clear();
    return failure;
}

FileFailure SaveProjectText(const std::string& path, const std::string& text,
                            std::string& originalToKeep) {
    try {
        const std::string bytes = EncodeFileText(text);
        const FileFailure failure = KeepOriginalAt(path, originalToKeep);
        return failure == FileFailure::None ? SaveFileBytes(path, bytes) : failure;
    } catch (const std::bad_alloc&) {
        return FileFailure::OutOfMemory;
    }
}

} // namespace

std::vector<std::string> WriteProjectFile(const std::string& path, ProjectState& state) {
    state.CurrentProjectFile = path;
    ProjectText project = ProjectFileText(state);
    const FileFailure failure = SaveProjectText(path, project.text, state.OriginalToKeep);
    if (failure != FileFailure::None)
        project.messages.push_back(FileErrorMessage(failure));
    return project.messages;
}

} // namespace quarnel
