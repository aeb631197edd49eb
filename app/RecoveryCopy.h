#pragma once

#include "app/RecoveryFiles.h"
#include "kcompute/Analysis.h"
#include "project/FileOnDisk.h"
#include "project/StateCopier.h"

#include <QDateTime>
#include <QObject>
#include <QString>
#include <QTimer>
#include <functional>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace quarnel {

/// A copy that a window left behind when it ended without saying so.
struct LeftCopy {
    HeldCopy copy;
    std::string
        projectFile; ///< the project it is of (the name's own bytes); empty for one never saved
    QDateTime written;
};

/// A project that another one replaced before it was saved.
struct ReplacedWork {
    int number = 0;     ///< names it as long as the window lives
    QDateTime replaced; ///< when
    FileOnDisk file;    ///< its own
    /// Its texts and choices, which a file does not give back where they hold a double quote; and
    /// all of it where no copy could be written.
    ProjectState state;
    bool isWhole = false; ///< `state` holds the readings and marks too
    std::optional<HeldCopy>
        copy; ///< of it, or of what it was earlier; none where none was ever written
};

/// Keeps a copy of the project in the user's own data folder while it is worked on, so that a crash
/// or a power cut costs half a minute of typing at most, and keeps what is replaced by another
/// project until it is brought back. The clean end of a window removes its copies; a copy that
/// nobody holds was left by a window that is gone. A disk or a memory that does not take a copy is
/// told by a signal, never thrown, so that no box comes between two keys.
class RecoveryCopy : public QObject {
    Q_OBJECT
public:
    explicit RecoveryCopy(const Analysis& analysis, QObject* parent = nullptr);
    ~RecoveryCopy() override;

    /// A reading or a mark may have changed. Other texts are looked at when the time has come.
    void NoteEdit();
    /// The project is another one, as it stands in its file, or a new one: what changes from here
    /// on is to be kept.
    void NoteReplaced();
    /// The project stands in a file as it is now: no copy of it is needed.
    void NoteSaved();
    /// Whether the project differs from what stands in its file.
    bool HasUnsavedChanges() const;
    /// Writes the copy now, if there is something to lose, and waits until it is on disk. Whether
    /// nothing is left to lose.
    bool WriteNow();
    /// The window ends as the user wants it: its copies go.
    void Remove();

    /// The copies that no running window holds, the newest first. This window holds each of them
    /// from then on, so that a second one starting does not offer it too.
    std::vector<LeftCopy> TakeLeftCopies();
    /// The project was restored from this copy, which goes once the window's own is on disk.
    void NoteRestored(const HeldCopy& copy);

    /// The project as it is to be kept when another one replaces it; none where all of it is saved.
    /// Throws std::bad_alloc where neither disk nor memory takes it.
    std::optional<ReplacedWork> KeepUnsaved();
    /// It was replaced.
    void SetAside(ReplacedWork work);
    /// What was set aside and not brought back, the latest last.
    const std::vector<ReplacedWork>& Replaced() const { return replaced_; }
    /// The project is the replaced work of this number again.
    void NoteBroughtBack(int number);

Q_SIGNALS:
    /// The copy could not be written; told once, until it works again.
    void WritingFailed(const QString& reason);
    void ReplacedChanged();

private:
    void WriteIfChanged();
    /// Begins the copying in memory; whether it could.
    bool BeginCopy();
    /// Copies for a moment, and hands the copy to the disk once it is whole.
    void CopySome();
    void CopyRest();
    void StartWriting();
    /// Nothing is being copied any more.
    void StopCopying();
    /// Does a part of the work, which memory may be too short for.
    void Try(const std::function<void()>& part);
    /// What the writing under way came to; without waiting, nothing while it goes on.
    void TakeOutcome(bool wait);
    void TellFailure(FileFailure failure);
    bool HasChanged() const;
    void RemoveOutdated();

    const Analysis& analysis_;
    QTimer* timer_ = nullptr;
    QTimer* copying_ = nullptr;
    bool rowsChanged_ = false;
    bool areRowsUnsaved_ = false;
    bool isCopyStale_ = false; ///< rows have changed since the copying began
    bool failureIsTold_ = false;
    ProjectState known_; ///< as last written or saved, without its readings and marks
    ProjectState saved_; ///< as last opened or saved, the same way
    StateCopier copier_;
    std::optional<HeldCopy> own_;    ///< this project's copy; none before the first
    std::vector<HeldCopy> taken_;    ///< the copies offered
    std::vector<HeldCopy> outdated_; ///< once this project's own is on disk
    std::vector<ReplacedWork> replaced_;
    int lastNumber_ = 0;
    std::future<FileFailure> writing_;
};

} // namespace quarnel
