#include "output/OutputFile.h"

#include "system/OpenFile.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"

namespace quarnel {

bool SaveOutput(const OutputOwner& owner, const QString& what, const QString& path,
                const std::function<FileFailure(const std::string& path)>& save) {
    const std::string name = ToUtf8(path);
    // A slip of the fingers must not put a report or a picture in the place of the project.
    if (IsSameFile(name, owner.project.CurrentProjectFile)) {
        ShowMessage(owner.window, QStringLiteral("The %1 needs a file of its own.").arg(what));
        return false;
    }
    FileFailure failure = FileFailure::None;
    {
        const BusyPointer busy;
        failure = save(name);
    }
    if (failure == FileFailure::None)
        return true;
    owner.fileFailed(QStringLiteral("Not saved: ") + path);
    ShowMessage(owner.window, ToQString(FileErrorMessage(failure)));
    return false;
}

} // namespace quarnel
