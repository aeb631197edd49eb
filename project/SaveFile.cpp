#include "project/SaveFile.h"

#include "project/TextEncoding.h"

#include <QSaveFile>

namespace quarnel {

FileFailure SaveFileBytes(const std::string& path, std::string_view bytes) {
    QSaveFile file(QString::fromStdString(path));
    if (!file.open(QIODevice::WriteOnly))
        return FileFailure::PathFileAccess;
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    return file.commit() ? FileFailure::None : FileFailure::DiskFull;
}

std::vector<std::string> WriteProjectFile(const std::string& path, ProjectState& state) {
    state.CurrentProjectFile = path;
    ProjectText project = ProjectFileText(state);
    const FileFailure failure = SaveFileBytes(path, EncodeFileText(project.text));
    if (failure != FileFailure::None)
        project.messages.push_back(FileErrorMessage(failure));
    return project.messages;
}

} // namespace quarnel
