#pragma once

#include "project/StateCopier.h"
#include "system/FileFailure.h"

#include <QLockFile>
#include <QString>
#include <memory>
#include <optional>
#include <string>
#include <vector>

/// The files that recovery copies are kept in, in the user's own data folder: beside each copy, a
/// project file, stand the path of its project and a lock, which is held as long as the copy's
/// window lives.
namespace quarnel {

/// The folder of the copies.
QString RecoveryFolder();

/// The name of a copy, held by this process.
struct HeldCopy {
    QString path;
    std::shared_ptr<QLockFile> lock;
};

/// A name that no copy has; none where the folder cannot be made.
std::optional<HeldCopy> HoldNewCopy();
/// The copies that no running process holds, the newest first. They are held from then on.
std::vector<HeldCopy> HoldLeftCopies();

/// Writes the copy at `path` (UTF-8) and the path of its project, each of them whole or not at all.
/// For another thread than that of the windows.
FileFailure SaveCopy(CopiedState state, const std::string& path, const std::string& projectFile);
/// The path of the project that a copy is of, its own bytes; empty for one never saved.
std::string ProjectOfCopy(const QString& path);
/// Removes a copy and what stands beside it, all but the lock.
void RemoveCopy(const QString& path);

} // namespace quarnel
