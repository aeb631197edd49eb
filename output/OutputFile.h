#pragma once

#include "project/FileOnDisk.h"
#include "system/FileFailure.h"

#include <QString>
#include <functional>
#include <string>

class QWidget;

namespace quarnel {

/// Whose page, report or picture it is that goes into a file.
struct OutputOwner {
    QWidget* window = nullptr; ///< its messages stand above this one
    const FileOnDisk& project; ///< the open project, whose file nothing made of it may replace
    /// Told "Saved plot as PATH", or "Not saved: PATH" after a failure.
    std::function<void(const QString&)> tell;
};

/// The name suggested for what is made of a project: the project's own without ".qn2" or ".in",
/// then `ending`, such as "-report.pdf"; "slug-test" and `ending` for a project that has no file
/// yet.
QString SuggestedFileName(const FileOnDisk& project, const QString& ending);

/// Writes `what` ("report", "plot") to the chosen `path` by `save`, under the busy pointer. A file
/// that cannot be written, or is the project's own, gives a message. Returns whether it was saved.
bool SaveOutput(const OutputOwner& owner, const QString& what, const QString& path,
                const std::function<FileFailure(const std::string& path)>& save);

} // namespace quarnel
