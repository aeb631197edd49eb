#pragma once

#include "kcompute/Analysis.h"

#include <QDateTime>
#include <QLockFile>
#include <QObject>
#include <QString>
#include <QTimer>
#include <future>
#include <memory>
#include <string>
#include <vector>

namespace quarnel {

/// A copy that a window left behind when it ended without saying so.
struct LeftCopy {
    QString path; ///< of the copy, a project file
    std::string
        projectFile; ///< the project it is of (the name's own bytes); empty for one never saved
    QDateTime written;
};

/// Keeps a copy of the project in the user's own data folder while it is worked on, so that a crash
/// or a power cut costs half a minute of typing at most. A window holds a lock beside its copy as
/// long as it runs; a copy whose lock nobody holds was left by one that is gone. The clean end of a
/// window removes its copy.
class RecoveryCopy : public QObject {
    Q_OBJECT
public:
    explicit RecoveryCopy(const Analysis& analysis, QObject* parent = nullptr);
    ~RecoveryCopy() override;

    /// A reading or a mark may have changed. Other texts are looked at when the time has come.
    void NoteEdit() { rowsChanged_ = areRowsUnsaved_ = true; }
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
    /// The window ends as the user wants it: the copy goes.
    void Remove();

    /// The copies that no running window holds, the newest first. This window holds each of them
    /// from then on, so that a second one starting does not offer it too.
    std::vector<LeftCopy> TakeLeftCopies();
    /// Removes a copy that was restored or is not wanted.
    void Discard(const LeftCopy& copy);

    /// The folder of the copies.
    static QString Folder();

Q_SIGNALS:
    /// The copy could not be written; told once, until it works again.
    void WritingFailed(const QString& reason);

private:
    void WriteIfChanged();
    void Write();
    /// The copy holds the project as it is now.
    void NoteKept();
    /// What the writing under way came to; without waiting, nothing while it goes on.
    void TakeOutcome(bool wait);
    void TellFailure(FileFailure failure);
    bool HasChanged() const;
    /// Finds a name for this window's copy and takes its lock.
    bool HoldName();

    const Analysis& analysis_;
    QTimer* timer_ = nullptr;
    bool rowsChanged_ = false;
    bool areRowsUnsaved_ = false;
    bool failureIsTold_ = false;
    ProjectState known_; ///< as last written or saved, without its readings and marks
    ProjectState saved_; ///< as last opened or saved, the same way
    QString path_;       ///< of this window's copy; empty before the first
    std::unique_ptr<QLockFile> lock_;
    std::vector<std::unique_ptr<QLockFile>> taken_; ///< of the copies offered
    std::future<FileFailure> writing_;
};

} // namespace quarnel
