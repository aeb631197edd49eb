#include "app/RecoveryFiles.h"

#include "project/Files.h"
#include "project/TextEncoding.h"
#include "system/ReplaceFile.h"
#include "widgets/QtTexts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <new>
#include <utility>

namespace quarnel {

namespace {

/// One process keeps no more copies than this at a time.
constexpr int MostNames = 1000;

QString PathNoteOf(const QString& copy) {
    return copy + QStringLiteral(".path");
}

/// A lock that is held as long as its process lives, whatever the clock says.
std::shared_ptr<QLockFile> TryLock(const QString& copy) {
    auto lock = std::make_shared<QLockFile>(copy + QStringLiteral(".lock"));
    lock->setStaleLockTime(0);
    return lock->tryLock(0) ? std::move(lock) : nullptr;
}

} // namespace

QString RecoveryFolder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/recovery");
}

std::optional<HeldCopy> HoldNewCopy() {
    // Only for the user: the copy holds what a client told them.
    if (!QDir().mkpath(RecoveryFolder()))
        return std::nullopt;
    QFile::setPermissions(RecoveryFolder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QString start =
        RecoveryFolder() + QStringLiteral("/%1-").arg(QCoreApplication::applicationPid());
    for (int i = 0; i < MostNames; ++i) {
        const QString path = start + QString::number(i) + QStringLiteral(".qn2");
        if (QFile::exists(path))
            continue;
        if (auto lock = TryLock(path))
            return HeldCopy{path, std::move(lock)};
    }
    return std::nullopt;
}

std::vector<HeldCopy> HoldLeftCopies() {
    std::vector<HeldCopy> copies;
    const QFileInfoList files =
        QDir(RecoveryFolder()).entryInfoList({QStringLiteral("*.qn2")}, QDir::Files, QDir::Time);
    for (const QFileInfo& file : files)
        if (auto lock = TryLock(file.absoluteFilePath()))
            copies.push_back({file.absoluteFilePath(), std::move(lock)});
    return copies;
}

FileFailure SaveCopy(CopiedState state, const std::string& path, const std::string& projectFile) {
    try {
        const FileFailure failure =
            SaveFileBytes(path, EncodeFileText(ProjectFileText(state.Join()).text));
        return failure == FileFailure::None
                   ? SaveFileBytes(ToUtf8(PathNoteOf(ToQString(path))), projectFile)
                   : failure;
    } catch (const std::bad_alloc&) {
        return FileFailure::OutOfMemory;
    }
}

std::string ProjectOfCopy(const QString& path) {
    QFile file(PathNoteOf(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

void RemoveCopy(const QString& path) {
    QFile::remove(path);
    QFile::remove(PathNoteOf(path));
}

} // namespace quarnel
