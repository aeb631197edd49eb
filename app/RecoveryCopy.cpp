#include "app/RecoveryCopy.h"

#include "project/TextEncoding.h"
#include "system/ReplaceFile.h"
#include "widgets/QtTexts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <algorithm>
#include <chrono>
#include <new>
#include <tuple>
#include <utility>

namespace quarnel {

namespace {

using namespace std::chrono_literals;

/// A copy is at most this old.
constexpr auto Interval = 30s;
/// More windows of one process than this have no copy of their own.
constexpr int MostNames = 1000;

/// Beside a copy stands a text with the path of its project.
QString PathNoteOf(const QString& copy) {
    return copy + QStringLiteral(".path");
}
QString LockOf(const QString& copy) {
    return copy + QStringLiteral(".lock");
}

/// A lock that is held as long as its process lives, however long that is.
std::unique_ptr<QLockFile> TryLock(const QString& copy) {
    auto lock = std::make_unique<QLockFile>(LockOf(copy));
    lock->setStaleLockTime(0);
    return lock->tryLock(0) ? std::move(lock) : nullptr;
}

/// All that is small enough to be compared every time: everything but readings and marks.
auto SmallTexts(const ProjectState& state) {
    return std::tie(state.SiteIDText, state.WellTestIDTxt, state.VolumeOfSlugText,
                    state.WellGeoText, state.WellGeoVertUnitsDDL, state.WellGeoRadUnitsDDL,
                    state.SSRibbon1Pressed, state.RecDatTimeUnitsDDL,
                    state.RecDatWaterLevelUnitsDDL, state.RecDatDataTypeDDL,
                    state.RecDatSlugTestTypeDDL, state.RecDatPreSlugHeadText, state.PlotText,
                    state.CmboKTimeUnits, state.CmboKLengthUnits);
}

/// Those texts by themselves.
ProjectState WithoutReadings(const ProjectState& state) {
    ProjectState texts;
    texts.SiteIDText = state.SiteIDText;
    texts.WellTestIDTxt = state.WellTestIDTxt;
    texts.VolumeOfSlugText = state.VolumeOfSlugText;
    texts.WellGeoText = state.WellGeoText;
    texts.WellGeoVertUnitsDDL = state.WellGeoVertUnitsDDL;
    texts.WellGeoRadUnitsDDL = state.WellGeoRadUnitsDDL;
    texts.SSRibbon1Pressed = state.SSRibbon1Pressed;
    texts.RecDatTimeUnitsDDL = state.RecDatTimeUnitsDDL;
    texts.RecDatWaterLevelUnitsDDL = state.RecDatWaterLevelUnitsDDL;
    texts.RecDatDataTypeDDL = state.RecDatDataTypeDDL;
    texts.RecDatSlugTestTypeDDL = state.RecDatSlugTestTypeDDL;
    texts.RecDatPreSlugHeadText = state.RecDatPreSlugHeadText;
    texts.PlotText = state.PlotText;
    texts.CmboKTimeUnits = state.CmboKTimeUnits;
    texts.CmboKLengthUnits = state.CmboKLengthUnits;
    return texts;
}

FileFailure SaveCopy(const ProjectState& state, const std::string& path,
                     const std::string& projectFile) {
    try {
        const FileFailure failure =
            SaveFileBytes(path, EncodeFileText(ProjectFileText(state).text));
        return failure == FileFailure::None
                   ? SaveFileBytes(ToUtf8(PathNoteOf(ToQString(path))), projectFile)
                   : failure;
    } catch (const std::bad_alloc&) {
        return FileFailure::OutOfMemory;
    }
}

std::string PathIn(const QString& note) {
    QFile file(note);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

void RemoveCopy(const QString& copy) {
    QFile::remove(copy);
    QFile::remove(PathNoteOf(copy));
}

} // namespace

RecoveryCopy::RecoveryCopy(const Analysis& analysis, QObject* parent)
    : QObject(parent)
    , analysis_(analysis) {
    timer_ = new QTimer(this);
    timer_->setObjectName(QStringLiteral("RecoveryTimer"));
    timer_->setInterval(Interval);
    connect(timer_, &QTimer::timeout, this, &RecoveryCopy::WriteIfChanged);
    timer_->start();
    NoteReplaced();
}

RecoveryCopy::~RecoveryCopy() {
    TakeOutcome(true);
}

QString RecoveryCopy::Folder() {
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) +
           QStringLiteral("/recovery");
}

bool RecoveryCopy::HasChanged() const {
    return rowsChanged_ || SmallTexts(analysis_.state) != SmallTexts(known_);
}

bool RecoveryCopy::HasUnsavedChanges() const {
    return areRowsUnsaved_ || SmallTexts(analysis_.state) != SmallTexts(saved_);
}

void RecoveryCopy::NoteKept() {
    rowsChanged_ = false;
    known_ = WithoutReadings(analysis_.state);
}

void RecoveryCopy::NoteReplaced() {
    NoteKept();
    areRowsUnsaved_ = false;
    saved_ = known_;
}

void RecoveryCopy::NoteSaved() {
    TakeOutcome(true);
    NoteReplaced();
    if (!path_.isEmpty())
        RemoveCopy(path_);
}

void RecoveryCopy::WriteIfChanged() {
    TakeOutcome(false);
    if (!writing_.valid() && HasChanged())
        Write();
}

bool RecoveryCopy::WriteNow() {
    TakeOutcome(true);
    if (HasChanged())
        Write();
    TakeOutcome(true);
    return !HasChanged();
}

void RecoveryCopy::Write() {
    if (!HoldName()) {
        TellFailure(FileFailure::PathFileAccess);
        return;
    }
    // The typing goes on while another thread turns the project into a file.
    auto state = std::make_shared<const ProjectState>(analysis_.state);
    writing_ = std::async(std::launch::async, [state, path = ToUtf8(path_),
                                               projectFile = analysis_.file.CurrentProjectFile] {
        return SaveCopy(*state, path, projectFile);
    });
    NoteKept();
}

void RecoveryCopy::TakeOutcome(bool wait) {
    if (!writing_.valid() || (!wait && writing_.wait_for(0s) != std::future_status::ready))
        return;
    const FileFailure failure = writing_.get();
    if (failure == FileFailure::None) {
        failureIsTold_ = false;
        return;
    }
    rowsChanged_ = true; // to be tried again
    TellFailure(failure);
}

void RecoveryCopy::TellFailure(FileFailure failure) {
    if (!std::exchange(failureIsTold_, true))
        Q_EMIT WritingFailed(ToQString(FileErrorMessage(failure)));
}

bool RecoveryCopy::HoldName() {
    if (!path_.isEmpty())
        return true;
    // Only for the user: the copy holds what a client told them.
    if (!QDir().mkpath(Folder()))
        return false;
    QFile::setPermissions(Folder(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QString start = Folder() + QStringLiteral("/%1-").arg(QCoreApplication::applicationPid());
    for (int i = 0; i < MostNames; ++i) {
        const QString path = start + QString::number(i) + QStringLiteral(".qn2");
        if (QFile::exists(path))
            continue;
        if (auto lock = TryLock(path)) {
            lock_ = std::move(lock);
            path_ = path;
            return true;
        }
    }
    return false;
}

void RecoveryCopy::Remove() {
    TakeOutcome(true);
    timer_->stop();
    if (path_.isEmpty())
        return;
    RemoveCopy(path_);
    lock_.reset();
    path_.clear();
}

std::vector<LeftCopy> RecoveryCopy::TakeLeftCopies() {
    std::vector<LeftCopy> copies;
    const QFileInfoList files =
        QDir(Folder()).entryInfoList({QStringLiteral("*.qn2")}, QDir::Files, QDir::Time);
    for (const QFileInfo& file : files) {
        auto lock = TryLock(file.absoluteFilePath());
        if (lock == nullptr)
            continue;
        taken_.push_back(std::move(lock));
        copies.push_back({file.absoluteFilePath(), PathIn(PathNoteOf(file.absoluteFilePath())),
                          file.lastModified()});
    }
    return copies;
}

void RecoveryCopy::Discard(const LeftCopy& copy) {
    RemoveCopy(copy.path);
}

} // namespace quarnel
