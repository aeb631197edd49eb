#include "output/OutputFile.h"

#include "system/OpenFile.h"
#include "widgets/MessageBoxes.h"
#include "widgets/QtTexts.h"

#include <QFileInfo>

namespace quarnel {

QString SuggestedFileName(const FileOnDisk& project, const QString& ending) {
    if (project.CurrentProjectFile.empty())
        return QStringLiteral("slug-test") + ending;
    // A point may stand in the name itself: "MW-3.1" is whole.
    QString name = QFileInfo(ToQString(project.CurrentProjectFile)).fileName();
    for (const auto& own : {QStringLiteral(".qn2"), QStringLiteral(".in")})
        if (name.endsWith(own, Qt::CaseInsensitive) && name.size() > own.size()) {
            name.chop(own.size());
            break;
        }
    return name + ending;
}

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
    if (failure == FileFailure::None) {
        owner.tell(QStringLiteral("Saved %1 as %2").arg(what, path));
        return true;
    }
    owner.tell(QStringLiteral("Not saved: ") + path);
    ShowMessage(owner.window, ToQString(FileErrorMessage(failure)));
    return false;
}

} // namespace quarnel
