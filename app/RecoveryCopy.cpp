#include "app/RecoveryCopy.h"

#include "widgets/QtTexts.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <algorithm>
#include <chrono>
#include <new>
#include <system_error>
#include <utility>

namespace quarnel {

namespace {

using namespace std::chrono_literals;

/// A copy is at most this old.
constexpr auto Interval = 30s;
/// So long at a time, in milliseconds, is copied on the way from one key to the next: a small part
/// of a frame.
constexpr int CopyingTime = 2;

} // namespace

RecoveryCopy::RecoveryCopy(const Analysis& analysis, QObject* parent)
    : QObject(parent)
    , analysis_(analysis) {
    timer_ = new QTimer(this);
    timer_->setObjectName(QStringLiteral("RecoveryTimer"));
    timer_->setInterval(Interval);
    connect(timer_, &QTimer::timeout, this, &RecoveryCopy::WriteIfChanged);
    timer_->start();
    copying_ = new QTimer(this);
    copying_->setObjectName(QStringLiteral("RecoveryCopying"));
    connect(copying_, &QTimer::timeout, this, [this] { Try([this] { CopySome(); }); });
    NoteReplaced();
}

RecoveryCopy::~RecoveryCopy() {
    TakeOutcome(true);
}

void RecoveryCopy::NoteEdit() {
    rowsChanged_ = areRowsUnsaved_ = isCopyStale_ = true;
}

bool RecoveryCopy::HasChanged() const {
    return rowsChanged_ || !HaveSameTexts(analysis_.state, known_);
}

bool RecoveryCopy::HasUnsavedChanges() const {
    return areRowsUnsaved_ || !HaveSameTexts(analysis_.state, saved_);
}

void RecoveryCopy::NoteReplaced() {
    StopCopying();
    TakeOutcome(true);
    known_ = WithoutReadings(analysis_.state);
    saved_ = known_;
    rowsChanged_ = areRowsUnsaved_ = false;
    // What it may be restored as is another project's path by now.
    if (own_)
        RemoveCopy(own_->path);
}

void RecoveryCopy::NoteSaved() {
    NoteReplaced();
    RemoveOutdated();
}

// ---- Writing -----------------------------------------------------------------------------------

void RecoveryCopy::Try(const std::function<void()>& part) {
    FileFailure failure = FileFailure::None;
    try {
        part();
    } catch (const std::bad_alloc&) {
        failure = FileFailure::OutOfMemory;
    } catch (const std::system_error&) { // no thread to be had
        failure = FileFailure::OutOfMemory;
    }
    if (failure == FileFailure::None)
        return;
    StopCopying();
    TellFailure(failure);
}

void RecoveryCopy::WriteIfChanged() {
    Try([this] {
        TakeOutcome(false);
        if (!writing_.valid() && !copier_.IsCopying() && HasChanged() && BeginCopy())
            copying_->start(0);
    });
}

bool RecoveryCopy::WriteNow() {
    TakeOutcome(true);
    Try([this] {
        if (HasChanged() && BeginCopy())
            CopyRest();
    });
    TakeOutcome(true);
    return !HasChanged();
}

bool RecoveryCopy::BeginCopy() {
    if (!own_)
        own_ = HoldNewCopy();
    if (!own_) {
        TellFailure(FileFailure::PathFileAccess);
        return false;
    }
    copier_.Start(analysis_.state);
    isCopyStale_ = false;
    return true;
}

void RecoveryCopy::CopySome() {
    if (std::exchange(isCopyStale_, false))
        copier_.Start(analysis_.state);
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < CopyingTime)
        if (copier_.CopyPiece(analysis_.state))
            return StartWriting();
}

void RecoveryCopy::CopyRest() {
    while (!copier_.CopyPiece(analysis_.state))
        continue;
    StartWriting();
}

