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
    std::function<void(const QString&)> fileFailed; ///< told "Not saved: PATH" after a failure
};

/// Writes `what` ("report", "plot") to the chosen `path` by `save`, under the busy pointer. A file
/// that cannot be written, or is the project's own, gives a message. Returns whether it was saved.
bool SaveOutput(const OutputOwner& owner, const QString& what, const QString& path,
                const std::function<FileFailure(const std::string& path)>& save);

} // namespace quarnel