/// The typing goes on while another thread turns the copy into a file, and frees it.
void RecoveryCopy::StartWriting() {
    copying_->stop();
    CopiedState copy = copier_.Take();
    ProjectState known = copy.texts;
    writing_ =
        std::async(std::launch::async, [copy = std::move(copy), path = ToUtf8(own_->path),
                                        projectFile = analysis_.file.CurrentProjectFile]() mutable {
            return SaveCopy(std::move(copy), path, projectFile);
        });
    known_ = std::move(known);
    rowsChanged_ = false;
}

void RecoveryCopy::StopCopying() {
    copying_->stop();
    copier_ = StateCopier();
}

void RecoveryCopy::TakeOutcome(bool wait) {
    if (!writing_.valid() || (!wait && writing_.wait_for(0s) != std::future_status::ready))
        return;
    const FileFailure failure = writing_.get();
    if (failure == FileFailure::None) {
        failureIsTold_ = false;
        RemoveOutdated();
        return;
    }
    rowsChanged_ = true; // to be tried again
    TellFailure(failure);
}

void RecoveryCopy::TellFailure(FileFailure failure) {
    if (failureIsTold_)
        return;
    try {
        Q_EMIT WritingFailed(ToQString(FileErrorMessage(failure)));
        failureIsTold_ = true;
    } catch (const std::bad_alloc&) {
        // The next failure is told instead.
    }
}

void RecoveryCopy::RemoveOutdated() {
    for (const HeldCopy& copy : std::exchange(outdated_, {}))
        RemoveCopy(copy.path);
}

void RecoveryCopy::Remove() {
    timer_->stop();
    StopCopying();
    TakeOutcome(true);
    RemoveOutdated();
    if (own_)
        RemoveCopy(own_->path);
    own_.reset();
    for (const ReplacedWork& work : replaced_)
        if (work.copy)
            RemoveCopy(work.copy->path);
    replaced_.clear();
    Q_EMIT ReplacedChanged();
}

// ---- The way back ------------------------------------------------------------------------------

std::vector<LeftCopy> RecoveryCopy::TakeLeftCopies() {
    std::vector<LeftCopy> copies;
    for (HeldCopy& copy : HoldLeftCopies()) {
        taken_.push_back(copy);
        std::string project = ProjectOfCopy(copy.path);
        QDateTime written = QFileInfo(copy.path).lastModified();
        copies.push_back({std::move(copy), std::move(project), std::move(written)});
    }
    return copies;
}

void RecoveryCopy::NoteRestored(const HeldCopy& copy) {
    outdated_.push_back(copy);
    NoteEdit();
    // On a full disk the old copy stays the only one.
    WriteNow();
}

std::optional<ReplacedWork> RecoveryCopy::KeepUnsaved() {
    const bool isOnDisk = WriteNow();
    if (!HasUnsavedChanges())
        return std::nullopt;
    ReplacedWork work;
    work.number = lastNumber_ + 1;
    work.file = analysis_.file;
    work.isWhole = !isOnDisk;
    work.state = isOnDisk ? WithoutReadings(analysis_.state) : analysis_.state;
    return work;
}

void RecoveryCopy::SetAside(ReplacedWork work) {
    lastNumber_ = work.number;
    work.replaced = QDateTime::currentDateTime();
    work.copy = std::exchange(own_, std::nullopt);
    // One that was restored while the disk was full has but the copy that it was restored from.
    if (work.isWhole && !outdated_.empty() && (!work.copy || !QFileInfo::exists(work.copy->path)))
        work.copy = outdated_.back();
    outdated_.clear();
    replaced_.push_back(std::move(work));
    Q_EMIT ReplacedChanged();
}

void RecoveryCopy::NoteBroughtBack(int number) {
    const auto work =
        std::find_if(replaced_.begin(), replaced_.end(),
                     [number](const ReplacedWork& one) { return one.number == number; });
    const std::optional<HeldCopy> copy = work->copy;
    replaced_.erase(work);
    Q_EMIT ReplacedChanged();
    if (copy)
        outdated_.push_back(*copy);
    NoteEdit();
    WriteNow();
}

} // namespace quarnel
